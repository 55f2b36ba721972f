#pragma once
// The telephony service as the program uses it: the line functions of a TAPI-like provider, one
// line and one call at a time. A provider delivers its events through the callback it was given
// by lineInitialize, on the program's event loop. TAPISubs (tapi_subs.h) is the program's only
// user of this interface.

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace parlane {

enum LineCallState : std::uint32_t {
    LINECALLSTATE_IDLE = 1,
    LINECALLSTATE_OFFERING = 2,
    LINECALLSTATE_BUSY = 64,
    LINECALLSTATE_CONNECTED = 256,
    LINECALLSTATE_PROCEEDING = 512,
    LINECALLSTATE_DISCONNECTED = 16384,
};
// Why a call ended, in dwParam2 of DISCONNECTED; 0 when the provider does not say.
enum LineDisconnectMode : std::uint32_t {
    LINEDISCONNECTMODE_NORMAL = 1,
    LINEDISCONNECTMODE_UNKNOWN = 2,
    LINEDISCONNECTMODE_REJECT = 4,
    LINEDISCONNECTMODE_NOANSWER = 32,
    LINEDISCONNECTMODE_BADADDRESS = 128,
    LINEDISCONNECTMODE_UNREACHABLE = 256,
    LINEDISCONNECTMODE_INCOMPATIBLE = 1024,
};
enum LineMessage : std::uint32_t {
    LINE_CALLSTATE = 2,
    LINE_CLOSE = 3,
    LINE_REPLY = 12,
    LINE_CREATE = 19  // a device was added; dwParam1 is its number
};
inline constexpr std::uint32_t LINEMEDIAMODE_DATAMODEM = 16;
inline constexpr std::uint32_t STRINGFORMAT_ASCII = 1;
inline constexpr std::int32_t LINEERR_ALLOCATED = static_cast<std::int32_t>(0x80000001);
inline constexpr std::int32_t LINEERR_BADDEVICEID = static_cast<std::int32_t>(0x80000002);
inline constexpr std::int32_t LINEERR_CALLUNAVAIL = static_cast<std::int32_t>(0x80000005);
inline constexpr std::int32_t LINEERR_INUSE = static_cast<std::int32_t>(0x8000000F);
inline constexpr std::int32_t LINEERR_INVALCALLHANDLE = static_cast<std::int32_t>(0x80000018);
inline constexpr std::int32_t LINEERR_INVALLINEHANDLE = static_cast<std::int32_t>(0x8000002B);
inline constexpr std::int32_t LINEERR_NODEVICE = static_cast<std::int32_t>(0x80000042);
inline constexpr std::int32_t LINEERR_OPERATIONFAILED = static_cast<std::int32_t>(0x80000048);
inline constexpr std::int32_t LINEERR_RESOURCEUNAVAIL = static_cast<std::int32_t>(0x8000004B);
inline constexpr std::int32_t LINEERR_STRUCTURETOOSMALL = static_cast<std::int32_t>(0x8000004D);

// What kind of line a device is. Only a person may choose the simulated modem: nothing sent
// through it leaves the machine.
enum class LineKind { Modem, Internet, Simulated };

// The parts of LINEDEVCAPS the program reads, and two of our own: the kind of line and the name
// that stays with it while its number does (a port's path). A device that is gone answers
// LINEERR_NODEVICE with `lineKey` still naming what it was.
struct LineDevCaps {
    std::uint32_t dwUsedSize = 0;
    std::string providerInfo;
    std::string lineName;
    LineKind kind = LineKind::Modem;
    std::string lineKey;
    std::uint32_t dwStringFormat = STRINGFORMAT_ASCII;
    std::uint32_t dwMediaModes = 0;
    std::uint32_t dwMonitorDigitModes = 0;
};

// A provider of one data-modem line (device 0): its version is whatever it is offered, and its
// capabilities differ only in their texts.
inline std::int32_t NegotiateOneDevice(std::uint32_t device, std::uint32_t high,
                                       std::uint32_t& version) {
    if (device != 0) return LINEERR_BADDEVICEID;
    version = high;
    return 0;
}
inline std::int32_t OneDataModemCaps(std::uint32_t device, LineDevCaps& caps,
                                     std::string providerInfo, std::string lineName, LineKind kind,
                                     std::string lineKey) {
    if (device != 0) return LINEERR_BADDEVICEID;
    caps.dwUsedSize = 240;
    caps.providerInfo = std::move(providerInfo);
    caps.lineName = std::move(lineName);
    caps.kind = kind;
    caps.lineKey = std::move(lineKey);
    caps.dwStringFormat = STRINGFORMAT_ASCII;
    caps.dwMediaModes = LINEMEDIAMODE_DATAMODEM;
    caps.dwMonitorDigitModes = 0;
    return 0;
}

using LineCallbackFunction =
    std::function<void(std::uint32_t hDevice, std::uint32_t dwMessage, std::uint32_t dwInstance,
                       std::uint32_t dwParam1, std::uint32_t dwParam2, std::uint32_t dwParam3)>;

class TapiProvider {
  public:
    virtual ~TapiProvider() = default;
    // Results: 0 (or a positive request id where told) on success, a negative LINEERR_ code.
    virtual std::int32_t lineInitialize(LineCallbackFunction callback, const std::string& appName,
                                        std::uint32_t& deviceCount) = 0;
    virtual std::int32_t lineShutdown() = 0;
    virtual std::int32_t lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t low,
                                                 std::uint32_t high, std::uint32_t& version) = 0;
    virtual std::int32_t lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) = 0;
    virtual std::int32_t lineOpen(std::uint32_t device, std::uint32_t& lineHandle) = 0;
    // A positive request id: the outcome comes later as LINE_REPLY and call states.
    virtual std::int32_t lineMakeCall(std::uint32_t lineHandle, std::uint32_t& callHandle,
                                      const std::string& dialable, std::uint32_t mediaMode) = 0;
    virtual std::int32_t lineDrop(std::uint32_t callHandle) = 0;
    virtual std::int32_t lineDeallocateCall(std::uint32_t callHandle) = 0;
    virtual std::int32_t lineClose(std::uint32_t lineHandle) = 0;
    // The handle of the port that the provider holds for the line's call.
    virtual std::int32_t lineGetID(std::uint32_t lineHandle, std::intptr_t& portHandle) = 0;
    virtual std::int32_t lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                              std::string& dialable) = 0;
    virtual std::int32_t tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) = 0;
    virtual std::int32_t lineSetDevConfig(std::uint32_t device,
                                          const std::vector<std::uint8_t>& config,
                                          const std::string& deviceClass) = 0;

    // The device's current configuration block in `varString`, laid out as TAPI's VARSTRING:
    // the caller sets dwTotalSize (bytes 0-3, little-endian); the provider writes dwNeededSize,
    // dwUsedSize, dwStringSize and dwStringOffset (bytes 4, 8, 16, 20) and, when it fits, the
    // block. A buffer too small for the block gets the sizes only, with dwStringSize 0.
    virtual std::int32_t lineGetDevConfig(std::uint32_t device,
                                          std::vector<std::uint8_t>& varString,
                                          const std::string& deviceClass) = 0;
    // Shows the device's settings dialog over `blockIn` (the current settings when the block is
    // not one of the device's) and writes the edited block into `varStringOut` as above. Cancel:
    // a LINEERR_ code and the output untouched.
    virtual std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                              const std::string& deviceClass,
                                              const std::vector<std::uint8_t>& blockIn,
                                              std::vector<std::uint8_t>& varStringOut) = 0;
    // The dialling-location dialog; what the user sets there rules every later translation.
    virtual std::int32_t lineTranslateDialog(std::uint32_t device, std::uintptr_t owner) = 0;
    // The provider's own set-up dialog (for the device list: which serial ports it offers).
    virtual std::int32_t lineConfigProvider(std::uintptr_t owner, std::uint32_t providerId) = 0;
};

}  // namespace parlane
