#include "line/sim/simulated_tap_centre.h"

namespace parlane {
namespace {

constexpr char kStx = '\x02', kEtx = '\x03', kEot = '\x04', kAck = '\x06', kCr = '\r',
               kEsc = '\x1B';
const std::string kNakCr = "\x15\r";
const std::string kRs = "\x1E";

std::string Checksum(std::string_view stxToEtx) {
    unsigned sum = 0;
    for (char c : stxToEtx) sum += static_cast<unsigned char>(c);
    std::string out;
    for (int shift : {8, 4, 0}) out += static_cast<char>(0x30 + ((sum >> shift) & 0x0F));
    return out;
}

}  // namespace

void SimulatedTapCentre::received(std::string_view bytes) {
    if (state_ == State::Closed || closing()) return;
    buffer_ += bytes;
    for (;;) {
        if (state_ == State::LoggingOn && !takeLogonUnit()) break;
        if (state_ == State::LoggedOn && !takeSessionUnit()) break;
        if (state_ == State::Closed) {
            buffer_.clear();
            break;
        }
    }
}

bool SimulatedTapCentre::takeLogonUnit() {
    if (buffer_.empty()) return false;
    if (buffer_[0] == kEsc) {
        const auto cr = buffer_.find(kCr);
        if (cr == std::string::npos) return false;
        const std::string line = buffer_.substr(1, cr - 1);
        buffer_.erase(0, cr + 1);
        logon(line);
        return true;
    }
    // Each CR before logon is a caller asking for the ID prompt.
    if (buffer_[0] == kCr) say("ID=");
    buffer_.erase(0, 1);
    return true;
}

void SimulatedTapCentre::logon(const std::string& line) {
    const bool pg1 = line.rfind("PG1", 0) == 0;
    const bool passwordOk =
        options_.password.empty() || (pg1 && line.substr(3) == options_.password);
    if (pg1 && passwordOk) {
        state_ = State::LoggedOn;
        say("\x1B[p\r" + options_.afterGoAhead);
        return;
    }
    say(options_.passwordRefusedByNak ? kNakCr : std::string("BAD PASSWORD\r"));
    // Three tries, as a real centre allows, then it drops the caller.
    if (++refusedLogons_ >= 3) {
        sayAfter(Milliseconds(300), "\x1B\x04");
        hangUpAfter(Milliseconds(1000));
        state_ = State::Closed;
    }
}

bool SimulatedTapCentre::takeSessionUnit() {
    if (buffer_.empty()) return false;
    const char c = buffer_[0];
    if (c == kStx) {
        const auto etx = buffer_.find(kEtx);
        // A new STX before the ETX starts the block over: the first one was cut short.
        const auto restart = buffer_.find(kStx, 1);
        if (restart != std::string::npos && restart < etx) {
            buffer_.erase(0, restart);
            return true;
        }
        if (etx == std::string::npos || buffer_.size() < etx + 5) return false;
        const std::string whole = buffer_.substr(0, etx + 5);
        buffer_.erase(0, etx + 5);
        block(whole);
        return true;
    }
    buffer_.erase(0, 1);
    if (c == kEot) signOff();
    return true;
}

void SimulatedTapCentre::block(const std::string& whole) {
    // whole: STX fields ETX, three checksum characters, CR.
    const std::size_t etx = whole.size() - 5;
    const std::string fields = whole.substr(1, etx - 1);
    const auto firstCr = fields.find(kCr);
    const bool wellFormed = whole.back() == kCr && !fields.empty() && fields.back() == kCr &&
                            firstCr != fields.size() - 1;
    if (!wellFormed ||
        whole.substr(etx + 1, 3) != Checksum(std::string_view(whole).substr(0, etx + 1))) {
        say(kNakCr);
        return;
    }
    if (options_.refuse.refuses(++blocks_)) {
        say(options_.refuseByRs ? kRs : kNakCr);
        return;
    }
    record(fields.substr(0, firstCr), fields.substr(firstCr + 1, fields.size() - firstCr - 2));
    if (options_.finishAfter > 0 && acceptedCount() == options_.finishAfter) {
        say(options_.finishLong ? "\x06\r\r\x1B\x04" : "\x06\r\x1B\x04");
        hangUpAfter(Milliseconds(2000));
        state_ = State::Closed;
        return;
    }
    say(options_.ackWithCr ? std::string{kAck, kCr} : std::string{kAck});
}

void SimulatedTapCentre::signOff() {
    say(options_.signOffWithEsc ? std::string{kEsc, kEot} : std::string{kEot});
    hangUpAfter(Milliseconds(1000));
    state_ = State::Closed;
}

}  // namespace parlane
