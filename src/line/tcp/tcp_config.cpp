#include "line/tcp/tcp_config.h"

namespace parlane {
namespace {

constexpr std::uint8_t kVersion = 1;
enum Tag : std::uint8_t { Host = 1, Port = 2, Timeout = 3, Tls = 4, Verify = 5 };

void PutField(std::vector<std::uint8_t>& out, Tag tag, const std::vector<std::uint8_t>& value) {
    out.push_back(tag);
    out.push_back(static_cast<std::uint8_t>(value.size()));
    out.push_back(static_cast<std::uint8_t>(value.size() >> 8));
    out.insert(out.end(), value.begin(), value.end());
}

std::vector<std::uint8_t> Word(std::uint16_t v) {
    return {static_cast<std::uint8_t>(v), static_cast<std::uint8_t>(v >> 8)};
}

}  // namespace

std::string TcpConfig::Address() const {
    const bool v6 = host.find(':') != std::string::npos;
    return (v6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::vector<std::uint8_t> EncodeTcpConfig(const TcpConfig& c) {
    std::vector<std::uint8_t> out = {'P', 'L', 'T', 'C', kVersion};
    const std::string host = c.host.substr(0, 255);
    PutField(out, Host, std::vector<std::uint8_t>(host.begin(), host.end()));
    PutField(out, Port, Word(c.port));
    PutField(out, Timeout, Word(c.connectTimeoutSecs));
    PutField(out, Tls, {static_cast<std::uint8_t>(c.tls ? 1 : 0)});
    PutField(out, Verify, {static_cast<std::uint8_t>(c.verifyCertificate ? 1 : 0)});
    return out;
}

std::optional<TcpConfig> DecodeTcpConfig(const std::vector<std::uint8_t>& in) {
    if (in.size() < 5 || in[0] != 'P' || in[1] != 'L' || in[2] != 'T' || in[3] != 'C' || in[4] < 1)
        return std::nullopt;
    TcpConfig c;
    std::size_t at = 5;
    while (at < in.size()) {
        if (in.size() - at < 3) return std::nullopt;
        const std::uint8_t tag = in[at];
        const std::size_t length = in[at + 1] | (in[at + 2] << 8);
        at += 3;
        if (in.size() - at < length) return std::nullopt;
        const auto word = [&] { return static_cast<std::uint16_t>(in[at] | (in[at + 1] << 8)); };
        switch (tag) {
            case Host:
                c.host.assign(in.begin() + static_cast<std::ptrdiff_t>(at),
                              in.begin() + static_cast<std::ptrdiff_t>(at + length));
                // A host name is one word of plain characters.
                for (char ch : c.host)
                    if (static_cast<unsigned char>(ch) <= ' ' || ch == 0x7F) return std::nullopt;
                break;
            case Port:
            case Timeout:
                if (length != 2) return std::nullopt;
                (tag == Port ? c.port : c.connectTimeoutSecs) = word();
                break;
            case Tls:
            case Verify:
                if (length != 1) return std::nullopt;
                (tag == Tls ? c.tls : c.verifyCertificate) = in[at] != 0;
                break;
            default:
                break;  // a later version's field
        }
        at += length;
    }
    return c;
}

}  // namespace parlane
