#pragma once
// The system's regional date and time formats.

#include <optional>
#include <string>

#include "core/event_loop.h"

namespace parlane {

class RegionalFormats {
  public:
    virtual ~RegionalFormats() = default;
    virtual std::string longDate(WallClockMs when) const = 0;
    virtual std::string longTime(WallClockMs when) const = 0;
    virtual std::string shortDate(WallClockMs when) const = 0;
    virtual std::string shortTime(WallClockMs when) const = 0;
    // Reads a text in the long date format back; nullopt when it is not one.
    virtual std::optional<WallClockMs> parseLongDate(const std::string& text) const = 0;
};

// Fixed formats, independent of the machine: "Friday, 2 January 2026", "10:00:00", "02/01/2026",
// "10:00".
class FixedRegionalFormats : public RegionalFormats {
  public:
    std::string longDate(WallClockMs when) const override;
    std::string longTime(WallClockMs when) const override;
    std::string shortDate(WallClockMs when) const override;
    std::string shortTime(WallClockMs when) const override;
    std::optional<WallClockMs> parseLongDate(const std::string& text) const override;
};

// Calendar fields of a local wall-clock time.
struct CivilTime {
    int year, month, day, hour, minute, second, weekday;  // weekday 0 = Sunday
};
CivilTime ToCivil(WallClockMs when);
WallClockMs FromCivil(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

}  // namespace parlane
