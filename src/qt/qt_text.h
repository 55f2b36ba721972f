#pragma once
// The one place where the program's cp1252 text meets Qt's Unicode strings.

#include <QString>
#include <string>

#include "core/cp1252.h"

namespace parlane {

inline QString ToQt(const std::string& cp1252) {
    return QString::fromStdString(Cp1252ToUtf8(cp1252));
}
inline std::string FromQt(const QString& text) {
    return Utf8ToCp1252(text.toStdString());
}

}  // namespace parlane
