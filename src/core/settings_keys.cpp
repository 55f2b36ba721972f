#include "core/settings_keys.h"

#include <array>

#include "core/settings_store.h"

namespace parlane {
namespace {

constexpr std::array kKeys = {
    key::LanguageDefault,
    key::LanguageVersion,
    key::LanguageInternational,
    key::MaxDial,
    key::Timeout,
    key::Originator,
    key::MainLeft,
    key::MainTop,
    key::Tools,
    key::FirstEdit,
    key::DefaultCentre,
    key::QueueView,
    key::GroupView,
    key::FirstRunModem,
    key::ModemIndex,
    key::ModemName,
    key::ModemPorts,
    key::ModemLines,
    key::ModemTip,
    key::EmailSupport,
    key::WebSupport,
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
    key::Signature,
    key::CountryCode,
    key::AreaCode,
    key::OutsideLine,
    key::NationalPrefix,
    key::InternationalPrefix,
    key::Tone,
    key::Notify,
};
constexpr std::size_t kFirstTextName = 21;
static_assert(kKeys[kFirstTextName].key == "Name1" && kKeys[kFirstTextName + 6].key == "Note1");

}  // namespace

const SettingKey& key::TextName(int n) {
    return kKeys.at(kFirstTextName + static_cast<std::size_t>(n - 1));
}

const SettingKey& key::TextNote(int n) {
    return kKeys.at(kFirstTextName + 6 + static_cast<std::size_t>(n - 1));
}

std::span<const SettingKey> AllSettingKeys() {
    return kKeys;
}

std::optional<std::string> DefaultFor(std::string_view section, std::string_view name,
                                      const std::string& editionCentre,
                                      const std::string& signature) {
    if (section == key::DefaultCentre.section && name == key::DefaultCentre.key)
        return editionCentre;
    if (section == key::Signature.section && name == key::Signature.key) return signature;
    for (const auto& k : kKeys)
        if (k.section == section && k.key == name) return std::string(k.defaultValue);
    return std::nullopt;
}

void CarrySettingsOver(SettingsStore& store, const std::string& fromApplication,
                       const std::string& toApplication) {
    if (fromApplication == toApplication) return;
    for (const SettingKey& k : kKeys) {
        const std::string section(k.section), name(k.key);
        if (store.read(toApplication, section, name)) continue;
        if (auto value = store.read(fromApplication, section, name))
            store.write(toApplication, section, name, *value);
    }
}

}  // namespace parlane
