#pragma once
// A message centre on a loopback TCP port, for tests of the internet line. One thread accepts
// connections one at a time and plays the simulated centre that the simulated modem's number
// plan gives for `number` (silence included) over each, in plain TCP or, given a certificate
// and key, TLS. It can also reset the connection once it has heard a number of bytes. It binds
// only to the loopback address given and ends when destroyed.

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "line/sim/simulated_centre.h"

namespace parlane::testing {

class LoopbackCentre : private CentreLink {
  public:
    struct Options {
        std::string address = "127.0.0.1";  // or "::1"
        std::string number = "100101";
        std::string certFile, keyFile;    // TLS when both are set
        std::size_t resetAfterBytes = 0;  // 0: never
    };
    explicit LoopbackCentre(Options options);
    // False on a machine whose loopback lacks this address family (IPv6 turned off).
    static bool Available(const std::string& address);
    ~LoopbackCentre() override;
    LoopbackCentre(const LoopbackCentre&) = delete;
    LoopbackCentre& operator=(const LoopbackCentre&) = delete;

    std::uint16_t port() const { return port_; }
    int connections() const;
    int accepted() const;  // messages accepted by the centres, all connections

  private:
    using Clock = std::chrono::steady_clock;
    void threadMain();
    void serve(int fd);
    void closeClient(bool reset);
    void sendToProgram(std::string bytes) override;
    void after(Milliseconds delay, std::function<void()> fn) override;
    void hangUp() override;

    Options options_;
    struct Tls;
    std::unique_ptr<Tls> tls_;
    int listen_ = -1;
    int wake_[2] = {-1, -1};
    std::uint16_t port_ = 0;
    std::thread thread_;
    mutable std::mutex mutex_;
    bool stop_ = false;
    int client_ = -1;
    std::size_t heard_ = 0;
    std::uint64_t generation_ = 0;
    int connections_ = 0;
    std::multimap<Clock::time_point, std::function<void()>> timers_;
    std::vector<std::unique_ptr<SimulatedCentre>> centres_;
    SimulatedCentre* centre_ = nullptr;
};

// A self-signed certificate and its key, made with the openssl command, for the names given
// ("IP:127.0.0.1,IP:::1" or "DNS:other.example"). The certificate is its own authority.
struct TestCertificate {
    explicit TestCertificate(const std::string& subjectAltNames);
    ~TestCertificate();
    std::string folder, certFile, keyFile;
};

}  // namespace parlane::testing
