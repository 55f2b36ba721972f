#pragma once
// Device 0, always present: a modem that needs no hardware. A dialled number reaches one of the
// simulated centres (see simulated_centre.h for the number plan), with the line's faults.

#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "core/event_loop.h"
#include "line/device_dialogs.h"
#include "line/serial_link.h"
#include "line/sim/simulated_centre.h"
#include "line/telephony.h"

namespace parlane {

class SimulatedModem : public TapiProvider, public SerialLink, private CentreLink {
  public:
    // The name says what it is wherever a person may choose it.
    static constexpr const char* kLineName = "Simulated modem (demonstration only)";
    static constexpr const char* kLineKey = "simulated";
    explicit SimulatedModem(EventLoop& loop, std::uint32_t seed = 1);
    ~SimulatedModem() override;

    // Telephony.
    std::int32_t lineInitialize(LineCallbackFunction callback, const std::string& appName,
                                std::uint32_t& deviceCount) override;
    std::int32_t lineShutdown() override;
    std::int32_t lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t low,
                                         std::uint32_t high, std::uint32_t& version) override;
    std::int32_t lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) override;
    std::int32_t lineOpen(std::uint32_t device, std::uint32_t& lineHandle) override;
    std::int32_t lineMakeCall(std::uint32_t lineHandle, std::uint32_t& callHandle,
                              const std::string& dialable, std::uint32_t mediaMode) override;
    std::int32_t lineDrop(std::uint32_t callHandle) override;
    std::int32_t lineDeallocateCall(std::uint32_t) override { return 0; }
    std::int32_t lineClose(std::uint32_t) override { return 0; }
    std::int32_t lineGetID(std::uint32_t lineHandle, std::intptr_t& portHandle) override;
    std::int32_t lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                      std::string& dialable) override;
    std::int32_t tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) override;
    // The block is kept, and read back, as an AT modem's would be; the line takes no notice.
    std::int32_t lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& config,
                                  const std::string& deviceClass) override;
    std::int32_t lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                  const std::string& deviceClass) override;
    std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                      const std::string& deviceClass,
                                      const std::vector<std::uint8_t>& blockIn,
                                      std::vector<std::uint8_t>& varStringOut) override;
    std::int32_t lineTranslateDialog(std::uint32_t device, std::uintptr_t owner) override;
    std::int32_t lineConfigProvider(std::uintptr_t, std::uint32_t) override {
        return LINEERR_OPERATIONFAILED;
    }

    // Serial link.
    bool OpenCommunicationsPort(std::intptr_t, std::function<void(std::int32_t)> onEvent) override;
    bool CloseCommunicationsPort() override;
    int GetRxCharacters(RxBufferArray& buffer) override;
    bool TxChars(const std::string& bytes) override;

    // Only its country code matters here: tapiGetLocationInfo gives it to the compose panel.
    void setLocation(const DiallingLocation& location) { location_ = location; }
    void setDeviceDialogs(DeviceDialogs* dialogs, Settings* settings) {
        dialogs_ = dialogs;
        settings_ = settings;
    }
    const ModemConfig& config() const { return config_; }
    void setLineOpenFails(bool fails) { lineOpenFails_ = fails; }
    // Told of every byte string on the line: true for bytes towards the centre.
    std::function<void(bool toCentre, const std::string& bytes)> onTraffic;
    // The centre of the call in progress, or of the last call.
    SimulatedCentre* centre() { return centre_.get(); }
    const std::string& lastDialled() const { return lastDialled_; }

  private:
    // CentreLink.
    void sendToProgram(std::string bytes) override;
    void after(Milliseconds delay, std::function<void()> fn) override;
    void hangUp() override;

    void deliver(std::uint32_t state);
    void endCall();
    void arrive(const std::string& bytes);
    void notify();
    // Runs fn later, unless the call has ended by then.
    void later(Milliseconds delay, std::function<void()> fn);

    EventLoop& loop_;
    std::mt19937 random_;
    LineCallbackFunction callback_;
    std::uint32_t callHandle_ = 0;
    std::int32_t requestId_ = 0;
    std::function<void(std::int32_t)> onCommEvent_;
    std::unique_ptr<SimulatedCentre> centre_;
    LineBehaviour line_;
    std::map<std::string, int> attempts_;
    std::uint64_t callGeneration_ = 0;
    bool callUp_ = false;
    bool portOpen_ = false;
    bool lineOpenFails_ = false;
    DiallingLocation location_;
    ModemConfig config_;
    DeviceDialogs* dialogs_ = nullptr;
    Settings* settings_ = nullptr;
    std::string lastDialled_;
    std::string pending_;  // arrived, not yet read
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace parlane
