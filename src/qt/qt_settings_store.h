#pragma once
// Settings in INI files, one per application name ("Parlane.ini"), one INI section per section.

#include <QString>

#include "core/settings_store.h"

namespace parlane {

class QtSettingsStore : public SettingsStore {
  public:
    explicit QtSettingsStore(QString folder) : folder_(std::move(folder)) {}
    std::optional<std::string> read(const std::string& application, const std::string& section,
                                    const std::string& key) const override;
    void write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;

  private:
    QString fileFor(const std::string& application) const;
    QString folder_;
};

}  // namespace parlane
