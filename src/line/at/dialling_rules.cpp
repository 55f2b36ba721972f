#include "line/at/dialling_rules.h"

#include <array>
#include <cctype>

namespace parlane {
namespace {

// Keeps what a Hayes dial string understands; blanks, brackets, dashes and the rest go.
std::string DialCharacters(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (std::isdigit(static_cast<unsigned char>(c)) || c == ',' || c == '*' || c == '#')
            out += c;
        else if (c == 'W' || c == 'w')
            out += 'W';
    }
    return out;
}

// Area codes are written with or without the trunk "0"; compare and dial them without it.
std::string AreaWithoutTrunkZero(const std::string& area) {
    std::string digits = DialCharacters(area);
    if (!digits.empty() && digits.front() == '0') digits.erase(0, 1);
    return digits;
}

struct Canonical {
    std::string country;
    std::string area;
    std::string number;
};

// "+CC (AREA) NUMBER"; the area may be "()" or missing altogether.
Canonical ParseCanonical(const std::string& text, std::size_t plus) {
    Canonical parsed;
    std::size_t i = plus + 1;
    while (i < text.size() && text[i] == ' ') ++i;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])))
        parsed.country += text[i++];
    std::size_t open = text.find('(', i);
    std::size_t close = open == std::string::npos ? open : text.find(')', open);
    // An unclosed bracket gives no area: the rest is all number rather than all area.
    if (close != std::string::npos && text.find_first_not_of(' ', i) == open) {
        parsed.area = AreaWithoutTrunkZero(text.substr(open + 1, close - open - 1));
        i = close + 1;
    }
    parsed.number = DialCharacters(text.substr(i));
    return parsed;
}

bool ParseTone(const std::string& text, bool fallback) {
    if (text == "1") return true;
    if (text == "0") return false;
    return fallback;
}

struct CountryRow {
    const char* iso;
    const char* code;
    const char* national;
    const char* international;
};

constexpr std::array<CountryRow, 12> kCountries{{
    {"GB", "44", "0", "00"},
    {"IE", "353", "0", "00"},
    {"US", "1", "1", "011"},
    {"CA", "1", "1", "011"},
    {"IT", "39", "0", "00"},
    {"DE", "49", "0", "00"},
    {"FR", "33", "0", "00"},
    {"NL", "31", "0", "00"},
    {"BE", "32", "0", "00"},
    {"ES", "34", "0", "00"},
    {"CH", "41", "0", "00"},
    // Australia dials abroad with 0011, not 00.
    {"AU", "61", "0", "0011"},
}};

}  // namespace

std::string TranslateCanonicalAddress(const std::string& canonical, const DiallingLocation& here) {
    const std::string outside = DialCharacters(here.outsideLine);
    std::size_t plus = canonical.find_first_not_of(' ');
    if (plus == std::string::npos || canonical[plus] != '+')
        return outside + DialCharacters(canonical);

    Canonical to = ParseCanonical(canonical, plus);
    if (to.country != DialCharacters(here.countryCode))
        return outside + DialCharacters(here.internationalPrefix) + to.country + to.area +
               to.number;
    if (to.area != AreaWithoutTrunkZero(here.areaCode))
        return outside + DialCharacters(here.nationalPrefix) + to.area + to.number;
    return outside + to.number;
}

DiallingLocation LoadDiallingLocation(const Settings& settings, const DiallingLocation& defaults) {
    DiallingLocation location;
    location.countryCode = settings.Get(key::CountryCode, defaults.countryCode);
    location.areaCode = settings.Get(key::AreaCode, defaults.areaCode);
    location.outsideLine = settings.Get(key::OutsideLine, defaults.outsideLine);
    location.nationalPrefix = settings.Get(key::NationalPrefix, defaults.nationalPrefix);
    location.internationalPrefix =
        settings.Get(key::InternationalPrefix, defaults.internationalPrefix);
    location.tone = ParseTone(settings.Get(key::Tone, ""), defaults.tone);
    return location;
}

void SaveDiallingLocation(Settings& settings, const DiallingLocation& location) {
    settings.Save(key::CountryCode, location.countryCode);
    settings.Save(key::AreaCode, location.areaCode);
    settings.Save(key::OutsideLine, location.outsideLine);
    settings.Save(key::NationalPrefix, location.nationalPrefix);
    settings.Save(key::InternationalPrefix, location.internationalPrefix);
    settings.Save(key::Tone, location.tone ? "1" : "0");
}

DiallingLocation DefaultDiallingLocation(const std::string& localeCountry) {
    std::string iso;
    for (char c : localeCountry)
        iso += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    DiallingLocation location;
    for (const CountryRow& row : kCountries) {
        if (iso != row.iso) continue;
        location.countryCode = row.code;
        location.nationalPrefix = row.national;
        location.internationalPrefix = row.international;
    }
    return location;
}

}  // namespace parlane
