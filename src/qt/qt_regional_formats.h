#pragma once
// The system locale's long and short date and time formats.

#include <QLocale>
#include <utility>

#include "core/regional_formats.h"

namespace parlane {

class QtRegionalFormats : public RegionalFormats {
  public:
    explicit QtRegionalFormats(QLocale locale = QLocale::system()) : locale_(std::move(locale)) {}
    std::string longDate(WallClockMs when) const override;
    std::string longTime(WallClockMs when) const override;
    std::string shortDate(WallClockMs when) const override;
    std::string shortTime(WallClockMs when) const override;
    std::optional<WallClockMs> parseLongDate(const std::string& text) const override;

  private:
    QLocale locale_;
};

}  // namespace parlane
