#pragma once
// The telephony operations call control uses. A provider delivers call states on the program's
// event loop through the handler it is given.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace parlane {

enum LineCallState : std::uint32_t {
    LINECALLSTATE_IDLE = 1,
    LINECALLSTATE_OFFERING = 2,
    LINECALLSTATE_CONNECTED = 256,
    LINECALLSTATE_DISCONNECTED = 16384,
};
inline constexpr std::int32_t LINEMEDIAMODE_DATAMODEM = 16;

enum class PlaceCallResult { Placed = 0, Failed = -1, LineInUse = 1 };

class Telephony {
  public:
    virtual ~Telephony() = default;

    // Called with each LINE_CALLSTATE, on the event loop.
    virtual void setCallStateHandler(std::function<void(std::uint32_t state)> handler) = 0;

    virtual bool InitTelephony() = 0;
    virtual void ShutdownTelephony() = 0;
    virtual bool OpenLine(int device) = 0;
    // 0 on success, else the telephony error code.
    virtual std::int32_t lineSetDevConfig(int device, const std::vector<std::uint8_t>& config,
                                          const std::string& deviceClass) = 0;
    virtual std::int32_t lineTranslateAddress(int device, const std::string& canonicalAddress,
                                              std::string& dialable) = 0;
    virtual PlaceCallResult PlaceCall(const std::string& dialable, std::int32_t mediaMode) = 0;
    virtual void DropCall() = 0;
    virtual void DeallocateCall() = 0;
    virtual void CloseLine() = 0;
    // The handle of the port the provider holds for the call.
    virtual std::intptr_t GetCommHandle() = 0;
    // The current location's country code; a negative result when there is none.
    virtual std::int32_t tapiGetLocationInfo(std::string& countryCode) = 0;
    // The names of the devices, in device order.
    virtual std::vector<std::string> deviceNames() = 0;
};

}  // namespace parlane
