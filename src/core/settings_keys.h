#pragma once
// Every setting the program keeps: its section, its name and the default a read gives when the
// key is missing. Call sites name a key from `key::` and never repeat its section or default.

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace parlane {

struct SettingKey {
    std::string_view section;
    std::string_view key;
    std::string_view defaultValue;
    // The default is not fixed text: the caller gives it (the edition's centre, the bank's
    // signature, the telephony location's values).
    bool defaultFromCaller = false;
};

namespace key {
inline constexpr SettingKey LanguageDefault{"Language", "Default", "0"};
inline constexpr SettingKey LanguageVersion{"Language", "Version", "0"};
inline constexpr SettingKey LanguageInternational{"Language", "International", "1"};
inline constexpr SettingKey MaxDial{"Settings", "MaxDial", "3"};
inline constexpr SettingKey Timeout{"Settings", "Timeout", "30"};
inline constexpr SettingKey Originator{"Settings", "Originator", "12345"};
inline constexpr SettingKey MainLeft{"Settings", "MainLeft", "1000"};
inline constexpr SettingKey MainTop{"Settings", "MainTop", "1000"};
inline constexpr SettingKey Tools{"Settings", "Tools", "1"};
inline constexpr SettingKey Notify{"Settings", "Notify", "1"};  // 0: no desktop notifications
inline constexpr SettingKey FirstEdit{"Settings", "FirstEdit", "0"};
inline constexpr SettingKey DefaultCentre{"SMSC", "Default", "", true};
inline constexpr SettingKey QueueView{"Queue", "View", "0"};
inline constexpr SettingKey GroupView{"Group", "View", "0"};
inline constexpr SettingKey FirstRunModem{"FirstRun", "Modem", "0"};
inline constexpr SettingKey ModemIndex{"Modem", "Index", "0"};
inline constexpr SettingKey ModemName{"Modem", "Name", ""};
inline constexpr SettingKey ModemPorts{"Modem", "Ports", ""};
// The line behind each device number, ";" between them (line/device_list.h).
inline constexpr SettingKey ModemLines{"Modem", "Lines", ""};
inline constexpr SettingKey ModemTip{"Options", "ModemTip", "0"};
// Whoever runs the product sets these two.
inline constexpr SettingKey EmailSupport{"URL", "EmailSupport", "support@parlane.invalid"};
inline constexpr SettingKey WebSupport{"URL", "WebSupport", "https://parlane.invalid/"};
inline constexpr SettingKey Signature{"Texts", "Signature", "", true};
// The dialling location, kept beside the table's keys.
inline constexpr SettingKey CountryCode{"Location", "CountryCode", "", true};
inline constexpr SettingKey AreaCode{"Location", "AreaCode", "", true};
inline constexpr SettingKey OutsideLine{"Location", "OutsideLine", "", true};
inline constexpr SettingKey NationalPrefix{"Location", "NationalPrefix", "", true};
inline constexpr SettingKey InternationalPrefix{"Location", "InternationalPrefix", "", true};
inline constexpr SettingKey Tone{"Location", "Tone", "", true};
// Texts\Name1 to Name6 and Note1 to Note6, for n from 1 to 6.
const SettingKey& TextName(int n);
const SettingKey& TextNote(int n);
}  // namespace key

std::span<const SettingKey> AllSettingKeys();

// The default of a key, for the bank and edition in use: SMSC/Default is the edition's centre,
// Texts/Signature the bank's "My Signature". nullopt for a key the program does not keep.
std::optional<std::string> DefaultFor(std::string_view section, std::string_view key,
                                      const std::string& editionCentre,
                                      const std::string& signature);

class SettingsStore;

// A change of language that changes the product name moves the program to the settings file of
// the new name: each kept key that file lacks is copied from the old one. Keys the new file
// already holds stay (they were chosen under that name); nothing is removed from the old file.
void CarrySettingsOver(SettingsStore& store, const std::string& fromApplication,
                       const std::string& toApplication);

}  // namespace parlane
