#include "line/sim/simulated_ucp_centre.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "core/cp1252.h"

namespace parlane {
namespace {

constexpr char kStx = '\x02', kEtx = '\x03';

std::string Checksum(std::string_view text) {
    unsigned sum = 0;
    for (char c : text) sum += static_cast<unsigned char>(c);
    char hex[3];
    std::snprintf(hex, sizeof hex, "%02X", sum & 0xFFu);
    return hex;
}

std::vector<std::string> SplitFields(const std::string& text) {
    std::vector<std::string> out(1);
    for (char c : text) {
        if (c == '/')
            out.emplace_back();
        else
            out.back() += c;
    }
    return out;
}

bool IsDigits(const std::string& s) {
    return !s.empty() && s.find_first_not_of("0123456789") == std::string::npos;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

// The GSM default alphabet where it differs from ASCII; Greek capitals have no cp1252 form.
char GsmToCp1252(unsigned code) {
    static const unsigned char low[32] = {0x40, 0xA3, 0x24, 0xA5, 0xE8, 0xE9, 0xF9, 0xEC,
                                          0xF2, 0xC7, 0x0A, 0xD8, 0xF8, 0x0D, 0xC5, 0xE5,
                                          '?',  0x5F, '?',  '?',  '?',  '?',  '?',  '?',
                                          '?',  '?',  '?',  '?',  0xC6, 0xE6, 0xDF, 0xC9};
    if (code < 0x20) return static_cast<char>(low[code]);
    switch (code) {
        case 0x24:
            return '\xA4';
        case 0x40:
            return '\xA1';
        case 0x5B:
            return '\xC4';
        case 0x5C:
            return '\xD6';
        case 0x5D:
            return '\xD1';
        case 0x5E:
            return '\xDC';
        case 0x5F:
            return '\xA7';
        case 0x60:
            return '\xBF';
        case 0x7B:
            return '\xE4';
        case 0x7C:
            return '\xF6';
        case 0x7D:
            return '\xF1';
        case 0x7E:
            return '\xFC';
        case 0x7F:
            return '\xE0';
        default:
            return code < 0x80 ? static_cast<char>(code) : '?';
    }
}

}  // namespace

std::string SimulatedUcpCentre::GsmHexToText(const std::string& hex, bool* ok) {
    std::string text;
    *ok = hex.size() % 2 == 0;
    for (std::size_t i = 0; *ok && i < hex.size(); i += 2) {
        const int high = HexDigit(hex[i]), low = HexDigit(hex[i + 1]);
        *ok = high >= 0 && low >= 0;
        if (*ok) text += GsmToCp1252(static_cast<unsigned>(high * 16 + low));
    }
    return text;
}

void SimulatedUcpCentre::received(std::string_view bytes) {
    if (closing()) return;
    buffer_ += bytes;
    for (;;) {
        const auto etx = buffer_.find(kEtx);
        if (etx == std::string::npos) break;
        // The frame is what follows the last STX before the ETX; anything else is line junk.
        const auto stx = buffer_.rfind(kStx, etx);
        if (stx != std::string::npos) frame(buffer_.substr(stx + 1, etx - stx - 1));
        buffer_.erase(0, etx + 1);
    }
    // Never let junk without an STX grow without bound.
    const auto stx = buffer_.rfind(kStx);
    buffer_.erase(0, stx == std::string::npos ? buffer_.size() : stx);
}

void SimulatedUcpCentre::frame(const std::string& inner) {
    const auto f = SplitFields(inner);
    const std::string trn = f[0].size() == 2 && IsDigits(f[0]) ? f[0] : "00";
    const std::string ot = f.size() > 3 && f[3].size() == 2 && IsDigits(f[3]) ? f[3] : "01";
    if (f.size() < 6 || inner[inner.size() - 3] != '/')
        return badFrame(trn, ot, "02", "SYNTAX ERROR");
    const std::string sum = Cp1252LowerCase(inner.substr(inner.size() - 2));
    if (sum != Cp1252LowerCase(Checksum(std::string_view(inner).substr(0, inner.size() - 2))))
        return badFrame(trn, ot, "01", "CHECKSUM ERROR");
    if (f[1].size() != 5 || !IsDigits(f[1]) || std::stoul(f[1]) != inner.size() || f[2] != "O")
        return badFrame(trn, ot, "02", "SYNTAX ERROR");

    // Body fields from AdC on; the frame ends with the checksum field.
    const std::vector<std::string> body(f.begin() + 4, f.end() - 1);
    // Where the message type and the message sit; operation 30 has no type field.
    std::size_t typeAt = 0, msgAt = 0;
    if (ot == "01") {
        typeAt = 3, msgAt = 4;
    } else if (ot == "30") {
        msgAt = 9;
    } else if (ot == "51") {
        typeAt = 18, msgAt = 20;
    } else {
        return badFrame(trn, ot, "03", "OPERATION NOT SUPPORTED");
    }
    if (body.size() <= msgAt) return badFrame(trn, ot, "02", "SYNTAX ERROR");
    if (!IsDigits(body[0])) return refuse(trn, ot, "06", "ADC INVALID");
    if (!options_.password.empty() && body[2] != options_.password)
        return refuse(trn, ot, "07", "AUTHENTICATION FAILURE");

    // Numeric messages (type 2) carry their digits as they are; the others are hex.
    std::string text = body[msgAt];
    bool ok = true;
    if (typeAt == 0 || body[typeAt] != "2") text = GsmHexToText(body[msgAt], &ok);
    if (!ok) return badFrame(trn, ot, "02", "SYNTAX ERROR");
    if (options_.refuse.refuses(++messages_)) return refuse(trn, ot, "04", "OPERATION NOT ALLOWED");
    record(body[0], text);
    answer(trn, ot, "A//");
}

void SimulatedUcpCentre::badFrame(const std::string& trn, const std::string& ot, const char* code,
                                  const char* why) {
    if (options_.answerBadFrames) refuse(trn, ot, code, why);
}

void SimulatedUcpCentre::refuse(const std::string& trn, const std::string& ot, const char* code,
                                const char* why) {
    answer(trn, ot, std::string("N/") + code + "/" + why + "/");
}

void SimulatedUcpCentre::answer(const std::string& trn, const std::string& ot,
                                const std::string& result) {
    std::string text = trn + "/00000/R/" + ot + "/" + result;
    const std::string length = std::to_string(text.size() + 2);
    text.replace(3 + 5 - length.size(), length.size(), length);
    if (options_.lowerCase) text = Cp1252LowerCase(text);
    std::string sum = Checksum(text);
    if (options_.lowerCase) sum = Cp1252LowerCase(sum);
    const std::string whole = kStx + text + sum + kEtx;

    const std::size_t pieces = static_cast<std::size_t>(std::max(1, options_.answerPieces));
    const std::size_t size = (whole.size() + pieces - 1) / pieces;
    say(whole.substr(0, size));
    for (std::size_t at = size; at < whole.size(); at += size)
        sayAfter(Milliseconds(150), whole.substr(at, size));
}

}  // namespace parlane
