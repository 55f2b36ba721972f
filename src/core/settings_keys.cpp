#include "core/settings_keys.h"

#include <array>

#include "core/settings_store.h"

namespace parlane {
namespace {

constexpr std::array kKeys = {
    SettingKey{"Language", "Default", "0"},
    SettingKey{"Language", "Version", "0"},
    SettingKey{"Language", "International", "1"},
    SettingKey{"Settings", "MaxDial", "3"},
    SettingKey{"Settings", "Timeout", "30"},
    SettingKey{"Settings", "Originator", "12345"},
    SettingKey{"Settings", "MainLeft", "1000"},
    SettingKey{"Settings", "MainTop", "1000"},
    SettingKey{"Settings", "Tools", "1"},
    SettingKey{"Settings", "FirstEdit", "0"},
    SettingKey{"SMSC", "Default", ""},
    SettingKey{"Queue", "View", "0"},
    SettingKey{"Group", "View", "0"},
    SettingKey{"FirstRun", "Modem", "0"},
    SettingKey{"Modem", "Index", "0"},
    SettingKey{"Modem", "Name", ""},
    SettingKey{"Modem", "Ports", ""},
    SettingKey{"Options", "ModemTip", "0"},
    // Whoever runs the product sets these two.
    SettingKey{"URL", "EmailSupport", "support@parlane.invalid"},
    SettingKey{"URL", "WebSupport", "https://parlane.invalid/"},
    SettingKey{"Texts", "Name1", ""},
    SettingKey{"Texts", "Name2", ""},
    SettingKey{"Texts", "Name3", ""},
    SettingKey{"Texts", "Name4", ""},
    SettingKey{"Texts", "Name5", ""},
    SettingKey{"Texts", "Name6", ""},
    SettingKey{"Texts", "Note1", ""},
    SettingKey{"Texts", "Note2", ""},
    SettingKey{"Texts", "Note3", ""},
    SettingKey{"Texts", "Note4", ""},
    SettingKey{"Texts", "Note5", ""},
    SettingKey{"Texts", "Note6", ""},
    SettingKey{"Texts", "Signature", ""},
};

}  // namespace

std::span<const SettingKey> AllSettingKeys() {
    return kKeys;
}

std::optional<std::string> DefaultFor(std::string_view section, std::string_view key,
                                      const std::string& editionCentre,
                                      const std::string& signature) {
    if (section == "SMSC" && key == "Default") return editionCentre;
    if (section == "Texts" && key == "Signature") return signature;
    for (const auto& k : kKeys)
        if (k.section == section && k.key == key) return std::string(k.defaultValue);
    return std::nullopt;
}

void CarrySettingsOver(SettingsStore& store, const std::string& fromApplication,
                       const std::string& toApplication) {
    if (fromApplication == toApplication) return;
    // The dialling location is kept beside the table's keys.
    constexpr std::string_view kLocationKeys[] = {
        "CountryCode", "AreaCode", "OutsideLine", "NationalPrefix", "InternationalPrefix", "Tone"};
    const auto carry = [&](std::string_view section, std::string_view key) {
        const std::string s(section), k(key);
        if (store.read(toApplication, s, k)) return;
        if (auto value = store.read(fromApplication, s, k))
            store.write(toApplication, s, k, *value);
    };
    for (const SettingKey& k : kKeys) carry(k.section, k.key);
    for (std::string_view key : kLocationKeys) carry("Location", key);
}

}  // namespace parlane
