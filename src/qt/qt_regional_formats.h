#pragma once
// The system locale's long and short date and time formats.

#include "core/regional_formats.h"

namespace parlane {

class QtRegionalFormats : public RegionalFormats {
  public:
    std::string longDate(WallClockMs when) const override;
    std::string longTime(WallClockMs when) const override;
    std::string shortDate(WallClockMs when) const override;
    std::string shortTime(WallClockMs when) const override;
    std::optional<WallClockMs> parseLongDate(const std::string& text) const override;
};

}  // namespace parlane
