#pragma once
// The device configuration block of an AT modem, as a centre keeps it in DevConfig: a small,
// versioned, self-describing record of the serial settings and the init string. Bytes that are
// not such a block (another device's, damaged, empty) decode to nothing and change nothing.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace parlane {

struct ModemConfig {
    std::uint32_t baud = 115200;
    std::uint8_t dataBits = 8;  // 5 to 8
    char parity = 'N';          // N, E or O
    std::uint8_t stopBits = 1;  // 1 or 2
    bool hardwareFlowControl = false;
    std::string initString;  // sent after ATZ before each dial; empty: the modem's defaults

    bool operator==(const ModemConfig&) const = default;
};

// "PLMC", version 1, then tagged fields: tag, 2-byte length, value. Unknown tags are skipped,
// so a later version's block still reads.
std::vector<std::uint8_t> EncodeModemConfig(const ModemConfig& config);
std::optional<ModemConfig> DecodeModemConfig(const std::vector<std::uint8_t>& bytes);

// The block inside the telephony service's VARSTRING layout (total, needed and used sizes at
// 0, 4 and 8, the string's size and offset at 16 and 20), and back out of it.
std::vector<std::uint8_t> WrapVarString(const std::vector<std::uint8_t>& block);
std::optional<std::vector<std::uint8_t>> UnwrapVarString(const std::vector<std::uint8_t>& bytes);
// The little-endian 32-bit value at `offset`; 0 when the bytes end before it.
std::uint32_t ByteDword(const std::vector<std::uint8_t>& bytes, std::size_t offset);
// Fills a VARSTRING the caller has sized: dwTotalSize in its first four bytes, never more than
// the vector holds. The sizes always; the block (at offset 24) only when it fits, else
// dwStringSize 0. 0, or LINEERR_STRUCTURETOOSMALL when not even the fixed part fits.
std::int32_t WriteVarString(std::vector<std::uint8_t>& varString,
                            const std::vector<std::uint8_t>& block);

}  // namespace parlane
