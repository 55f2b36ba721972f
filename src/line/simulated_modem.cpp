#include "line/simulated_modem.h"

namespace parlane {

SimulatedModem::SimulatedModem(EventLoop& loop) : loop_(loop) {
    connectTimer_ = loop_.createTimer([this] {
        loop_.stopTimer(connectTimer_);
        deliver(LINECALLSTATE_CONNECTED);
        loop_.startTimer(farEndDropTimer_, Milliseconds(5000));
    });
    farEndDropTimer_ = loop_.createTimer([this] {
        loop_.stopTimer(farEndDropTimer_);
        deliver(LINECALLSTATE_DISCONNECTED);
    });
    idleTimer_ = loop_.createTimer([this] {
        loop_.stopTimer(idleTimer_);
        deliver(LINECALLSTATE_IDLE);
    });
}

void SimulatedModem::setCallStateHandler(std::function<void(std::uint32_t)> handler) {
    handler_ = std::move(handler);
}

void SimulatedModem::deliver(std::uint32_t state) {
    if (handler_) handler_(state);
}

std::int32_t SimulatedModem::lineTranslateAddress(int, const std::string& canonical,
                                                  std::string& dialable) {
    dialable.clear();
    for (char c : canonical)
        if ((c >= '0' && c <= '9') || c == '+') dialable += c;
    return 0;
}

PlaceCallResult SimulatedModem::PlaceCall(const std::string& dialable, std::int32_t) {
    lastDialled_ = dialable;
    loop_.startTimer(connectTimer_, Milliseconds(3000));
    return PlaceCallResult::Placed;
}

void SimulatedModem::DropCall() {
    loop_.stopTimer(connectTimer_);
    loop_.stopTimer(farEndDropTimer_);
    loop_.startTimer(idleTimer_, Milliseconds(200));
}

std::int32_t SimulatedModem::tapiGetLocationInfo(std::string& countryCode) {
    countryCode = countryCode_;
    return 0;
}

bool SimulatedModem::OpenCommunicationsPort(std::intptr_t, std::function<void(int)>) {
    portOpen_ = true;
    return true;
}

bool SimulatedModem::CloseCommunicationsPort() {
    const bool wasOpen = portOpen_;
    portOpen_ = false;
    return wasOpen;
}

bool SimulatedModem::TxChars(const std::string& bytes) {
    if (!portOpen_) return false;
    sent_ += bytes;
    return true;
}

std::string SimulatedModem::RxChars(std::size_t maximum) {
    std::string out = pending_.substr(0, maximum);
    pending_.erase(0, out.size());
    return out;
}

}  // namespace parlane
