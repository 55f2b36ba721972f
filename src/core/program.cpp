#include "core/program.h"

#include <cstdio>

namespace parlane {

ProgramGlobals ReadProgramGlobals(SettingsStore& store) {
    ProgramGlobals g;
    g.strings.LanguageOffset = 0;
    Settings settings(store, g.strings.ProductName());
    if (auto v = settings.GetInt(key::LanguageDefault)) g.strings.LanguageOffset = *v;
    // The application name follows the bank just chosen.
    settings.setApplication(g.strings.ProductName());
    const auto version = settings.GetInt(key::LanguageVersion).value_or(0);
    if (auto v = settings.GetInt(key::LanguageInternational)) g.International = *v != 0;
    g.EditionItaly = version == 1;
    g.EditionAustralia = version == 2;
    // Linux offers the one transmit call.
    g.NtTransmit = true;
    return g;
}

std::string LogoArtwork(const ProgramGlobals& globals, bool small) {
    std::string name = globals.strings.LanguageOffset == 1000 ? "logo_tonebridge"
                       : globals.EditionItaly                 ? "logo_italy"
                       : globals.EditionAustralia             ? "logo_australia"
                                                              : "logo";
    return small ? name + "_small" : name;
}

std::string VersionText() {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%d.%02d", PARLANE_VERSION_MAJOR, PARLANE_VERSION_MINOR);
    return buf;
}

}  // namespace parlane
