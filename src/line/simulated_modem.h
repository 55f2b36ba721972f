#pragma once
// Device 0, always present: a modem that needs no hardware. A dialled call connects after a few
// seconds; the centres that answer it live with the dialogues.

#include <functional>
#include <memory>
#include <string>

#include "core/event_loop.h"
#include "line/serial_link.h"
#include "line/telephony.h"

namespace parlane {

class SimulatedModem : public Telephony, public SerialLink {
  public:
    explicit SimulatedModem(EventLoop& loop);

    void setCallStateHandler(std::function<void(std::uint32_t)> handler) override;
    bool InitTelephony() override { return true; }
    void ShutdownTelephony() override {}
    bool OpenLine(int device) override { return device == 0; }
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

    bool OpenCommunicationsPort(std::intptr_t, std::function<void(int)> onEvent) override;
    bool CloseCommunicationsPort() override;
    bool TxChars(const std::string& bytes) override;
    std::string RxChars(std::size_t maximum) override;

    void setLocationCountryCode(std::string code) { countryCode_ = std::move(code); }
    const std::string& lastDialled() const { return lastDialled_; }
    const std::string& sent() const { return sent_; }

  private:
    void deliver(std::uint32_t state);

    EventLoop& loop_;
    std::function<void(std::uint32_t)> handler_;
    EventLoop::TimerId connectTimer_;
    EventLoop::TimerId idleTimer_;
    // No centre speaks on this line yet: the far end hangs up after a short silence.
    EventLoop::TimerId farEndDropTimer_;
    bool portOpen_ = false;
    std::string countryCode_ = "44";
    std::string lastDialled_;
    std::string sent_;
    std::string pending_;
};

}  // namespace parlane
