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

// A locale whose names or digits the code page cannot hold (Russian months, Arabic digits) would
// leave "?" in the archive: the ISO 8601 form is written instead, which every reader knows.
std::string InCodePage(const QString& text, const QString& iso) {
    const std::string bytes = FromQt(text);
    return ToQt(bytes) == text ? bytes : FromQt(iso);
}

}  // namespace

std::string QtRegionalFormats::longDate(WallClockMs when) const {
    const QDate date = Local(when).date();
    return InCodePage(locale_.toString(date, QLocale::LongFormat), date.toString(Qt::ISODate));
}

std::string QtRegionalFormats::longTime(WallClockMs when) const {
    // The zone of a long time format would read "UTC" here, so it is left out.
    QString format = locale_.timeFormat(QLocale::LongFormat);
    format.remove('t');
    const QTime time = Local(when).time();
    return InCodePage(locale_.toString(time, format.trimmed()),
                      time.toString(QStringLiteral("HH:mm:ss")));
}

std::string QtRegionalFormats::shortDate(WallClockMs when) const {
    const QDate date = Local(when).date();
    return InCodePage(locale_.toString(date, QLocale::ShortFormat), date.toString(Qt::ISODate));
}

std::string QtRegionalFormats::shortTime(WallClockMs when) const {
    const QTime time = Local(when).time();
    return InCodePage(locale_.toString(time, QLocale::ShortFormat),
                      time.toString(QStringLiteral("HH:mm")));
}

std::optional<WallClockMs> QtRegionalFormats::parseLongDate(const std::string& text) const {
    QDate date = locale_.toDate(ToQt(text), QLocale::LongFormat);
    if (!date.isValid()) date = QDate::fromString(ToQt(text), Qt::ISODate);
    if (!date.isValid()) return std::nullopt;
    return QDateTime(date, QTime(0, 0), QTimeZone::utc()).toMSecsSinceEpoch();
}

}  // namespace parlane
