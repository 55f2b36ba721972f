#include "line/sim/simulated_modem.h"

namespace parlane {

SimulatedModem::SimulatedModem(EventLoop& loop, std::uint32_t seed) : loop_(loop), random_(seed) {}

SimulatedModem::~SimulatedModem() {
    *alive_ = false;
}

std::int32_t SimulatedModem::lineInitialize(LineCallbackFunction callback, const std::string&,
                                            std::uint32_t& deviceCount) {
    callback_ = std::move(callback);
    deviceCount = 1;
    return 0;
}

std::int32_t SimulatedModem::lineShutdown() {
    endCall();
    callback_ = nullptr;
    return 0;
}

std::int32_t SimulatedModem::lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t,
                                                     std::uint32_t high, std::uint32_t& version) {
    return NegotiateOneDevice(device, high, version);
}

std::int32_t SimulatedModem::lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) {
    return OneDataModemCaps(device, caps, "Parlane simulated modem", kLineName, LineKind::Simulated,
                            kLineKey);
}

std::int32_t SimulatedModem::lineOpen(std::uint32_t device, std::uint32_t& lineHandle) {
    if (device != 0) return LINEERR_BADDEVICEID;
    if (lineOpenFails_) return LINEERR_RESOURCEUNAVAIL;
    lineHandle = 1;
    return 0;
}

void SimulatedModem::deliver(std::uint32_t state) {
    if (callback_) callback_(callHandle_, LINE_CALLSTATE, 0, state, 0, 0);
}

std::int32_t SimulatedModem::lineGetID(std::uint32_t, std::intptr_t& portHandle) {
    portHandle = 1;
    return 0;
}

std::int32_t SimulatedModem::lineTranslateAddress(std::uint32_t, const std::string& canonical,
                                                  std::string& dialable) {
    dialable.clear();
    for (char c : canonical)
        if ((c >= '0' && c <= '9') || (c == '+' && dialable.empty())) dialable += c;
    return 0;
}

void SimulatedModem::later(Milliseconds delay, std::function<void()> fn) {
    const auto generation = callGeneration_;
    std::weak_ptr<bool> alive = alive_;
    loop_.singleShot(delay, [this, alive, generation, fn = std::move(fn)] {
        if (alive.expired() || generation != callGeneration_) return;
        fn();
    });
}

std::int32_t SimulatedModem::lineMakeCall(std::uint32_t, std::uint32_t& callHandle,
                                          const std::string& dialable, std::uint32_t) {
    lastDialled_ = dialable;
    endCall();
    callHandle = callHandle_ = callHandle_ + 1;
    const std::int32_t request = ++requestId_;
    later(Milliseconds(100), [this, request] {
        if (callback_)
            callback_(callHandle_, LINE_REPLY, 0, static_cast<std::uint32_t>(request), 0, 0);
    });
    const int attempt = attempts_[dialable]++;
    CentreChoice choice = CentreForNumber(dialable, attempt);
    line_ = choice.line;
    centre_ = std::move(choice.centre);
    if (attempt < line_.busyAttempts) {
        later(Milliseconds(2000), [this] { deliver(LINECALLSTATE_DISCONNECTED); });
        return request;
    }
    if (line_.noAnswer) {
        later(Milliseconds(45000), [this] { deliver(LINECALLSTATE_DISCONNECTED); });
        return request;
    }
    later(Milliseconds(line_.answerAfterMs), [this] {
        callUp_ = true;
        deliver(LINECALLSTATE_CONNECTED);
        if (line_.burstBytes > 0) {
            std::string junk;
            for (int i = 0; i < line_.burstBytes; ++i)
                junk += static_cast<char>(0x80 + random_() % 0x80);
            arrive(junk);
        }
        if (centre_) centre_->connected(*this);
        if (line_.dropAfterMs > 0) later(Milliseconds(line_.dropAfterMs), [this] { hangUp(); });
    });
    return request;
}

void SimulatedModem::endCall() {
    ++callGeneration_;
    callUp_ = false;
    pending_.clear();
}

std::int32_t SimulatedModem::lineDrop(std::uint32_t) {
    endCall();
    std::weak_ptr<bool> alive = alive_;
    loop_.singleShot(Milliseconds(200), [this, alive] {
        if (!alive.expired()) deliver(LINECALLSTATE_IDLE);
    });
    return 0;
}

std::int32_t SimulatedModem::tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) {
    countryCode = location_.countryCode;
    cityCode = location_.areaCode;
    return 0;
}

std::int32_t SimulatedModem::lineSetDevConfig(std::uint32_t device,
                                              const std::vector<std::uint8_t>& config,
                                              const std::string&) {
    if (device != 0) return LINEERR_BADDEVICEID;
    if (auto decoded = DecodeModemConfig(config)) config_ = *decoded;
    return 0;
}

std::int32_t SimulatedModem::lineGetDevConfig(std::uint32_t device,
                                              std::vector<std::uint8_t>& varString,
                                              const std::string&) {
    if (device != 0) return LINEERR_BADDEVICEID;
    return WriteVarString(varString, EncodeModemConfig(config_));
}

std::int32_t SimulatedModem::lineConfigDialogEdit(std::uint32_t device, std::uintptr_t,
                                                  const std::string&,
                                                  const std::vector<std::uint8_t>& blockIn,
                                                  std::vector<std::uint8_t>& varStringOut) {
    if (device != 0) return LINEERR_BADDEVICEID;
    return EditModemBlock(dialogs_, config_, blockIn, varStringOut);
}

std::int32_t SimulatedModem::lineTranslateDialog(std::uint32_t device, std::uintptr_t) {
    if (device != 0) return LINEERR_BADDEVICEID;
    return EditLocation(dialogs_, settings_, location_) ? 0 : LINEERR_OPERATIONFAILED;
}

bool SimulatedModem::OpenCommunicationsPort(std::intptr_t,
                                            std::function<void(std::int32_t)> onEvent) {
    if (!callUp_) return false;
    portOpen_ = true;
    onCommEvent_ = std::move(onEvent);
    if (!pending_.empty()) notify();
    return true;
}

bool SimulatedModem::CloseCommunicationsPort() {
    if (!portOpen_) return false;
    portOpen_ = false;
    onCommEvent_ = nullptr;
    return true;
}

void SimulatedModem::notify() {
    if (portOpen_ && onCommEvent_) onCommEvent_(1);
}

int SimulatedModem::GetRxCharacters(RxBufferArray& buffer) {
    if (!portOpen_) return 0;
    const std::size_t n = std::min(pending_.size(), buffer.size());
    for (std::size_t i = 0; i < n; ++i) buffer[i] = static_cast<std::uint8_t>(pending_[i]);
    pending_.erase(0, n);
    // What is still held back brings a further event.
    if (!pending_.empty())
        loop_.post([this, alive = std::weak_ptr<bool>(alive_)] {
            if (!alive.expired()) notify();
        });
    return static_cast<int>(n);
}

bool SimulatedModem::TxChars(const std::string& bytes) {
    if (!portOpen_ || !callUp_) return false;
    if (onTraffic) onTraffic(true, bytes);
    // The centre hears the bytes a moment later, never inside the program's own write.
    later(Milliseconds(50), [this, bytes] {
        if (centre_) centre_->received(bytes);
    });
    return true;
}

void SimulatedModem::arrive(const std::string& bytes) {
    if (!callUp_) return;
    if (onTraffic) onTraffic(false, bytes);
    pending_ += bytes;
    notify();
}

void SimulatedModem::sendToProgram(std::string bytes) {
    if (line_.noise) {
        // Line noise in the high half: a seven-bit dialogue never sees it.
        std::string noisy;
        for (char c : bytes) {
            if (random_() % 4 == 0) noisy += static_cast<char>(0x80 + random_() % 0x80);
            noisy += c;
        }
        bytes = std::move(noisy);
    }
    if (!line_.splitChunks || bytes.size() < 2) {
        arrive(bytes);
        return;
    }
    int delay = 0;
    for (std::size_t pos = 0; pos < bytes.size();) {
        const std::size_t piece = 1 + random_() % 4;
        delay += 30 + static_cast<int>(random_() % 60);
        later(Milliseconds(delay), [this, part = bytes.substr(pos, piece)] { arrive(part); });
        pos += piece;
    }
}

void SimulatedModem::after(Milliseconds delay, std::function<void()> fn) {
    later(delay, std::move(fn));
}

void SimulatedModem::hangUp() {
    later(Milliseconds(100), [this] {
        callUp_ = false;
        deliver(LINECALLSTATE_DISCONNECTED);
    });
}

}  // namespace parlane
