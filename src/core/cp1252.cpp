#include "core/cp1252.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace parlane {
namespace {

// 0x80..0x9F; the five bytes the code page leaves undefined map to the C1 controls, as Windows
// does, so that they still survive a round trip.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

int ByteForCodePoint(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == cp) return static_cast<int>(0x80 + i);
    return -1;
}

}  // namespace

char32_t Cp1252CodePoint(unsigned char byte) {
    if (byte >= 0x80 && byte < 0xA0) return kHighControls[byte - 0x80];
    return byte;
}

std::string Cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 4);
    for (unsigned char b : bytes) AppendUtf8(out, Cp1252CodePoint(b));
    return out;
}

namespace {

// Calls `each` with every code point of `utf8` and its bytes; an invalid sequence (a stray or
// missing continuation byte, an overlong form, a surrogate, past U+10FFFF) gives one
// kInvalid for its first byte. Answers whether all of it was valid.
constexpr char32_t kInvalid = 0xFFFFFFFF;
template <typename Each>
bool ForEachCodePoint(std::string_view utf8, Each each) {
    bool allValid = true;
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const int extra = lead < 0x80           ? 0
                          : (lead >> 5) == 0x6  ? 1
                          : (lead >> 4) == 0xE  ? 2
                          : (lead >> 3) == 0x1E ? 3
                                                : -1;
        char32_t cp = extra <= 0 ? lead : lead & (0x3F >> extra);
        bool valid = extra >= 0 && i + static_cast<std::size_t>(extra) < utf8.size();
        for (int k = 1; valid && k <= extra; ++k) {
            const auto c = static_cast<unsigned char>(utf8[i + static_cast<std::size_t>(k)]);
            valid = (c & 0xC0) == 0x80;
            cp = (cp << 6) | (c & 0x3F);
        }
        constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
        valid = valid && cp >= kLeast[extra] && cp <= 0x10FFFF && (cp < 0xD800 || cp > 0xDFFF);
        if (!valid) {
            allValid = false;
            each(kInvalid, utf8.substr(i, 1));
            ++i;
            continue;
        }
        each(cp, utf8.substr(i, static_cast<std::size_t>(extra) + 1));
        i += static_cast<std::size_t>(extra) + 1;
    }
    return allValid;
}

}  // namespace

std::string Utf8ToCp1252(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    ForEachCodePoint(utf8, [&](char32_t cp, std::string_view) {
        const int b = cp == kInvalid ? -1 : ByteForCodePoint(cp);
        out += b < 0 ? '?' : static_cast<char>(b);
    });
    return out;
}

FileText DecodeFileText(std::string_view bytes) {
    FileText result;
    const bool bom = bytes.substr(0, 3) == "\xEF\xBB\xBF";
    if (bom) bytes.remove_prefix(3);
    bool high = false;
    for (unsigned char b : bytes) high = high || b >= 0x80;
    const bool valid = ForEachCodePoint(bytes, [](char32_t, std::string_view) {});
    result.utf8 = bom || (high && valid);
    if (!result.utf8) {
        result.text = std::string(bytes);
        return result;
    }
    result.text.reserve(bytes.size());
    ForEachCodePoint(bytes, [&](char32_t cp, std::string_view) {
        const int b = cp == kInvalid ? -1 : ByteForCodePoint(cp);
        if (b >= 0) {
            result.text += static_cast<char>(b);
            return;
        }
        result.text += '?';
        if (cp != kInvalid &&
            std::find(result.lost.begin(), result.lost.end(), cp) == result.lost.end())
            result.lost.push_back(cp);
    });
    return result;
}

std::string CodePointNames(const std::vector<char32_t>& codePoints, std::size_t most) {
    std::string names;
    for (std::size_t i = 0; i < codePoints.size() && i < most; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(codePoints[i]));
        names += (i == 0 ? "" : ", ") + std::string(name);
    }
    if (codePoints.size() > most) names += ", ...";
    return names;
}

}  // namespace parlane

namespace parlane {

char Cp1252Lower(char c) {
    const auto b = static_cast<unsigned char>(c);
    if ((b >= 'A' && b <= 'Z') || (b >= 0xC0 && b <= 0xDE && b != 0xD7))
        return static_cast<char>(b + 0x20);
    switch (b) {
        case 0x8A:
            return static_cast<char>(0x9A);
        case 0x8C:
            return static_cast<char>(0x9C);
        case 0x8E:
            return static_cast<char>(0x9E);
        case 0x9F:
            return static_cast<char>(0xFF);
        default:
            return c;
    }
}

std::string Cp1252LowerCase(std::string_view text) {
    std::string out(text);
    for (auto& c : out) c = Cp1252Lower(c);
    return out;
}

}  // namespace parlane
