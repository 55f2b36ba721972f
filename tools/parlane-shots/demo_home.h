#pragma once
// The demo home the pictures are taken on: centres on the simulated modem, a few people, two
// groups and some queued messages.

#include <filesystem>
#include <string>

namespace parlane {

class frmMain;
class Settings;

// Before the main window loads: the centres and the settings that keep the modem choice away.
void PrepareDemoHome(const std::filesystem::path& home, Settings& settings);
// After it has loaded: the directory, the groups and the queue, through the window's own
// commands.
void FillDemoWindow(frmMain& form);
// Chooses `name` in the Names box and types `text` as the message.
void Compose(frmMain& form, const std::string& name, const std::string& text);

}  // namespace parlane
