#pragma once
// The first steps of the process, before any window: flags from the settings.

#include "core/settings_store.h"
#include "ui/frm_main.h"

namespace parlane {

// Reads Language\Default, Language\Version and Language\International into the globals.
ProgramGlobals ReadProgramGlobals(SettingsStore& store);

// The logo's drawing: the edition's (Italy, Australia or the plain one), or the brand's own where
// the bank in use names the product otherwise. `small` is the main window's size of it.
std::string LogoArtwork(const ProgramGlobals& globals, bool small);

// The program's version as the About window shows it: major "." minor with a leading zero.
std::string VersionText();

}  // namespace parlane
