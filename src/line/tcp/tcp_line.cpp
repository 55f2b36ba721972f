#include "line/tcp/tcp_line.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gnutls/gnutls.h>
#include <gnutls/x509.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <mutex>
#include <thread>

#include "core/string_ids.h"
#include "line/modem_config.h"
#include "line/tcp/tcp_settings_form.h"

namespace parlane {

enum class TcpEvent { Connected, Failed, Readable };

struct TcpLine::Connection {
    std::mutex mutex;
    // Reaches the loop; cleared when the call is abandoned, after which the thread only ends.
    std::function<void(TcpEvent, TcpFailure, TcpProblem)> report;
    std::atomic<bool> stop{false};
    std::atomic<bool> armed{false};  // the thread waits for the socket to become readable
    int wake[2] = {-1, -1};
    int fd = -1;
    gnutls_session_t session = nullptr;
    gnutls_certificate_credentials_t credentials = nullptr;

    ~Connection() {
        if (session) gnutls_deinit(session);
        if (credentials) gnutls_certificate_free_credentials(credentials);
        for (int f : {fd, wake[0], wake[1]})
            if (f >= 0) close(f);
    }
    void wakeUp() {
        const char c = 1;
        [[maybe_unused]] const auto n = write(wake[1], &c, 1);
    }
    void send(TcpEvent event, TcpFailure failure = TcpFailure::None, TcpProblem problem = {}) {
        std::lock_guard lock(mutex);
        if (report) report(event, failure, std::move(problem));
    }
};

namespace {

using Clock = std::chrono::steady_clock;

ssize_t Push(gnutls_transport_ptr_t fd, const void* data, size_t size) {
    // No SIGPIPE for a centre that has gone away.
    return ::send(static_cast<int>(reinterpret_cast<std::intptr_t>(fd)), data, size, MSG_NOSIGNAL);
}
ssize_t Pull(gnutls_transport_ptr_t fd, void* data, size_t size) {
    return ::recv(static_cast<int>(reinterpret_cast<std::intptr_t>(fd)), data, size, 0);
}

std::string Numeric(const addrinfo* ai) {
    char host[NI_MAXHOST] = "";
    getnameinfo(ai->ai_addr, ai->ai_addrlen, host, sizeof host, nullptr, 0, NI_NUMERICHOST);
    return host;
}

bool IsAddressLiteral(const std::string& host) {
    in6_addr scratch{};
    return inet_pton(AF_INET, host.c_str(), &scratch) == 1 ||
           inet_pton(AF_INET6, host.c_str(), &scratch) == 1;
}

// Waits for `events` on fd or for the call to be abandoned; 0 when the deadline passed.
int WaitFor(TcpLine::Connection& c, int fd, short events, Clock::time_point deadline) {
    for (;;) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd p[2] = {{c.wake[0], POLLIN, 0}, {fd, events, 0}};
        const int n = poll(p, 2, static_cast<int>(std::max<long long>(0, left.count())));
        if (n < 0 && errno == EINTR) continue;
        if (c.stop) return -1;
        return n;
    }
}

int Connect(TcpLine::Connection& c, const TcpConfig& cfg, Clock::time_point deadline,
            TcpFailure& failure, TcpProblem& problem) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* list = nullptr;
    const int rc = getaddrinfo(cfg.host.c_str(), std::to_string(cfg.port).c_str(), &hints, &list);
    if (c.stop) {
        if (rc == 0) freeaddrinfo(list);
        return -1;
    }
    if (rc != 0) {
        failure = rc == EAI_AGAIN ? TcpFailure::Unreachable : TcpFailure::BadAddress;
        problem = {sid::TcpAddressNotFound, cfg.host, gai_strerror(rc)};
        return -1;
    }
    int fd = -1;
    failure = TcpFailure::Unreachable;
    for (const addrinfo* ai = list; ai && fd < 0; ai = ai->ai_next) {
        fd = socket(ai->ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        if (fd < 0) continue;
        c.fd = fd;  // closed with the connection should the call be abandoned meanwhile
        int error = connect(fd, ai->ai_addr, ai->ai_addrlen) == 0 ? 0 : errno;
        if (error == EINPROGRESS) {
            const int n = WaitFor(c, fd, POLLOUT, deadline);
            if (n < 0) break;
            socklen_t length = sizeof error;
            if (n == 0)
                error = ETIMEDOUT;
            else
                getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &length);
        }
        if (error == 0) break;
        close(fd);
        c.fd = fd = -1;
        failure = error == ECONNREFUSED ? TcpFailure::Refused
                  : error == ETIMEDOUT  ? TcpFailure::TimedOut
                                        : TcpFailure::Unreachable;
        problem = {sid::TcpNoConnectionTo, Numeric(ai), std::strerror(error)};
        if (failure == TcpFailure::TimedOut) break;  // the time is used up for every address
    }
    freeaddrinfo(list);
    if (fd < 0 || c.stop) return -1;
    const int on = 1;
    // Frames and blocks are small and answered one by one: no waiting to fill a segment.
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return fd;
}

bool Handshake(TcpLine::Connection& c, const TcpConfig& cfg, const std::string& trustFile,
               Clock::time_point deadline, TcpFailure& failure, TcpProblem& problem) {
    failure = TcpFailure::Tls;
    if (gnutls_certificate_allocate_credentials(&c.credentials) < 0 ||
        gnutls_init(&c.session, GNUTLS_CLIENT | GNUTLS_NONBLOCK) < 0) {
        problem = {sid::TcpTlsNotSetUp, {}, {}};
        return false;
    }
    gnutls_certificate_set_x509_system_trust(c.credentials);
    if (!trustFile.empty() && gnutls_certificate_set_x509_trust_file(
                                  c.credentials, trustFile.c_str(), GNUTLS_X509_FMT_PEM) < 0) {
        problem = {sid::TcpCertificatesUnreadable, trustFile, {}};
        return false;
    }
    gnutls_set_default_priority(c.session);
    gnutls_credentials_set(c.session, GNUTLS_CRD_CERTIFICATE, c.credentials);
    if (!IsAddressLiteral(cfg.host))
        gnutls_server_name_set(c.session, GNUTLS_NAME_DNS, cfg.host.data(), cfg.host.size());
    if (cfg.verifyCertificate) gnutls_session_set_verify_cert(c.session, cfg.host.c_str(), 0);
    gnutls_transport_set_ptr(
        c.session, reinterpret_cast<gnutls_transport_ptr_t>(static_cast<std::intptr_t>(c.fd)));
    gnutls_transport_set_push_function(c.session, Push);
    gnutls_transport_set_pull_function(c.session, Pull);
    for (;;) {
        const int r = gnutls_handshake(c.session);
        if (r == 0) return true;
        if (r == GNUTLS_E_AGAIN || r == GNUTLS_E_INTERRUPTED) {
            const short want = gnutls_record_get_direction(c.session) ? POLLOUT : POLLIN;
            const int n = WaitFor(c, c.fd, want, deadline);
            if (n < 0) return false;
            if (n == 0) {
                failure = TcpFailure::TimedOut;
                problem = {sid::TcpNoTlsAnswer, {}, {}};
                return false;
            }
            continue;
        }
        if (!gnutls_error_is_fatal(r)) continue;
        problem = {sid::TcpTlsFailed, {}, gnutls_strerror(r)};
        if (r == GNUTLS_E_CERTIFICATE_VERIFICATION_ERROR) {
            gnutls_datum_t text{};
            if (gnutls_certificate_verification_status_print(
                    gnutls_session_get_verify_cert_status(c.session), GNUTLS_CRT_X509, &text, 0) ==
                0) {
                problem.reason = reinterpret_cast<const char*>(text.data);
                gnutls_free(text.data);
            }
        } else if (r == GNUTLS_E_PUSH_ERROR || r == GNUTLS_E_PULL_ERROR ||
                   r == GNUTLS_E_PREMATURE_TERMINATION) {
            failure = TcpFailure::Reset;
        }
        return false;
    }
}

void Watch(std::shared_ptr<TcpLine::Connection> c, TcpConfig cfg, std::string trustFile) {
    const auto deadline = Clock::now() + std::chrono::seconds(cfg.connectTimeoutSecs);
    TcpFailure failure = TcpFailure::None;
    TcpProblem problem;
    if (Connect(*c, cfg, deadline, failure, problem) < 0 ||
        (cfg.tls && !Handshake(*c, cfg, trustFile, deadline, failure, problem))) {
        if (!c->stop) c->send(TcpEvent::Failed, failure, std::move(problem));
        return;
    }
    c->armed = true;
    c->send(TcpEvent::Connected);
    // From here the loop reads and writes; this thread only says when bytes wait.
    while (!c->stop) {
        const bool armed = c->armed;
        pollfd p[2] = {{c->wake[0], POLLIN, 0}, {armed ? c->fd : -1, POLLIN, 0}};
        if (poll(p, 2, -1) < 0 && errno != EINTR) return;
        if (p[0].revents != 0) {
            char drain[16];
            while (read(c->wake[0], drain, sizeof drain) > 0) {
            }
            continue;
        }
        if (p[1].revents != 0) {
            c->armed = false;
            c->send(TcpEvent::Readable);
        }
    }
}

}  // namespace

std::uint32_t DisconnectModeFor(TcpFailure failure) {
    switch (failure) {
        case TcpFailure::BadAddress:
            return LINEDISCONNECTMODE_BADADDRESS;
        case TcpFailure::Refused:
            return LINEDISCONNECTMODE_REJECT;
        case TcpFailure::Unreachable:
            return LINEDISCONNECTMODE_UNREACHABLE;
        case TcpFailure::TimedOut:
            return LINEDISCONNECTMODE_NOANSWER;
        case TcpFailure::Reset:
            return LINEDISCONNECTMODE_UNKNOWN;
        case TcpFailure::Closed:
            return LINEDISCONNECTMODE_NORMAL;
        case TcpFailure::Tls:
            return LINEDISCONNECTMODE_INCOMPATIBLE;
        case TcpFailure::None:
            break;
    }
    return 0;
}

TcpLine::TcpLine(EventLoop& loop) : loop_(loop) {}

TcpLine::~TcpLine() {
    *alive_ = false;
    abandon();
}

std::int32_t TcpLine::lineInitialize(LineCallbackFunction callback, const std::string&,
                                     std::uint32_t& deviceCount) {
    callback_ = std::move(callback);
    deviceCount = 1;
    return 0;
}

std::int32_t TcpLine::lineShutdown() {
    lineClose(1);
    callback_ = nullptr;
    return 0;
}

std::int32_t TcpLine::lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t,
                                              std::uint32_t high, std::uint32_t& version) {
    return NegotiateOneDevice(device, high, version);
}

std::int32_t TcpLine::lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) {
    return OneDataModemCaps(device, caps, "Parlane internet line (TCP, TLS)", kLineName,
                            LineKind::Internet, kLineKey);
}

std::int32_t TcpLine::lineOpen(std::uint32_t device, std::uint32_t& lineHandle) {
    if (device != 0) return LINEERR_BADDEVICEID;
    lineOpen_ = true;
    lineHandle = 1;
    return 0;
}

void TcpLine::deliver(std::uint32_t state, std::uint32_t mode) {
    if (callback_) callback_(callHandle_, LINE_CALLSTATE, 0, state, mode, 0);
}

void TcpLine::abandon() {
    if (conn_) {
        {
            std::lock_guard lock(conn_->mutex);
            conn_->report = nullptr;
        }
        conn_->stop = true;
        if (phase_ == Phase::Connected) {
            // Tell the centre we are going; neither step may wait.
            if (conn_->session) gnutls_bye(conn_->session, GNUTLS_SHUT_WR);
            shutdown(conn_->fd, SHUT_RDWR);
        }
        conn_->wakeUp();
        conn_.reset();  // the thread closes the socket when it ends, if it outlives this
    }
    linkOpen_ = false;
    onCommEvent_ = nullptr;
    pending_.clear();
    eventOutstanding_ = endSeen_ = false;
}

std::int32_t TcpLine::lineMakeCall(std::uint32_t, std::uint32_t& callHandle, const std::string&,
                                   std::uint32_t) {
    if (!lineOpen_) return LINEERR_INVALLINEHANDLE;
    if (phase_ == Phase::Connecting || phase_ == Phase::Connected) return LINEERR_INUSE;
    const auto config = next_;
    next_.reset();
    if (!config || config->host.empty() || config->port == 0) {
        note(words(sid::TcpNoHostAndPort));
        return LINEERR_OPERATIONFAILED;
    }
    abandon();
    auto c = std::make_shared<Connection>();
    if (pipe2(c->wake, O_CLOEXEC | O_NONBLOCK) != 0) return LINEERR_RESOURCEUNAVAIL;
    c->report = [this, alive = std::weak_ptr<bool>(alive_), weak = std::weak_ptr<Connection>(c)](
                    TcpEvent event, TcpFailure failure, TcpProblem problem) {
        loop_.post([this, alive, weak, event, failure, problem = std::move(problem)] {
            const auto c = weak.lock();
            if (alive.expired() || !c || c != conn_) return;
            if (event == TcpEvent::Connected) onConnected(c);
            if (event == TcpEvent::Failed) onFailed(c, failure, problem);
            if (event == TcpEvent::Readable) onReadable(c);
        });
    };
    conn_ = c;
    phase_ = Phase::Connecting;
    lastFailure_ = TcpFailure::None;
    callHandle = ++callHandle_;
    const std::int32_t request = ++requestId_;
    note(words(sid::TcpConnectingTo) + " " + config->Address() +
         (config->tls ? " " + words(sid::TcpWithTls) : ""));
    // Posted before the thread starts, so both come before anything the thread reports.
    loop_.post([this, alive = std::weak_ptr<bool>(alive_), request, call = callHandle_] {
        if (alive.expired() || call != callHandle_ || !callback_) return;
        callback_(callHandle_, LINE_REPLY, 0, static_cast<std::uint32_t>(request), 0, 0);
        if (phase_ == Phase::Connecting) deliver(LINECALLSTATE_PROCEEDING);
    });
    std::thread(Watch, c, *config, extraTrustFile_).detach();
    return request;
}

std::string TcpLine::words(const TcpProblem& problem) const {
    std::string text = problem.id ? words(problem.id) : std::string();
    if (!problem.subject.empty()) text += " " + problem.subject;
    if (!problem.reason.empty()) text += (text.empty() ? "" : ": ") + problem.reason;
    return text;
}

void TcpLine::onConnected(const std::shared_ptr<Connection>& c) {
    phase_ = Phase::Connected;
    if (c->session) {
        char* description = gnutls_session_get_desc(c->session);
        note(words(sid::TcpConnected) + ", " + (description ? description : "TLS"));
        gnutls_free(description);
    } else {
        note(words(sid::TcpConnected));
    }
    deliver(LINECALLSTATE_CONNECTED);
}

void TcpLine::onFailed(const std::shared_ptr<Connection>&, TcpFailure failure,
                       const TcpProblem& problem) {
    phase_ = Phase::Ended;
    lastFailure_ = failure;
    note(words(sid::TcpNotConnected) + " " + words(problem));
    deliver(LINECALLSTATE_DISCONNECTED, DisconnectModeFor(failure));
}

void TcpLine::onReadable(const std::shared_ptr<Connection>& c) {
    if (phase_ != Phase::Connected || endSeen_) return;
    TcpFailure ended = TcpFailure::None;
    TcpProblem problem;
    char chunk[4096];
    // Everything the socket and the TLS layer hold, up to a bound that keeps the loop moving.
    while (ended == TcpFailure::None && pending_.size() < 65536) {
        ssize_t n = 0;
        if (c->session) {
            n = gnutls_record_recv(c->session, chunk, sizeof chunk);
            if (n == GNUTLS_E_AGAIN) break;
            if (n == GNUTLS_E_INTERRUPTED || n == GNUTLS_E_REHANDSHAKE) continue;
            if (n < 0) {
                // A centre that closes without TLS's own goodbye has still just closed.
                ended = n == GNUTLS_E_PREMATURE_TERMINATION ? TcpFailure::Closed
                        : n == GNUTLS_E_PULL_ERROR          ? TcpFailure::Reset
                                                            : TcpFailure::Tls;
                problem.reason = gnutls_strerror(static_cast<int>(n));
                break;
            }
        } else {
            n = recv(c->fd, chunk, sizeof chunk, 0);
            if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) break;
            if (n < 0 && errno == EINTR) continue;
            if (n < 0) {
                ended = TcpFailure::Reset;
                problem.reason = std::strerror(errno);
                break;
            }
        }
        if (n == 0) {
            ended = TcpFailure::Closed;
            problem.id = sid::TcpCentreClosed;
            break;
        }
        AppendToLinkBuffer(pending_, chunk, static_cast<std::size_t>(n));
    }
    if (ended != TcpFailure::None) {
        lost(ended, problem);
    } else {
        c->armed = true;
        c->wakeUp();
    }
    announce();
}

void TcpLine::announce() {
    if (!linkOpen_ || pending_.empty() || eventOutstanding_ || !onCommEvent_) return;
    eventOutstanding_ = true;
    onCommEvent_(1);
}

void TcpLine::lost(TcpFailure failure, const TcpProblem& problem) {
    if (!endSeen_) {
        endSeen_ = true;
        endFailure_ = failure;
        endProblem_ = problem;
    }
    // What came before the end is the dialogue's: the program reads it first.
    if (linkOpen_ && !pending_.empty()) return;
    loop_.singleShot(Milliseconds(0),
                     [this, alive = std::weak_ptr<bool>(alive_), call = callHandle_] {
                         if (alive.expired() || call != callHandle_ || phase_ != Phase::Connected)
                             return;
                         phase_ = Phase::Ended;
                         lastFailure_ = endFailure_;
                         note(words(sid::TcpConnectionLost) + " " + words(endProblem_));
                         deliver(LINECALLSTATE_DISCONNECTED, DisconnectModeFor(endFailure_));
                     });
}

std::int32_t TcpLine::lineDrop(std::uint32_t) {
    abandon();
    phase_ = Phase::Idle;
    loop_.singleShot(Milliseconds(0),
                     [this, alive = std::weak_ptr<bool>(alive_), call = callHandle_] {
                         if (!alive.expired() && call == callHandle_ && phase_ == Phase::Idle)
                             deliver(LINECALLSTATE_IDLE);
                     });
    return 0;
}

std::int32_t TcpLine::lineClose(std::uint32_t) {
    abandon();
    phase_ = Phase::Idle;
    lineOpen_ = false;
    return 0;
}

std::int32_t TcpLine::lineGetID(std::uint32_t, std::intptr_t& portHandle) {
    if (phase_ != Phase::Connected || !conn_) return LINEERR_OPERATIONFAILED;
    portHandle = conn_->fd;
    return 0;
}

std::int32_t TcpLine::lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                           std::string& dialable) {
    if (device != 0) return LINEERR_BADDEVICEID;
    dialable = next_ && !next_->host.empty() ? next_->Address() : canonical;
    return 0;
}

std::int32_t TcpLine::tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) {
    countryCode.clear();
    cityCode.clear();
    return 0;
}

std::int32_t TcpLine::lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& block,
                                       const std::string&) {
    if (device != 0) return LINEERR_BADDEVICEID;
    next_ = DecodeTcpConfig(block);
    return 0;
}

std::int32_t TcpLine::lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                       const std::string&) {
    if (device != 0) return LINEERR_BADDEVICEID;
    return WriteVarString(varString, EncodeTcpConfig(TcpConfig{}));
}

std::int32_t TcpLine::lineConfigDialogEdit(std::uint32_t device, std::uintptr_t, const std::string&,
                                           const std::vector<std::uint8_t>& blockIn,
                                           std::vector<std::uint8_t>& varStringOut) {
    if (device != 0) return LINEERR_BADDEVICEID;
    TcpSettingsForm form(DecodeTcpConfig(blockIn).value_or(TcpConfig{}));
    if (!dialogs_ || !dialogs_->EditTcpSettings(form)) return LINEERR_OPERATIONFAILED;
    const auto edited = form.Result();
    if (!edited) return LINEERR_OPERATIONFAILED;
    return WriteVarString(varStringOut, EncodeTcpConfig(*edited));
}

bool TcpLine::OpenCommunicationsPort(std::intptr_t handle,
                                     std::function<void(std::int32_t)> onCommEvent) {
    if (phase_ != Phase::Connected || !conn_ || handle != conn_->fd) return false;
    linkOpen_ = true;
    onCommEvent_ = std::move(onCommEvent);
    eventOutstanding_ = false;
    announce();
    if (endSeen_ && pending_.empty()) lost(endFailure_, endProblem_);
    return true;
}

bool TcpLine::CloseCommunicationsPort() {
    if (!linkOpen_) return false;
    linkOpen_ = false;
    onCommEvent_ = nullptr;
    eventOutstanding_ = false;
    return true;
}

int TcpLine::GetRxCharacters(RxBufferArray& buffer) {
    if (!linkOpen_) return 0;
    const std::size_t n = std::min(pending_.size(), buffer.size());
    std::copy(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(n), buffer.begin());
    pending_.erase(0, n);
    eventOutstanding_ = false;
    if (!pending_.empty())
        announce();  // what is still held back brings a further event
    else if (endSeen_)
        lost(endFailure_, endProblem_);
    return static_cast<int>(n);
}

bool TcpLine::TxChars(const std::string& bytes) {
    if (phase_ != Phase::Connected || !conn_) return false;
    auto& c = *conn_;
    std::size_t done = 0;
    while (done < bytes.size()) {
        const char* data = bytes.data() + done;
        const std::size_t size = bytes.size() - done;
        bool wait = false;
        if (c.session) {
            const ssize_t n = gnutls_record_send(c.session, data, size);
            if (n > 0)
                done += static_cast<std::size_t>(n);
            else if (n == GNUTLS_E_AGAIN)
                wait = true;
            else if (n != GNUTLS_E_INTERRUPTED)
                return false;
        } else {
            const ssize_t n = ::send(c.fd, data, size, MSG_NOSIGNAL);
            if (n > 0)
                done += static_cast<std::size_t>(n);
            else if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK))
                wait = true;
            else if (!(n < 0 && errno == EINTR))
                return false;  // the read side reports the lost connection
        }
        if (wait) {
            // A full socket: wait until it drains, but not for ever.
            pollfd out{c.fd, POLLOUT, 0};
            if (poll(&out, 1, 5000) <= 0) return false;
        }
    }
    return true;
}

}  // namespace parlane
