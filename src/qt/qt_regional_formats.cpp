#include "qt/qt_regional_formats.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

#include "qt/qt_text.h"

namespace parlane {
namespace {

// Wall-clock milliseconds hold local time already: read them as UTC to keep the fields.
QDateTime Local(WallClockMs when) {
    return QDateTime::fromMSecsSinceEpoch(when, QTimeZone::utc());
}

}  // namespace

std::string QtRegionalFormats::longDate(WallClockMs when) const {
    return FromQt(QLocale::system().toString(Local(when).date(), QLocale::LongFormat));
}

std::string QtRegionalFormats::longTime(WallClockMs when) const {
    // The zone of a long time format would read "UTC" here, so it is left out.
    QString format = QLocale::system().timeFormat(QLocale::LongFormat);
    format.remove('t');
    return FromQt(QLocale::system().toString(Local(when).time(), format.trimmed()));
}

std::string QtRegionalFormats::shortDate(WallClockMs when) const {
    return FromQt(QLocale::system().toString(Local(when).date(), QLocale::ShortFormat));
}

std::string QtRegionalFormats::shortTime(WallClockMs when) const {
    return FromQt(QLocale::system().toString(Local(when).time(), QLocale::ShortFormat));
}

std::optional<WallClockMs> QtRegionalFormats::parseLongDate(const std::string& text) const {
    const QDate date = QLocale::system().toDate(ToQt(text), QLocale::LongFormat);
    if (!date.isValid()) return std::nullopt;
    return QDateTime(date, QTime(0, 0), QTimeZone::utc()).toMSecsSinceEpoch();
}

}  // namespace parlane
