#include "line/at/at_modem.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "line/modem_config.h"

namespace parlane {
namespace {

speed_t SpeedFor(int baud) {
    switch (baud) {
        case 300:
            return B300;
        case 1200:
            return B1200;
        case 2400:
            return B2400;
        case 4800:
            return B4800;
        case 9600:
            return B9600;
        case 19200:
            return B19200;
        case 38400:
            return B38400;
        case 57600:
            return B57600;
        case 230400:
            return B230400;
        case 460800:
            return B460800;
        default:
            return B115200;
    }
}

bool WriteAll(int fd, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
        if (n > 0)
            done += static_cast<std::size_t>(n);
        else if (n < 0 && errno != EINTR)
            return false;
    }
    return true;
}

std::string LockPath(const std::string& dir, const std::string& name) {
    return dir + "/LCK.." + name;
}

// The pid in a lock file: HDB writes it as text; 0 when there is none to read.
pid_t LockHolder(const std::string& path) {
    FILE* f = std::fopen(path.c_str(), "r");
    if (!f) return 0;
    long pid = 0;
    if (std::fscanf(f, "%ld", &pid) != 1) pid = 0;
    std::fclose(f);
    return pid > 0 ? static_cast<pid_t>(pid) : 0;
}

// Two names of one device (a by-id link and the node) share one lock.
// The name minicom and the lockdev library give the same device's lock: its path under /dev
// with "/" as "_" ("ttyS0", "pts_3"), else its file name.
std::string LockNameFor(const std::string& devicePath) {
    std::error_code ec;
    const auto real = std::filesystem::canonical(devicePath, ec);
    const std::string path = (ec ? std::filesystem::path(devicePath) : real).string();
    if (path.rfind("/dev/", 0) != 0) return std::filesystem::path(path).filename().string();
    std::string name = path.substr(5);
    std::replace(name.begin(), name.end(), '/', '_');
    return name;
}

}  // namespace

ModemReply ClassifyModemLine(const std::string& raw) {
    std::string line;
    for (char c : raw) line += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    while (!line.empty() && line.back() == ' ') line.pop_back();
    while (!line.empty() && line.front() == ' ') line.erase(0, 1);
    if (line.empty()) return ModemReply::None;
    if (line.rfind("AT", 0) == 0) return ModemReply::Echo;
    if (std::all_of(line.begin(), line.end(), [](char c) { return c >= '0' && c <= '9'; })) {
        // Numeric codes; the ones not listed are CONNECT with a speed.
        switch (std::stoi(line.substr(0, 4))) {
            case 0:
                return ModemReply::Ok;
            case 2:
                return ModemReply::Ring;
            case 3:
            case 4:
            case 6:
            case 7:
            case 8:
                return ModemReply::Failure;
            default:
                return ModemReply::Connect;
        }
    }
    if (line == "OK") return ModemReply::Ok;
    if (line.rfind("CONNECT", 0) == 0) return ModemReply::Connect;
    if (line == "RING") return ModemReply::Ring;
    for (const char* failure : {"NO CARRIER", "ERROR", "NO DIALTONE", "NO DIAL TONE", "BUSY",
                                "NO ANSWER", "DELAYED", "BLACKLISTED"})
        if (line.rfind(failure, 0) == 0) return ModemReply::Failure;
    return ModemReply::None;
}

int AcquireUucpLock(const std::string& lockDir, const std::string& deviceName) {
    const std::string path = LockPath(lockDir, deviceName);
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd >= 0) {
            char text[16];
            const int n = std::snprintf(text, sizeof text, "%10ld\n", static_cast<long>(getpid()));
            const bool written = WriteAll(fd, std::string(text, static_cast<std::size_t>(n)));
            close(fd);
            if (written) return 0;
            unlink(path.c_str());
            return EIO;
        }
        if (errno != EEXIST) return errno;
        const pid_t holder = LockHolder(path);
        if (holder > 0 && (kill(holder, 0) == 0 || errno == EPERM)) return EBUSY;
        // A dead process's lock, or one nobody can read: take it over.
        if (unlink(path.c_str()) != 0 && errno != ENOENT) return errno;
    }
    return EBUSY;
}

void ReleaseUucpLock(const std::string& lockDir, const std::string& deviceName) {
    const std::string path = LockPath(lockDir, deviceName);
    if (LockHolder(path) == getpid()) unlink(path.c_str());
}

AtModem::AtModem(EventLoop& loop, AtModemOptions options)
    : loop_(loop), options_(std::move(options)), lockName_(LockNameFor(options_.devicePath)) {}

AtModem::~AtModem() {
    *alive_ = false;
    link_.CloseCommunicationsPort();
    closePort();
}

std::int32_t AtModem::lineInitialize(LineCallbackFunction callback, const std::string&,
                                     std::uint32_t& deviceCount) {
    callback_ = std::move(callback);
    deviceCount = 1;
    return 0;
}

std::int32_t AtModem::lineShutdown() {
    lineClose(1);
    callback_ = nullptr;
    return 0;
}

std::int32_t AtModem::lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t,
                                              std::uint32_t high, std::uint32_t& version) {
    return NegotiateOneDevice(device, high, version);
}

std::int32_t AtModem::lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) {
    return OneDataModemCaps(device, caps, "Parlane AT modem on " + options_.devicePath,
                            options_.lineName.empty() ? options_.devicePath : options_.lineName,
                            LineKind::Modem, options_.devicePath);
}

std::int32_t AtModem::lineOpen(std::uint32_t device, std::uint32_t& lineHandle) {
    if (device != 0) return LINEERR_BADDEVICEID;
    if (!lineOpen_ && fd_ < 0) {
        const auto result = openPort();
        if (result != 0 && result != LINEERR_INUSE) return result;
    }
    lineOpen_ = true;
    lineHandle = 1;
    return 0;
}

std::int32_t AtModem::openPort() {
    if (!options_.lockDir.empty()) {
        const int error = AcquireUucpLock(options_.lockDir, lockName_);
        if (error == EBUSY) return LINEERR_INUSE;
        // A lock folder we may not write does not keep the modem from working.
        locked_ = error == 0;
    }
    const auto giveUp = [this](std::int32_t code) {
        if (locked_) ReleaseUucpLock(options_.lockDir, lockName_);
        locked_ = false;
        return code;
    };
    // Non-blocking, so that a port waiting for carrier cannot hang the open.
    const int fd = open(options_.devicePath.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        if (errno == EBUSY) return giveUp(LINEERR_INUSE);
        return giveUp(errno == ENOENT || errno == ENODEV || errno == ENXIO
                          ? LINEERR_NODEVICE
                          : LINEERR_RESOURCEUNAVAIL);
    }
    // Terminal programs that write no lock file (picocom) hold an flock on the device instead.
    if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
        close(fd);
        return giveUp(errno == EWOULDBLOCK ? LINEERR_INUSE : LINEERR_RESOURCEUNAVAIL);
    }
    termios tio{};
    if (tcgetattr(fd, &tio) != 0) {
        close(fd);
        return giveUp(LINEERR_RESOURCEUNAVAIL);
    }
    ioctl(fd, TIOCEXCL);
    cfmakeraw(&tio);
    cfsetispeed(&tio, SpeedFor(options_.baud));
    cfsetospeed(&tio, SpeedFor(options_.baud));
    // CLOCAL: the kernel must not hang the port up on its own; carrier is watched here.
    tio.c_cflag |= CLOCAL | CREAD | HUPCL;
    if (options_.hardwareFlowControl)
        tio.c_cflag |= CRTSCTS;
    else
        tio.c_cflag &= ~CRTSCTS;
    tio.c_cc[VMIN] = 1;
    tio.c_cc[VTIME] = 0;
    if (tcsetattr(fd, TCSANOW, &tio) != 0) {
        close(fd);
        return giveUp(LINEERR_RESOURCEUNAVAIL);
    }
    // Blocking from now on: reads only follow poll, and writes must not be cut short.
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    tcflush(fd, TCIOFLUSH);
    int bits = TIOCM_DTR | TIOCM_RTS;
    canDriveDtr_ = ioctl(fd, TIOCMBIS, &bits) == 0;
    if (pipe2(wake_, O_CLOEXEC | O_NONBLOCK) != 0) {
        close(fd);
        return giveUp(LINEERR_RESOURCEUNAVAIL);
    }
    fd_ = fd;
    portGone_ = false;
    mode_ = kCommand;
    dialling_ = false;
    watchCarrier_ = false;
    const auto generation = ++portGeneration_;
    watcher_ = std::thread(
        [this, fd, wakeFd = wake_[0], generation] { watcherLoop(fd, wakeFd, generation); });
    return 0;
}

void AtModem::closePort() {
    if (fd_ < 0) return;
    setMode(kStop);
    watcher_.join();
    close(wake_[0]);
    close(wake_[1]);
    wake_[0] = wake_[1] = -1;
    // The port is left open to others again (the exclusive mode outlives the descriptor), and
    // HUPCL lowers DTR here: a modem still in a call hangs up.
    ioctl(fd_, TIOCNXCL);
    close(fd_);
    fd_ = -1;
    ++portGeneration_;
    if (locked_) ReleaseUucpLock(options_.lockDir, lockName_);
    locked_ = false;
}

void AtModem::setMode(Mode mode) {
    mode_ = mode;
    const char wake = 1;
    if (wake_[1] >= 0) [[maybe_unused]]
        const auto n = write(wake_[1], &wake, 1);
}

void AtModem::postToLoop(std::uint64_t generation, std::function<void()> fn) {
    loop_.post([this, alive = std::weak_ptr<bool>(alive_), generation, fn = std::move(fn)] {
        if (!alive.expired() && generation == portGeneration_) fn();
    });
}

void AtModem::watcherLoop(int fd, int wakeFd, std::uint64_t generation) {
    std::string line;
    bool gone = false;
    bool sawCarrier = false;
    char chunk[512];
    for (;;) {
        const int mode = mode_;
        if (mode == kStop) return;
        // While the call is up the link reads the data; here only the port's end is watched.
        const bool readReplies = mode == kCommand;
        const bool checkCarrier = mode == kWatch && watchCarrier_ && !gone;
        pollfd fds[2] = {{wakeFd, POLLIN, 0},
                         {gone ? -1 : fd, static_cast<short>(readReplies ? POLLIN : 0), 0}};
        const int timeout = checkCarrier ? static_cast<int>(options_.carrierCheck.count()) : -1;
        const int ready = poll(fds, 2, timeout);
        if (ready < 0 && errno != EINTR) return;
        if (fds[0].revents != 0) {
            char drain[16];
            while (read(wakeFd, drain, sizeof drain) > 0) {
            }
            line.clear();
            continue;
        }
        if (ready == 0 && checkCarrier) {
            int bits = 0;
            if (ioctl(fd, TIOCMGET, &bits) != 0) continue;
            if (bits & TIOCM_CD) {
                sawCarrier = true;
                carrierSeen_ = true;
            } else if (sawCarrier) {
                // Carrier fell: the far end or the line is gone.
                sawCarrier = false;
                watchCarrier_ = false;
                postToLoop(generation, [this] { onPortLost(); });
            }
            continue;
        }
        if (fds[1].revents == 0) continue;
        ssize_t n = 0;
        if (readReplies && (fds[1].revents & POLLIN)) {
            n = read(fd, chunk, sizeof chunk);
            if (n < 0 && (errno == EINTR || errno == EAGAIN)) continue;
        } else if (!(fds[1].revents & (POLLHUP | POLLERR | POLLNVAL))) {
            continue;
        }
        if (n <= 0) {
            gone = true;  // hung up or unplugged
            postToLoop(generation, [this] { onPortLost(); });
            continue;
        }
        for (ssize_t i = 0; i < n; ++i) {
            const char c = chunk[i];
            if (c != '\r' && c != '\n') {
                line += c;
                continue;
            }
            if (line.empty()) continue;
            const auto reply = ClassifyModemLine(line);
            const bool connected = reply == ModemReply::Connect && dialling_;
            if (connected) {
                // From here on the bytes are the call's: what came with CONNECT goes to the link.
                ssize_t rest = i + 1;
                if (c == '\r' && rest < n && chunk[rest] == '\n') ++rest;
                link_.preload(std::string(chunk + rest, static_cast<std::size_t>(n - rest)));
                dialling_ = false;
                // Only from command mode: a close may have asked this thread to stop meanwhile.
                int expected = kCommand;
                mode_.compare_exchange_strong(expected, kWatch);
            }
            postToLoop(generation, [this, line] { onLine(line); });
            line.clear();
            if (connected) break;
        }
    }
}

void AtModem::later(Milliseconds delay, std::function<void()> fn) {
    loop_.singleShot(delay, [this, alive = std::weak_ptr<bool>(alive_), step = step_,
                             generation = portGeneration_, fn = std::move(fn)] {
        if (!alive.expired() && step == step_ && generation == portGeneration_) fn();
    });
}

void AtModem::deliver(std::uint32_t state) {
    if (callback_) callback_(callHandle_, LINE_CALLSTATE, 0, state, 0, 0);
}

void AtModem::send(const std::string& command) {
    if (fd_ >= 0) WriteAll(fd_, command + "\r");
}

void AtModem::armTimeout(Milliseconds delay) {
    ++step_;
    later(delay, [this] {
        switch (phase_) {
            case Phase::Init:
            case Phase::Dialling:
                send("");  // any character stops a dial in progress
                endCall();
                break;
            case Phase::Dropping:
                if (!hangupSent_) {
                    // No answer to the escape: the modem may be in command mode already.
                    hangupSent_ = true;
                    send("ATH");
                    armTimeout(options_.commandTimeout);
                } else {
                    finishDrop();
                }
                break;
            default:
                break;
        }
    });
}

std::int32_t AtModem::lineMakeCall(std::uint32_t, std::uint32_t& callHandle,
                                   const std::string& dialable, std::uint32_t) {
    if (!lineOpen_) return LINEERR_INVALLINEHANDLE;
    if (phase_ != Phase::Idle && phase_ != Phase::Ended) return LINEERR_INUSE;
    if (portGone_) closePort();
    if (fd_ < 0) {
        const auto result = openPort();
        if (result != 0) return result;
    }
    callHandle = callHandle_ = callHandle_ + 1;
    const std::int32_t request = ++requestId_;
    phase_ = Phase::Init;
    initIndex_ = 0;
    // The centre's own init string follows the modem's.
    callInit_ = options_.initCommands;
    if (devConfig_ && !devConfig_->initString.empty()) callInit_.push_back(devConfig_->initString);
    dialCommand_ = std::string("ATD") + options_.dialMode + dialable;
    dialling_ = false;
    carrierSeen_ = false;
    setMode(kCommand);
    ++step_;
    loop_.singleShot(Milliseconds(0), [this, alive = std::weak_ptr<bool>(alive_), request] {
        if (!alive.expired() && callback_)
            callback_(callHandle_, LINE_REPLY, 0, static_cast<std::uint32_t>(request), 0, 0);
    });
    nextCommand();
    return request;
}

void AtModem::nextCommand() {
    if (initIndex_ < callInit_.size()) {
        send(callInit_[initIndex_++]);
        armTimeout(options_.commandTimeout);
        return;
    }
    phase_ = Phase::Dialling;
    dialling_ = true;
    send(dialCommand_);
    armTimeout(options_.dialTimeout);
}

void AtModem::onLine(const std::string& line) {
    const auto reply = ClassifyModemLine(line);
    switch (phase_) {
        case Phase::Init:
            if (reply == ModemReply::Ok) nextCommand();
            if (reply == ModemReply::Failure) endCall();
            break;
        case Phase::Dialling:
            if (reply == ModemReply::Connect) {
                phase_ = Phase::Connected;
                ++step_;
                watchCarrier_ = canDriveDtr_;
                setMode(kWatch);
                // Where no carrier line tells (a pseudo-terminal, a three-wire cable), the
                // modem's "NO CARRIER" in the data is the far end going.
                link_.onCallEnded = [this, generation = portGeneration_] {
                    postToLoop(generation, [this] { onFarEndHangUp(0); });
                };
                deliver(LINECALLSTATE_CONNECTED);
            } else if (reply == ModemReply::Ok || reply == ModemReply::Failure) {
                // OK to a dial is a voice call at best: no data connection.
                endCall();
            }
            break;
        case Phase::Dropping:
            if (reply == ModemReply::Ok && !hangupSent_) {
                hangupSent_ = true;
                send("ATH");
                armTimeout(options_.commandTimeout);
            } else if (hangupSent_ && (reply == ModemReply::Ok || reply == ModemReply::Failure)) {
                finishDrop();
            }
            break;
        default:
            break;
    }
}

void AtModem::endCall() {
    phase_ = Phase::Ended;
    ++step_;
    dialling_ = false;
    if (!portGone_) setMode(kCommand);
    deliver(LINECALLSTATE_DISCONNECTED);
}

void AtModem::onFarEndHangUp(int waits) {
    if (phase_ != Phase::Connected) return;
    // What the centre said before it went is read first: an acknowledgement in it counts.
    if (link_.isOpen() && link_.pendingBytes() > 0 && waits < kFarEndReadWaits) {
        later(Milliseconds(50), [this, waits] { onFarEndHangUp(waits + 1); });
        return;
    }
    endCall();
}

void AtModem::onPortLost() {
    portGone_ = true;
    if (phase_ == Phase::Init || phase_ == Phase::Dialling || phase_ == Phase::Connected)
        endCall();
    else if (phase_ == Phase::Dropping)
        finishDrop();
}

std::int32_t AtModem::lineDrop(std::uint32_t) {
    // The program closes the link first; make sure, since the replies are read here again.
    if (link_.isOpen()) link_.CloseCommunicationsPort();
    const Phase was = phase_;
    phase_ = Phase::Dropping;
    hangupSent_ = false;
    dialling_ = false;
    ++step_;
    if (fd_ < 0 || portGone_) {
        later(Milliseconds(0), [this] { finishDrop(); });
        return 0;
    }
    int bits = TIOCM_DTR;
    if (canDriveDtr_ && ioctl(fd_, TIOCMBIC, &bits) == 0) {
        later(options_.dtrLowTime, [this, was] {
            int dtr = TIOCM_DTR;
            ioctl(fd_, TIOCMBIS, &dtr);
            // A modem set to ignore DTR (&D0) keeps its carrier: escape and ATH as well. So
            // does one whose carrier line says nothing (never seen high, or always high).
            int lines = 0;
            const bool carrierGone =
                carrierSeen_ && ioctl(fd_, TIOCMGET, &lines) == 0 && (lines & TIOCM_CD) == 0;
            if (was == Phase::Connected && !carrierGone)
                escapeAndHangUp();
            else
                hangUpInCommandMode();
        });
        return 0;
    }
    if (was == Phase::Connected)
        escapeAndHangUp();
    else
        hangUpInCommandMode();  // or dialling, which any character stops
    return 0;
}

void AtModem::escapeAndHangUp() {
    // Silence on both sides of "+++" takes the modem back to command mode.
    later(options_.guardTime, [this] {
        WriteAll(fd_, "+++");
        setMode(kCommand);
        // The OK comes after the modem's own guard time; a modem that is in command mode
        // already (the far end hung up) says nothing, and ATH follows anyway.
        armTimeout(2 * options_.guardTime + Milliseconds(500));
    });
}

void AtModem::hangUpInCommandMode() {
    setMode(kCommand);
    hangupSent_ = true;
    send("ATH");
    armTimeout(options_.commandTimeout);
}

void AtModem::finishDrop() {
    phase_ = Phase::Idle;
    ++step_;
    deliver(LINECALLSTATE_IDLE);
}

std::int32_t AtModem::lineClose(std::uint32_t) {
    if (link_.isOpen()) link_.CloseCommunicationsPort();
    ++step_;
    closePort();
    lineOpen_ = false;
    phase_ = Phase::Idle;
    return 0;
}

std::int32_t AtModem::lineGetID(std::uint32_t, std::intptr_t& portHandle) {
    if (fd_ < 0 || phase_ != Phase::Connected) return LINEERR_OPERATIONFAILED;
    portHandle = fd_;
    return 0;
}

// The usual dialling rules from the location the user set (own country, own area, outside
// line).
std::int32_t AtModem::lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                           std::string& dialable) {
    if (device != 0) return LINEERR_BADDEVICEID;
    dialable = TranslateCanonicalAddress(canonical, options_.location);
    return 0;
}

std::int32_t AtModem::tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) {
    countryCode = options_.location.countryCode;
    cityCode = options_.location.areaCode;
    return 0;
}

// A centre's own serial settings and init string, for the call about to be placed. A block that
// is not ours (another device's, damaged, empty) leaves the port as the options set it.
std::int32_t AtModem::lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& block,
                                       const std::string&) {
    if (device != 0) return LINEERR_BADDEVICEID;
    devConfig_ = DecodeModemConfig(block);
    if (!devConfig_ || fd_ < 0) return 0;
    termios tio{};
    if (tcgetattr(fd_, &tio) != 0) return 0;
    cfsetispeed(&tio, SpeedFor(static_cast<int>(devConfig_->baud)));
    cfsetospeed(&tio, SpeedFor(static_cast<int>(devConfig_->baud)));
    tio.c_cflag &= ~(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
    tio.c_cflag |= devConfig_->dataBits == 5   ? CS5
                   : devConfig_->dataBits == 6 ? CS6
                   : devConfig_->dataBits == 7 ? CS7
                                               : CS8;
    if (devConfig_->parity != 'N') tio.c_cflag |= PARENB;
    if (devConfig_->parity == 'O') tio.c_cflag |= PARODD;
    if (devConfig_->stopBits == 2) tio.c_cflag |= CSTOPB;
    if (devConfig_->hardwareFlowControl) tio.c_cflag |= CRTSCTS;
    tcsetattr(fd_, TCSANOW, &tio);  // a pseudo-terminal may refuse some of it; no harm
    return 0;
}

void AtModem::setLocation(const DiallingLocation& location) {
    options_.location = location;
    options_.dialMode = location.tone ? 'T' : 'P';
}

ModemConfig AtModem::currentConfig() const {
    if (devConfig_) return *devConfig_;
    ModemConfig config;  // the port is opened raw: eight bits, no parity, one stop bit
    config.baud = static_cast<std::uint32_t>(options_.baud);
    config.hardwareFlowControl = options_.hardwareFlowControl;
    return config;
}

std::int32_t AtModem::lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                       const std::string&) {
    if (device != 0) return LINEERR_BADDEVICEID;
    return WriteVarString(varString, EncodeModemConfig(currentConfig()));
}

std::int32_t AtModem::lineConfigDialogEdit(std::uint32_t device, std::uintptr_t, const std::string&,
                                           const std::vector<std::uint8_t>& blockIn,
                                           std::vector<std::uint8_t>& varStringOut) {
    if (device != 0) return LINEERR_BADDEVICEID;
    return EditModemBlock(dialogs_, currentConfig(), blockIn, varStringOut);
}

std::int32_t AtModem::lineTranslateDialog(std::uint32_t device, std::uintptr_t) {
    if (device != 0) return LINEERR_BADDEVICEID;
    DiallingLocation location = options_.location;
    if (!EditLocation(dialogs_, settings_, location)) return LINEERR_OPERATIONFAILED;
    setLocation(location);
    return 0;
}

}  // namespace parlane
