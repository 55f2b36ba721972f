#include "line/modem_config.h"

#include <algorithm>

#include "line/telephony.h"

namespace parlane {
namespace {

constexpr std::uint8_t kVersion = 1;
constexpr std::uint32_t kVarStringFixed = 24;
constexpr std::uint32_t kStringFormatBinary = 3;
enum Tag : std::uint8_t { Baud = 1, DataBits = 2, Parity = 3, StopBits = 4, Flow = 5, Init = 6 };

void PutLe(std::vector<std::uint8_t>& out, std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::uint32_t GetLe(const std::vector<std::uint8_t>& in, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int i = width - 1; i >= 0; --i)
        value = (value << 8) | in[at + static_cast<std::size_t>(i)];
    return value;
}

void SetLe(std::vector<std::uint8_t>& out, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) out[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

void PutField(std::vector<std::uint8_t>& out, Tag tag, const std::vector<std::uint8_t>& value) {
    out.push_back(tag);
    PutLe(out, static_cast<std::uint32_t>(value.size()), 2);
    out.insert(out.end(), value.begin(), value.end());
}

}  // namespace

std::vector<std::uint8_t> EncodeModemConfig(const ModemConfig& c) {
    std::vector<std::uint8_t> out = {'P', 'L', 'M', 'C', kVersion};
    std::vector<std::uint8_t> baud;
    PutLe(baud, c.baud, 4);
    PutField(out, Baud, baud);
    PutField(out, DataBits, {c.dataBits});
    PutField(out, Parity, {static_cast<std::uint8_t>(c.parity)});
    PutField(out, StopBits, {c.stopBits});
    PutField(out, Flow, {static_cast<std::uint8_t>(c.hardwareFlowControl ? 1 : 0)});
    const std::string init = c.initString.substr(0, 0xFFFF);
    PutField(out, Init, std::vector<std::uint8_t>(init.begin(), init.end()));
    return out;
}

std::optional<ModemConfig> DecodeModemConfig(const std::vector<std::uint8_t>& in) {
    if (in.size() < 5 || in[0] != 'P' || in[1] != 'L' || in[2] != 'M' || in[3] != 'C' || in[4] < 1)
        return std::nullopt;
    ModemConfig c;
    std::size_t at = 5;
    while (at < in.size()) {
        if (in.size() - at < 3) return std::nullopt;
        const std::uint8_t tag = in[at];
        const std::size_t length = GetLe(in, at + 1, 2);
        at += 3;
        if (in.size() - at < length) return std::nullopt;
        const auto byte = [&] { return length == 1 ? std::optional(in[at]) : std::nullopt; };
        switch (tag) {
            case Baud:
                if (length != 4) return std::nullopt;
                c.baud = GetLe(in, at, 4);
                break;
            case DataBits:
                if (!byte() || *byte() < 5 || *byte() > 8) return std::nullopt;
                c.dataBits = *byte();
                break;
            case Parity:
                if (!byte() || (*byte() != 'N' && *byte() != 'E' && *byte() != 'O'))
                    return std::nullopt;
                c.parity = static_cast<char>(*byte());
                break;
            case StopBits:
                if (!byte() || (*byte() != 1 && *byte() != 2)) return std::nullopt;
                c.stopBits = *byte();
                break;
            case Flow:
                if (!byte()) return std::nullopt;
                c.hardwareFlowControl = *byte() != 0;
                break;
            case Init:
                c.initString.assign(in.begin() + static_cast<std::ptrdiff_t>(at),
                                    in.begin() + static_cast<std::ptrdiff_t>(at + length));
                // An init string is one AT command line: no line ends inside it.
                for (char ch : c.initString)
                    if (ch == '\r' || ch == '\n') return std::nullopt;
                break;
            default:
                break;  // a later version's field
        }
        at += length;
    }
    return c;
}

std::vector<std::uint8_t> WrapVarString(const std::vector<std::uint8_t>& block) {
    const auto total = static_cast<std::uint32_t>(kVarStringFixed + block.size());
    std::vector<std::uint8_t> out;
    PutLe(out, total, 4);                                     // dwTotalSize
    PutLe(out, total, 4);                                     // dwNeededSize
    PutLe(out, total, 4);                                     // dwUsedSize
    PutLe(out, kStringFormatBinary, 4);                       // dwStringFormat
    PutLe(out, static_cast<std::uint32_t>(block.size()), 4);  // dwStringSize
    PutLe(out, kVarStringFixed, 4);                           // dwStringOffset
    out.insert(out.end(), block.begin(), block.end());
    return out;
}

std::optional<std::vector<std::uint8_t>> UnwrapVarString(const std::vector<std::uint8_t>& in) {
    if (in.size() < 24) return std::nullopt;
    const std::size_t size = GetLe(in, 16, 4), offset = GetLe(in, 20, 4);
    if (offset > in.size() || size > in.size() - offset) return std::nullopt;
    return std::vector<std::uint8_t>(in.begin() + static_cast<std::ptrdiff_t>(offset),
                                     in.begin() + static_cast<std::ptrdiff_t>(offset + size));
}

std::uint32_t ByteDword(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
    return offset <= bytes.size() && bytes.size() - offset >= 4 ? GetLe(bytes, offset, 4) : 0;
}

std::int32_t WriteVarString(std::vector<std::uint8_t>& out,
                            const std::vector<std::uint8_t>& block) {
    if (out.size() < kVarStringFixed) return LINEERR_STRUCTURETOOSMALL;
    const std::uint32_t total =
        std::min<std::uint32_t>(GetLe(out, 0, 4), static_cast<std::uint32_t>(out.size()));
    if (total < kVarStringFixed) return LINEERR_STRUCTURETOOSMALL;
    const auto needed = static_cast<std::uint32_t>(kVarStringFixed + block.size());
    const bool fits = needed <= total;
    SetLe(out, 4, needed);
    SetLe(out, 8, fits ? needed : kVarStringFixed);
    SetLe(out, 12, kStringFormatBinary);
    SetLe(out, 16, fits ? static_cast<std::uint32_t>(block.size()) : 0);
    SetLe(out, 20, fits ? kVarStringFixed : 0);
    if (fits) std::copy(block.begin(), block.end(), out.begin() + kVarStringFixed);
    return 0;
}

}  // namespace parlane
