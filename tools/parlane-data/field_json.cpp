#include "parlane-data/field_json.h"

#include <cmath>
#include <limits>

#include "core/cp1252.h"
#include "store/record_file.h"

namespace parlane::data {
namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

Json FieldToJson(const std::string& text) {
    return Cp1252ToUtf8(text);
}

Json FieldToJson(std::int32_t number) {
    return number;
}

Json FieldToJson(const Bytes& bytes) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const auto b : bytes) {
        hex += kDigits[b >> 4];
        hex += kDigits[b & 0x0F];
    }
    return hex;
}

std::string FieldFromJson(const Json& value, std::string& out) {
    if (!value.is_string()) return "must be a string";
    const auto& utf8 = value.get_ref<const std::string&>();
    std::string text = Utf8ToCp1252(utf8);
    // The conversion turns what the code page lacks into '?'; refuse rather than lose it.
    if (Cp1252ToUtf8(text) != utf8) return "holds a character Windows-1252 cannot store";
    if (text.size() > kMaxRecordString)
        return "is " + std::to_string(text.size()) + " bytes long; at most " +
               std::to_string(kMaxRecordString) + " fit";
    out = std::move(text);
    return {};
}

std::string FieldFromJson(const Json& value, std::int32_t& out) {
    constexpr auto kMin = std::numeric_limits<std::int32_t>::min();
    constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
    const char* const kRange = "must be a whole number from -2147483648 to 2147483647";
    if (value.is_number_unsigned()) {
        const auto n = value.get<std::uint64_t>();
        if (n > static_cast<std::uint64_t>(kMax)) return kRange;
        out = static_cast<std::int32_t>(n);
        return {};
    }
    if (value.is_number_integer()) {
        const auto n = value.get<std::int64_t>();
        if (n < kMin || n > kMax) return kRange;
        out = static_cast<std::int32_t>(n);
        return {};
    }
    // 1e3 is a whole number too; NaN and 2.5 fail every comparison or the truncation test.
    if (value.is_number_float()) {
        const double d = value.get<double>();
        if (!(d >= kMin && d <= kMax) || std::trunc(d) != d) return kRange;
        out = static_cast<std::int32_t>(d);
        return {};
    }
    return kRange;
}

std::string FieldFromJson(const Json& value, Bytes& out) {
    if (!value.is_string()) return "must be a string of hexadecimal digits";
    const auto& hex = value.get_ref<const std::string&>();
    if (hex.size() % 2 != 0) return "must have an even number of hexadecimal digits";
    Bytes bytes;
    bytes.reserve(hex.size() / 2);
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        const int high = HexDigit(hex[i]), low = HexDigit(hex[i + 1]);
        if (high < 0 || low < 0) return "must be a string of hexadecimal digits";
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    out = std::move(bytes);
    return {};
}

}  // namespace parlane::data
