// Dates and times as the archive stores them, in locales whose words the code page holds and
// in one whose words it does not.
#include <gtest/gtest.h>

#include "qt/qt_regional_formats.h"

namespace parlane {
namespace {

TEST(RegionalFormats, TextsTheCodePageCannotHoldAreStoredInIsoForm) {
    const WallClockMs when = FromCivil(2026, 11, 25, 14, 5, 9);
    const struct {
        const char* locale;
        std::string longDate, shortTime;
    } cases[] = {
        {"de_DE", "Mittwoch, 25. November 2026", "14:05"},
        {"fr_FR", "mercredi 25 novembre 2026", "14:05"},
        {"ru_RU", "2026-11-25", "14:05"},
        {"ar_EG", "2026-11-25", "14:05"},  // Arabic-Indic digits
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.locale);
        const QtRegionalFormats formats{QLocale(QString::fromLatin1(c.locale))};
        const std::string date = formats.longDate(when);
        EXPECT_EQ(date, c.longDate);
        EXPECT_EQ(formats.shortTime(when), c.shortTime);
        EXPECT_EQ(formats.longTime(when).find('?'), std::string::npos);
        // What was stored reads back as the same day.
        EXPECT_EQ(formats.parseLongDate(date), FromCivil(2026, 11, 25));
    }
}

}  // namespace
}  // namespace parlane
