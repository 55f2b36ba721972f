#include "line/at/posix_serial_link.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

namespace parlane {

PosixSerialLink::~PosixSerialLink() {
    CloseCommunicationsPort();
}

bool PosixSerialLink::OpenCommunicationsPort(std::intptr_t handle,
                                             std::function<void(std::int32_t)> onCommEvent) {
    CloseCommunicationsPort();
    const int fd = static_cast<int>(handle);
    if (handle <= 0 || handle > 0x7fffffff || fcntl(fd, F_GETFD) < 0) return false;
    termios tio{};
    if (isatty(fd) && tcgetattr(fd, &tio) == 0) {
        // Raw bytes both ways: no echo, no CR/LF changes, no signals, all eight bits.
        const tcflag_t keep = tio.c_cflag & (CBAUD | CLOCAL | CRTSCTS | HUPCL);
        cfmakeraw(&tio);
        tio.c_cflag = (tio.c_cflag & ~(CBAUD | CLOCAL | CRTSCTS | HUPCL)) | keep | CREAD;
        tio.c_cc[VMIN] = 1;
        tio.c_cc[VTIME] = 0;
        if (tcsetattr(fd, TCSANOW, &tio) != 0) return false;
    }
    if (pipe2(wake_, O_CLOEXEC | O_NONBLOCK) != 0) return false;
    fd_ = fd;
    onCommEvent_ = std::move(onCommEvent);
    {
        std::lock_guard lock(mutex_);
        eventOutstanding_ = false;
    }
    reader_ = std::thread([this, fd, wakeFd = wake_[0]] { readerLoop(fd, wakeFd); });
    announce();
    return true;
}

bool PosixSerialLink::CloseCommunicationsPort() {
    if (fd_ < 0) return false;
    const char stop = 1;
    // The pipe is empty or nearly so: this write cannot fail for lack of room.
    [[maybe_unused]] const auto written = write(wake_[1], &stop, 1);
    reader_.join();
    close(wake_[0]);
    close(wake_[1]);
    wake_[0] = wake_[1] = -1;
    fd_ = -1;
    onCommEvent_ = nullptr;
    std::lock_guard lock(mutex_);
    pending_.clear();
    eventOutstanding_ = false;
    return true;
}

void PosixSerialLink::preload(std::string bytes) {
    std::lock_guard lock(mutex_);
    pending_ = std::move(bytes);
}

void PosixSerialLink::announce() {
    {
        std::lock_guard lock(mutex_);
        if (pending_.empty() || eventOutstanding_) return;
        eventOutstanding_ = true;
    }
    if (onCommEvent_) onCommEvent_(1);
}

namespace {

// A result code the modem writes when it leaves a call, on a line of its own.
bool HoldsCallEndCode(const std::string& text) {
    for (const char* code : {"\nNO CARRIER\r", "\nNO DIALTONE\r", "\nNO DIAL TONE\r"})
        if (text.find(code) != std::string::npos) return true;
    return false;
}

}  // namespace

std::size_t PosixSerialLink::pendingBytes() {
    std::lock_guard lock(mutex_);
    return pending_.size();
}

void PosixSerialLink::readerLoop(int fd, int wakeFd) {
    bool portGone = false;
    bool callEnded = false;
    std::string tail;  // the last bytes read, so that a code split between reads is found
    char chunk[4096];
    for (;;) {
        pollfd fds[2] = {{wakeFd, POLLIN, 0}, {portGone ? -1 : fd, POLLIN, 0}};
        if (poll(fds, 2, -1) < 0) {
            if (errno == EINTR) continue;
            return;
        }
        if (fds[0].revents != 0) return;
        if (fds[1].revents == 0) continue;
        const ssize_t n = read(fd, chunk, sizeof chunk);
        if (n > 0) {
            {
                std::lock_guard lock(mutex_);
                AppendToLinkBuffer(pending_, chunk, static_cast<std::size_t>(n));
            }
            announce();
            tail.append(chunk, static_cast<std::size_t>(n));
            if (!callEnded && HoldsCallEndCode(tail)) {
                callEnded = true;
                if (onCallEnded) onCallEnded();
            }
            if (tail.size() > 16) tail.erase(0, tail.size() - 16);
        } else if (n == 0 || (errno != EINTR && errno != EAGAIN)) {
            // Hung up or gone: the provider reports the lost call; stop watching the port.
            portGone = true;
        }
    }
}

int PosixSerialLink::GetRxCharacters(RxBufferArray& buffer) {
    bool more = false;
    std::size_t n = 0;
    {
        std::lock_guard lock(mutex_);
        if (fd_ < 0) return 0;
        n = std::min(pending_.size(), buffer.size());
        for (std::size_t i = 0; i < n; ++i) buffer[i] = static_cast<std::uint8_t>(pending_[i]);
        pending_.erase(0, n);
        more = !pending_.empty();
        eventOutstanding_ = more;
    }
    // What is still held back brings a further event.
    if (more && onCommEvent_) onCommEvent_(1);
    return static_cast<int>(n);
}

bool PosixSerialLink::TxChars(const std::string& bytes) {
    if (fd_ < 0) return false;
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = write(fd_, bytes.data() + done, bytes.size() - done);
        if (n > 0) {
            done += static_cast<std::size_t>(n);
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else if (n < 0 && errno == EAGAIN) {
            // A non-blocking port that is full: wait until it drains, but not for ever.
            pollfd out{fd_, POLLOUT, 0};
            if (poll(&out, 1, 5000) <= 0) return false;
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace parlane
