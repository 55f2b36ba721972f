#include "qt/qt_printer.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPrinter>

#include "qt/qt_text.h"

namespace parlane {
namespace {

constexpr double kTwipsPerInch = 1440.0;

QString Text(std::string_view text) {
    return ToQt(std::string(text));
}

}  // namespace

QtPrinter::QtPrinter(QPrinter& printer) : printer_(printer), font_("Serif", 11) {
    painter_.begin(&printer_);
    painter_.setFont(font_);
}

QtPrinter::~QtPrinter() {
    if (painter_.isActive()) painter_.end();
}

bool QtPrinter::SetFont(const std::string& family) {
    const QString name = QString::fromStdString(family);
    if (!QFontDatabase::families().contains(name, Qt::CaseInsensitive)) return false;
    font_ = QFont(name, 11);
    painter_.setFont(font_);
    return true;
}

double QtPrinter::devicePerTwip() const {
    return printer_.resolution() / kTwipsPerInch;
}

int QtPrinter::ScaleWidth() const {
    return static_cast<int>(printer_.width() / devicePerTwip());
}

int QtPrinter::ScaleHeight() const {
    return static_cast<int>(printer_.height() / devicePerTwip());
}

int QtPrinter::TextWidth(std::string_view text) const {
    return static_cast<int>(QFontMetricsF(font_, &printer_).horizontalAdvance(Text(text)) /
                            devicePerTwip());
}

int QtPrinter::TextHeight(std::string_view) const {
    return static_cast<int>(QFontMetricsF(font_, &printer_).height() / devicePerTwip());
}

void QtPrinter::PrintAt(int x, int y, std::string_view text) {
    if (!painter_.isActive()) return;
    const double s = devicePerTwip();
    const double ascent = QFontMetricsF(font_, &printer_).ascent();
    painter_.drawText(QPointF(x * s, y * s + ascent), Text(text));
}

void QtPrinter::NewPage() {
    printer_.newPage();
    ++page_;
}

void QtPrinter::EndDoc() {
    if (painter_.isActive()) painter_.end();
}

}  // namespace parlane
