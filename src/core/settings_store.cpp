#include "core/settings_store.h"

#include <cctype>

namespace parlane {

std::optional<std::string> MemorySettingsStore::read(const std::string& application,
                                                     const std::string& section,
                                                     const std::string& key) const {
    auto it = values_.find({application, section, key});
    if (it == values_.end()) return std::nullopt;
    return it->second;
}

void MemorySettingsStore::write(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& value) {
    values_[{application, section, key}] = value;
    ++writes_;
}

std::string Settings::GetSetting(const std::string& section, const std::string& key,
                                 const std::string& defaultValue) const {
    return store_.read(application_, section, key).value_or(defaultValue);
}

std::optional<std::int16_t> Settings::GetSettingInt(const std::string& section,
                                                    const std::string& key,
                                                    std::int16_t defaultValue) const {
    auto value = store_.read(application_, section, key);
    if (!value) return defaultValue;
    return ParseInt16(*value);
}

void Settings::SaveSetting(const std::string& section, const std::string& key,
                           const std::string& value) {
    store_.write(application_, section, key, value);
}

std::string Settings::Get(const SettingKey& key) const {
    return Get(key, std::string(key.defaultValue));
}

std::string Settings::Get(const SettingKey& key, const std::string& callerDefault) const {
    return GetSetting(std::string(key.section), std::string(key.key), callerDefault);
}

std::optional<std::int16_t> Settings::GetInt(const SettingKey& key) const {
    const auto value = store_.read(application_, std::string(key.section), std::string(key.key));
    return ParseInt16(value ? *value : std::string(key.defaultValue));
}

void Settings::Save(const SettingKey& key, const std::string& value) {
    SaveSetting(std::string(key.section), std::string(key.key), value);
}

std::optional<std::int16_t> ParseInt16(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ') ++i;
    std::size_t end = text.size();
    while (end > i && text[end - 1] == ' ') --end;
    if (i == end) return std::nullopt;
    bool negative = false;
    if (text[i] == '+' || text[i] == '-') negative = text[i++] == '-';
    if (i == end) return std::nullopt;
    long value = 0;
    for (; i < end; ++i) {
        if (!std::isdigit(static_cast<unsigned char>(text[i]))) return std::nullopt;
        value = value * 10 + (text[i] - '0');
        if (value > 32768) return std::nullopt;
    }
    if (negative) value = -value;
    if (value < -32768 || value > 32767) return std::nullopt;
    return static_cast<std::int16_t>(value);
}

double LeadingNumber(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    double sign = 1;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) sign = text[i++] == '-' ? -1 : 1;
    double value = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i)
        value = value * 10 + (text[i] - '0');
    if (i < text.size() && text[i] == '.') {
        double scale = 0.1;
        for (++i; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
            value += (text[i] - '0') * scale;
            scale /= 10;
        }
    }
    return sign * value;
}

}  // namespace parlane
