#pragma once
// The per-user settings store: text values by application, section and key.

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "core/settings_keys.h"

namespace parlane {

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> read(const std::string& application,
                                            const std::string& section,
                                            const std::string& key) const = 0;
    virtual void write(const std::string& application, const std::string& section,
                       const std::string& key, const std::string& value) = 0;
};

// Kept in memory: tests and anything that must not touch the disk.
class MemorySettingsStore : public SettingsStore {
  public:
    std::optional<std::string> read(const std::string& application, const std::string& section,
                                    const std::string& key) const override;
    void write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;
    int writeCount() const { return writes_; }

  private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
    int writes_ = 0;
};

// Reads with defaults in the program's terms: GetSetting and SaveSetting.
class Settings {
  public:
    Settings(SettingsStore& store, std::string application)
        : store_(store), application_(std::move(application)) {}

    // The application name follows the bank in use (string 1052), so it can change.
    void setApplication(std::string application) { application_ = std::move(application); }
    const std::string& application() const { return application_; }

    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const;
    // The value as a 16-bit integer; nullopt when the stored text is not one.
    std::optional<std::int16_t> GetSettingInt(const std::string& section, const std::string& key,
                                              std::int16_t defaultValue) const;
    void SaveSetting(const std::string& section, const std::string& key, const std::string& value);

    // The same by a key of the table, with the table's default.
    std::string Get(const SettingKey& key) const;
    std::string Get(const SettingKey& key, const std::string& callerDefault) const;
    std::optional<std::int16_t> GetInt(const SettingKey& key) const;
    void Save(const SettingKey& key, const std::string& value);

  private:
    SettingsStore& store_;
    std::string application_;
};

// Converts text to a 16-bit integer the way the settings reads do: optional blanks, an optional
// sign, digits; anything else, or a value out of range, fails.
std::optional<std::int16_t> ParseInt16(const std::string& text);

// The leading number of a text, 0 when there is none (as Val does for "3 messages" or "").
double LeadingNumber(const std::string& text);

}  // namespace parlane
