#pragma once
// Every setting the program keeps, with the default a read gives when the key is missing.

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace parlane {

struct SettingKey {
    std::string_view section;
    std::string_view key;
    std::string_view defaultValue;  // see DefaultFor for the defaults that are not fixed text
};

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
