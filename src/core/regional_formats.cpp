#include "core/regional_formats.h"

#include <array>
#include <cstdio>
#include <sstream>

namespace parlane {
namespace {

constexpr std::array<const char*, 7> kDays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                              "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> kMonths = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

// Days since 1970-01-01 of a proleptic Gregorian date, and back (Howard Hinnant's algorithms).
long long DaysFromCivil(long long y, unsigned m, unsigned d) {
    y -= m <= 2;
    const long long era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<long long>(doe) - 719468;
}

}  // namespace

CivilTime ToCivil(WallClockMs when) {
    long long secs = when / 1000;
    if (when % 1000 < 0) --secs;
    long long days = secs / 86400;
    long long rem = secs % 86400;
    if (rem < 0) {
        rem += 86400;
        --days;
    }
    const long long z = days + 719468;
    const long long era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp < 10 ? mp + 3 : mp - 9;
    const long long y = static_cast<long long>(yoe) + era * 400 + (m <= 2);
    const int weekday = static_cast<int>(((days % 7) + 11) % 7);  // 1970-01-01 was a Thursday
    return CivilTime{static_cast<int>(y),
                     static_cast<int>(m),
                     static_cast<int>(d),
                     static_cast<int>(rem / 3600),
                     static_cast<int>(rem % 3600 / 60),
                     static_cast<int>(rem % 60),
                     weekday};
}

WallClockMs FromCivil(int year, int month, int day, int hour, int minute, int second) {
    const long long days =
        DaysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day));
    return ((days * 86400) + hour * 3600LL + minute * 60LL + second) * 1000;
}

std::string FixedRegionalFormats::longDate(WallClockMs when) const {
    const auto t = ToCivil(when);
    return std::string(kDays[static_cast<std::size_t>(t.weekday)]) + ", " + std::to_string(t.day) +
           " " + kMonths[static_cast<std::size_t>(t.month - 1)] + " " + std::to_string(t.year);
}

std::string FixedRegionalFormats::longTime(WallClockMs when) const {
    const auto t = ToCivil(when);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", t.hour, t.minute, t.second);
    return buf;
}

std::string FixedRegionalFormats::shortDate(WallClockMs when) const {
    const auto t = ToCivil(when);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", t.day, t.month, t.year);
    return buf;
}

std::string FixedRegionalFormats::shortTime(WallClockMs when) const {
    const auto t = ToCivil(when);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d", t.hour, t.minute);
    return buf;
}

std::optional<WallClockMs> FixedRegionalFormats::parseLongDate(const std::string& text) const {
    std::istringstream in(text);
    std::string weekday, monthName;
    int day = 0, year = 0;
    if (!(in >> weekday >> day >> monthName >> year)) return std::nullopt;
    for (std::size_t m = 0; m < kMonths.size(); ++m)
        if (monthName == kMonths[m] && day >= 1 && day <= 31)
            return FromCivil(year, static_cast<int>(m) + 1, day);
    return std::nullopt;
}

}  // namespace parlane
