#pragma once
// The device block of a centre reached over the internet, as the centre keeps it in DevConfig:
// where the centre listens and how to reach it. Versioned and tagged like the modem's block, so
// smsc.dat keeps its form; bytes that are not such a block decode to nothing.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace parlane {

struct TcpConfig {
    std::string host;  // a name for the system's resolver, or an IPv4 or IPv6 address
    std::uint16_t port = 0;
    std::uint16_t connectTimeoutSecs = 30;
    bool tls = false;
    bool verifyCertificate = true;  // only read with TLS on

    bool operator==(const TcpConfig&) const = default;
    // "host:port", an IPv6 address in brackets: the line's "number" in the log.
    std::string Address() const;
};

// "PLTC", version 1, then tagged fields (tag, 2-byte length, value); unknown tags are skipped.
std::vector<std::uint8_t> EncodeTcpConfig(const TcpConfig& config);
std::optional<TcpConfig> DecodeTcpConfig(const std::vector<std::uint8_t>& bytes);

}  // namespace parlane
