#include "support/pty_modem_emulator.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <stdexcept>

namespace parlane::testing {

PtyModemEmulator::PtyModemEmulator() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    char name[128];
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0 ||
        ptsname_r(master_, name, sizeof name) != 0 || pipe2(wake_, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("cannot open a pseudo-terminal");
    slavePath_ = name;
    // Raw from the start, so that nothing is echoed by the terminal layer itself.
    termios tio{};
    tcgetattr(master_, &tio);
    cfmakeraw(&tio);
    tcsetattr(master_, TCSANOW, &tio);
    thread_ = std::thread([this] { threadMain(); });
}

PtyModemEmulator::~PtyModemEmulator() {
    {
        std::lock_guard lock(mutex_);
        stop_ = true;
    }
    const char c = 1;
    [[maybe_unused]] auto n = ::write(wake_[1], &c, 1);
    thread_.join();
    if (master_ >= 0) close(master_);
    close(wake_[0]);
    close(wake_[1]);
}

void PtyModemEmulator::setAnswer(Answer answer) {
    std::lock_guard lock(mutex_);
    answer_ = answer;
}

void PtyModemEmulator::vanish() {
    std::lock_guard lock(mutex_);
    tasks_.push_back([this] {
        close(master_);
        master_ = -1;
        endCall();
    });
    const char c = 1;
    [[maybe_unused]] auto n = ::write(wake_[1], &c, 1);
}

void PtyModemEmulator::setHangUpDelay(Milliseconds delay) {
    std::lock_guard lock(mutex_);
    hangUpDelay_ = delay;
}

void PtyModemEmulator::farEndHangsUp() {
    std::lock_guard lock(mutex_);
    tasks_.push_back([this] {
        if (callUp_) hangUp();
    });
    const char c = 1;
    [[maybe_unused]] auto n = ::write(wake_[1], &c, 1);
}

void PtyModemEmulator::goDeaf() {
    std::lock_guard lock(mutex_);
    deaf_ = true;
}

std::vector<std::string> PtyModemEmulator::commands() const {
    std::lock_guard lock(mutex_);
    return commands_;
}
std::string PtyModemEmulator::dialled() const {
    std::lock_guard lock(mutex_);
    return dialled_;
}
bool PtyModemEmulator::callUp() const {
    std::lock_guard lock(mutex_);
    return callUp_;
}
int PtyModemEmulator::hangUps() const {
    std::lock_guard lock(mutex_);
    return hangUps_;
}
int PtyModemEmulator::accepted() const {
    std::lock_guard lock(mutex_);
    int total = 0;
    for (const auto& c : centres_) total += c->acceptedCount();
    return total;
}

void PtyModemEmulator::threadMain() {
    std::unique_lock lock(mutex_);
    char buffer[4096];
    while (!stop_) {
        auto tasks = std::move(tasks_);
        tasks_.clear();
        for (auto& t : tasks) t();
        const auto now = Clock::now();
        if (!timers_.empty() && timers_.begin()->first <= now) {
            auto node = timers_.extract(timers_.begin());
            node.mapped()();
            continue;
        }
        int timeout = -1;
        if (!timers_.empty())
            timeout = static_cast<int>(
                std::chrono::ceil<Milliseconds>(timers_.begin()->first - now).count());
        // A master whose device nobody holds reports a hang-up without end: look again later.
        if (portClosed_ && master_ >= 0) timeout = timeout < 0 ? 100 : std::min(timeout, 100);
        pollfd fds[2] = {{wake_[0], POLLIN, 0}, {portClosed_ ? -1 : master_, POLLIN, 0}};
        const int master = master_;
        lock.unlock();
        poll(fds, 2, timeout);
        char drain[64];
        while (::read(wake_[0], drain, sizeof drain) > 0) {
        }
        lock.lock();
        if (master != master_ || master_ < 0) continue;
        if (portClosed_) {
            pollfd probe{master_, POLLIN, 0};
            poll(&probe, 1, 0);
            portClosed_ = (probe.revents & POLLHUP) != 0;
            continue;
        }
        if (fds[1].revents & POLLIN) {
            const ssize_t n = ::read(master_, buffer, sizeof buffer);
            if (n > 0) {
                onBytes(buffer, static_cast<std::size_t>(n));
                continue;
            }
        }
        if (fds[1].revents & (POLLHUP | POLLERR)) {
            // The program closed the port: a modem hangs up when DTR falls.
            if (callUp_) ++hangUps_;
            endCall();
            echo_ = verbose_ = true;
            portClosed_ = true;
        }
    }
}

void PtyModemEmulator::schedule(Milliseconds delay, std::function<void()> fn) {
    timers_.emplace(Clock::now() + delay, std::move(fn));
}

void PtyModemEmulator::after(Milliseconds delay, std::function<void()> fn) {
    schedule(delay, [this, generation = callGeneration_, fn = std::move(fn)] {
        if (generation == callGeneration_ && callUp_) fn();
    });
}

void PtyModemEmulator::write(const std::string& bytes) {
    std::size_t done = 0;
    while (master_ >= 0 && done < bytes.size()) {
        const ssize_t n = ::write(master_, bytes.data() + done, bytes.size() - done);
        if (n > 0)
            done += static_cast<std::size_t>(n);
        else if (n < 0 && errno != EINTR)
            return;
    }
}

void PtyModemEmulator::sendToProgram(std::string bytes) {
    // From the centre, on this thread; nothing reaches the program in command mode.
    if (dataMode_) write(bytes);
}

void PtyModemEmulator::result(const char* text, int code) {
    write(verbose_ ? std::string("\r\n") + text + "\r\n" : std::to_string(code) + "\r");
}

void PtyModemEmulator::endCall() {
    ++callGeneration_;
    callUp_ = dataMode_ = dialPending_ = false;
    centre_ = nullptr;
    plusCount_ = 0;
}

void PtyModemEmulator::hangUp() {
    // The far end went away.
    endCall();
    result("NO CARRIER", 3);
}

void PtyModemEmulator::onBytes(const char* data, std::size_t n) {
    if (deaf_) return;
    if (dataMode_) {
        onDataBytes(data, n);
        return;
    }
    if (dialPending_) {
        // Any character stops a dial.
        endCall();
        result("NO CARRIER", 3);
        return;
    }
    if (echo_) write(std::string(data, n));
    for (std::size_t i = 0; i < n; ++i) {
        if (data[i] == '\r') {
            const std::string line = std::move(line_);
            line_.clear();
            onCommandLine(line);
        } else if (data[i] == 8 && !line_.empty()) {
            line_.pop_back();
        } else if (data[i] != '\n') {
            line_ += data[i];
        }
    }
}

void PtyModemEmulator::onDataBytes(const char* data, std::size_t n) {
    const auto now = Clock::now();
    std::string forward;
    for (std::size_t i = 0; i < n; ++i) {
        const char c = data[i];
        if (c == '+' && plusCount_ < 3 && (plusCount_ > 0 || now - lastData_ >= guard_)) {
            if (++plusCount_ == 3) {
                schedule(guard_, [this, generation = callGeneration_, at = now] {
                    if (generation != callGeneration_ || plusCount_ != 3 || lastData_ > at) return;
                    plusCount_ = 0;
                    dataMode_ = false;
                    result("OK", 0);
                });
            }
            continue;
        }
        forward.append(static_cast<std::size_t>(plusCount_), '+');
        plusCount_ = 0;
        forward += c;
    }
    lastData_ = now;
    if (!forward.empty() && centre_) centre_->received(forward);
}

void PtyModemEmulator::onCommandLine(const std::string& raw) {
    std::string upper;
    for (char c : raw) upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto at = upper.find("AT");
    if (at == std::string::npos) return;
    commands_.push_back(raw.substr(at));
    const std::string cmd = upper.substr(at + 2);
    for (std::size_t i = 0; i < cmd.size();) {
        const char c = cmd[i++];
        const auto number = [&] {
            int v = 0;
            while (i < cmd.size() && std::isdigit(static_cast<unsigned char>(cmd[i])))
                v = v * 10 + (cmd[i++] - '0');
            return v;
        };
        switch (c) {
            case ' ':
                break;
            case 'Z':
                echo_ = verbose_ = true;
                number();
                break;
            case 'E':
                echo_ = number() != 0;
                break;
            case 'V':
                verbose_ = number() != 0;
                break;
            case 'Q':
            case 'X':
            case 'L':
            case 'M':
            case 'I':
                number();
                break;
            case '&':
                if (i < cmd.size()) ++i;
                number();
                break;
            case 'S':
                number();
                if (i < cmd.size() && (cmd[i] == '=' || cmd[i] == '?')) ++i;
                number();
                break;
            case 'H':
                number();
                if (callUp_) ++hangUps_;
                endCall();
                if (hangUpDelay_.count() > 0) {
                    schedule(hangUpDelay_, [this] { result("OK", 0); });
                    return;
                }
                break;
            case 'O':
                if (!callUp_) return result("NO CARRIER", 3);
                dataMode_ = true;
                return result("CONNECT 33600", 1);
            case 'D': {
                dialled_ = raw.substr(at + 2 + i);
                std::string digits;
                for (char d : dialled_)
                    if (std::isdigit(static_cast<unsigned char>(d))) digits += d;
                dialPending_ = true;
                const auto generation = ++callGeneration_;
                schedule(connectDelay_, [this, generation, digits] {
                    if (generation != callGeneration_ || !dialPending_) return;
                    dialPending_ = false;
                    switch (answer_) {
                        case Answer::Busy:
                            return result("BUSY", 7);
                        case Answer::NoCarrier:
                            return result("NO CARRIER", 3);
                        case Answer::Connect:
                            break;
                    }
                    auto choice = CentreForNumber(digits, attempts_[digits]++);
                    callUp_ = dataMode_ = true;
                    lastData_ = Clock::now();
                    result("CONNECT 33600", 1);
                    if (!choice.centre) return;
                    centres_.push_back(std::move(choice.centre));
                    centre_ = centres_.back().get();
                    centre_->connected(*this);
                });
                return;
            }
            default:
                return result("ERROR", 4);
        }
    }
    result("OK", 0);
}

}  // namespace parlane::testing
