#include "qt/qt_settings_store.h"

#include <QSettings>

#include "qt/qt_text.h"

namespace parlane {

QString QtSettingsStore::fileFor(const std::string& application) const {
    return folder_ + "/" + ToQt(application) + ".ini";
}

std::optional<std::string> QtSettingsStore::read(const std::string& application,
                                                 const std::string& section,
                                                 const std::string& key) const {
    QSettings ini(fileFor(application), QSettings::IniFormat);
    const QString path = ToQt(section) + "/" + ToQt(key);
    if (!ini.contains(path)) return std::nullopt;
    return FromQt(ini.value(path).toString());
}

void QtSettingsStore::write(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& value) {
    QSettings ini(fileFor(application), QSettings::IniFormat);
    ini.setValue(ToQt(section) + "/" + ToQt(key), ToQt(value));
    ini.sync();
}

}  // namespace parlane
