#pragma once
// Device 0, always present: a modem that needs no hardware. A dialled number reaches one of the
// simulated centres (see simulated_centre.h for the number plan), with the line's faults.

#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "core/event_loop.h"
#include "line/serial_link.h"
#include "line/simulated_centre.h"
#include "line/telephony.h"

namespace parlane {

class SimulatedModem : public Telephony, public SerialLink, private CentreLink {
  public:
    explicit SimulatedModem(EventLoop& loop, std::uint32_t seed = 1);
    ~SimulatedModem() override;

    // Telephony.
    void setCallStateHandler(std::function<void(std::uint32_t)> handler) override;
    bool InitTelephony() override { return true; }
    void ShutdownTelephony() override {}
    bool OpenLine(int device) override;
    std::int32_t lineSetDevConfig(int, const std::vector<std::uint8_t>&,
                                  const std::string&) override {
        return 0;
    }
    std::int32_t lineTranslateAddress(int, const std::string& canonical,
                                      std::string& dialable) override;
    PlaceCallResult PlaceCall(const std::string& dialable, std::int32_t mediaMode) override;
    void DropCall() override;
    void DeallocateCall() override {}
    void CloseLine() override {}
    std::intptr_t GetCommHandle() override { return 1; }
    std::int32_t tapiGetLocationInfo(std::string& countryCode) override;
    std::vector<std::string> deviceNames() override { return {"Simulated modem"}; }

    // Serial link.
    bool OpenCommunicationsPort(std::intptr_t, std::function<void(std::int32_t)> onEvent) override;
    bool CloseCommunicationsPort() override;
    int GetRxCharacters(RxBufferArray& buffer) override;
    bool TxChars(const std::string& bytes) override;

    void setLocationCountryCode(std::string code) { countryCode_ = std::move(code); }
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
    std::function<void(std::uint32_t)> handler_;
    std::function<void(std::int32_t)> onCommEvent_;
    std::unique_ptr<SimulatedCentre> centre_;
    LineBehaviour line_;
    std::map<std::string, int> attempts_;
    std::uint64_t callGeneration_ = 0;
    bool callUp_ = false;
    bool portOpen_ = false;
    bool lineOpenFails_ = false;
    std::string countryCode_ = "44";
    std::string lastDialled_;
    std::string pending_;  // arrived, not yet read
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace parlane
