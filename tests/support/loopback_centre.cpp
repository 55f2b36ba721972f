#include "support/loopback_centre.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gnutls/gnutls.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace parlane::testing {

struct LoopbackCentre::Tls {
    gnutls_certificate_credentials_t credentials = nullptr;
    gnutls_session_t session = nullptr;
    ~Tls() {
        if (session) gnutls_deinit(session);
        if (credentials) gnutls_certificate_free_credentials(credentials);
    }
};

bool LoopbackCentre::Available(const std::string& address) {
    if (address.find(':') == std::string::npos) return true;
    const int fd = socket(AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in6 a{};
    a.sin6_family = AF_INET6;
    a.sin6_addr = in6addr_loopback;
    const bool bound = fd >= 0 && bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0;
    if (fd >= 0) close(fd);
    return bound;
}

LoopbackCentre::LoopbackCentre(Options options) : options_(std::move(options)) {
    const bool v6 = options_.address.find(':') != std::string::npos;
    listen_ = socket(v6 ? AF_INET6 : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_storage address{};
    socklen_t length = 0;
    if (v6) {
        auto* a = reinterpret_cast<sockaddr_in6*>(&address);
        a->sin6_family = AF_INET6;
        inet_pton(AF_INET6, options_.address.c_str(), &a->sin6_addr);
        length = sizeof *a;
    } else {
        auto* a = reinterpret_cast<sockaddr_in*>(&address);
        a->sin_family = AF_INET;
        inet_pton(AF_INET, options_.address.c_str(), &a->sin_addr);
        length = sizeof *a;
    }
    if (listen_ < 0 || bind(listen_, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
        listen(listen_, 4) != 0 || pipe2(wake_, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::runtime_error("no loopback port for " + options_.address);
    getsockname(listen_, reinterpret_cast<sockaddr*>(&address), &length);
    port_ = ntohs(v6 ? reinterpret_cast<sockaddr_in6*>(&address)->sin6_port
                     : reinterpret_cast<sockaddr_in*>(&address)->sin_port);
    if (!options_.certFile.empty()) {
        tls_ = std::make_unique<Tls>();
        gnutls_certificate_allocate_credentials(&tls_->credentials);
        if (gnutls_certificate_set_x509_key_file(tls_->credentials, options_.certFile.c_str(),
                                                 options_.keyFile.c_str(), GNUTLS_X509_FMT_PEM) < 0)
            throw std::runtime_error("test certificate unreadable");
    }
    thread_ = std::thread([this] { threadMain(); });
}

LoopbackCentre::~LoopbackCentre() {
    {
        std::lock_guard lock(mutex_);
        stop_ = true;
    }
    const char c = 1;
    [[maybe_unused]] auto n = ::write(wake_[1], &c, 1);
    thread_.join();
    closeClient(false);
    for (int fd : {listen_, wake_[0], wake_[1]})
        if (fd >= 0) close(fd);
}

int LoopbackCentre::connections() const {
    std::lock_guard lock(mutex_);
    return connections_;
}

int LoopbackCentre::accepted() const {
    std::lock_guard lock(mutex_);
    int n = 0;
    for (const auto& c : centres_) n += c->acceptedCount();
    return n;
}

void LoopbackCentre::threadMain() {
    std::unique_lock lock(mutex_);
    char buffer[4096];
    while (!stop_) {
        const auto now = Clock::now();
        if (!timers_.empty() && timers_.begin()->first <= now) {
            auto node = timers_.extract(timers_.begin());
            node.mapped()();
            continue;
        }
        int timeout = -1;
        if (!timers_.empty())
            timeout = static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(
                                           timers_.begin()->first - now)
                                           .count()) +
                      1;
        pollfd fds[3] = {{wake_[0], POLLIN, 0}, {listen_, POLLIN, 0}, {client_, POLLIN, 0}};
        lock.unlock();
        poll(fds, 3, timeout);
        lock.lock();
        if (fds[1].revents & POLLIN) {
            const int fd = accept4(listen_, nullptr, nullptr, SOCK_CLOEXEC);
            if (fd >= 0) serve(fd);
        }
        if (client_ < 0 || !(fds[2].revents & (POLLIN | POLLHUP | POLLERR))) continue;
        // Whatever TLS holds decrypted comes out in the same turn.
        do {
            const ssize_t n = tls_ && tls_->session
                                  ? gnutls_record_recv(tls_->session, buffer, sizeof buffer)
                                  : ::recv(client_, buffer, sizeof buffer, 0);
            if (n <= 0) {
                closeClient(false);
                break;
            }
            heard_ += static_cast<std::size_t>(n);
            if (options_.resetAfterBytes && heard_ >= options_.resetAfterBytes) {
                closeClient(true);
                break;
            }
            if (centre_) centre_->received(std::string_view(buffer, static_cast<std::size_t>(n)));
        } while (client_ >= 0 && tls_ && gnutls_record_check_pending(tls_->session) > 0);
    }
}

void LoopbackCentre::serve(int fd) {
    closeClient(false);  // one call at a time, as on a telephone line
    ++connections_;
    if (tls_) {
        gnutls_init(&tls_->session, GNUTLS_SERVER | GNUTLS_NO_SIGNAL);
        gnutls_set_default_priority(tls_->session);
        gnutls_credentials_set(tls_->session, GNUTLS_CRD_CERTIFICATE, tls_->credentials);
        gnutls_transport_set_int(tls_->session, fd);
        gnutls_handshake_set_timeout(tls_->session, 5000);
        int r;
        do {
            r = gnutls_handshake(tls_->session);
        } while (r < 0 && !gnutls_error_is_fatal(r));
        if (r < 0) {  // the caller refused our certificate
            gnutls_deinit(tls_->session);
            tls_->session = nullptr;
            close(fd);
            return;
        }
    }
    client_ = fd;
    heard_ = 0;
    ++generation_;
    auto choice = CentreForNumber(options_.number, connections_ - 1);
    centre_ = nullptr;
    if (!choice.centre) return;  // silence
    centres_.push_back(std::move(choice.centre));
    centre_ = centres_.back().get();
    centre_->connected(*this);
}

void LoopbackCentre::closeClient(bool reset) {
    if (client_ < 0) return;
    if (reset) {
        const linger hard{1, 0};  // RST instead of FIN
        setsockopt(client_, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    } else if (tls_ && tls_->session) {
        gnutls_bye(tls_->session, GNUTLS_SHUT_WR);
    }
    if (tls_ && tls_->session) {
        gnutls_deinit(tls_->session);
        tls_->session = nullptr;
    }
    close(client_);
    client_ = -1;
    centre_ = nullptr;
    ++generation_;
}

void LoopbackCentre::sendToProgram(std::string bytes) {
    if (client_ < 0) return;
    if (tls_ && tls_->session)
        gnutls_record_send(tls_->session, bytes.data(), bytes.size());
    else [[maybe_unused]]
        auto n = ::send(client_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void LoopbackCentre::after(Milliseconds delay, std::function<void()> fn) {
    timers_.emplace(Clock::now() + delay, [this, generation = generation_, fn = std::move(fn)] {
        if (generation == generation_ && client_ >= 0) fn();
    });
}

void LoopbackCentre::hangUp() {
    closeClient(false);
}

TestCertificate::TestCertificate(const std::string& subjectAltNames) {
    char pattern[] = "/tmp/parlane-cert-XXXXXX";
    folder = mkdtemp(pattern);
    certFile = folder + "/cert.pem";
    keyFile = folder + "/key.pem";
    const std::string command =
        "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 1 "
        "-subj /CN=parlane-test -addext subjectAltName=" +
        subjectAltNames + " -keyout " + keyFile + " -out " + certFile + " 2>/dev/null";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("openssl req failed");
}

TestCertificate::~TestCertificate() {
    std::error_code ec;
    std::filesystem::remove_all(folder, ec);
}

}  // namespace parlane::testing
