#include "demo_home.h"

#include "core/file_io.h"
#include "core/settings_store.h"
#include "line/sim/simulated_modem.h"
#include "store/directory.h"
#include "store/provider.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr const char* kTapCentre = "Demo TAP Centre";
constexpr const char* kUcpCentre = "Demo UCP Centre";

Provider DemoCentre(const char* name, const char* number, std::int32_t protocol) {
    Provider centre;
    centre.ProviderName = name;
    centre.TapiDevice = "0";  // the simulated modem
    centre.CountryCode = "44";
    centre.AreaCode = "0800";
    centre.Number = number;  // its last digits pick the simulated centre
    centre.MaxChars = "160";
    centre.Protocol = protocol;
    centre.MultiMessage = 1;
    centre.AllowASCII = "0";
    centre.MaxMessages = "3";
    centre.UCPOperation = "01";
    return centre;
}

void AddGroupOf(frmMain& form, const std::string& group, std::initializer_list<const char*> names) {
    form.AddGroup(group);
    for (const char* name : names) form.lstGroup.AddItem(name);
    form.SaveGroupMembers();
}

}  // namespace

void PrepareDemoHome(const std::filesystem::path& home, Settings& settings) {
    std::string error;
    WriteFileAtomically(
        home / "smsc.dat",
        SerializeProviderFile({DemoCentre(kTapCentre, "100100", ProtocolTap),
                               DemoCentre(kUcpCentre, "100101", ProtocolUcp),
                               DemoCentre("Demo Vodafone Menu", "100102", ProtocolVoda)},
                              error));
    settings.Save(key::FirstRunModem, "4");
    settings.Save(key::ModemIndex, "0");
    settings.Save(key::ModemName, SimulatedModem::kLineName);
    settings.Save(key::DefaultCentre, kTapCentre);
    settings.Save(key::Tools, "0");  // its own picture is taken on its own
}

void FillDemoWindow(frmMain& form) {
    const DirectoryEntry people[] = {
        {"Alice Martin", "44", "07700", "900123", kTapCentre},
        {"Bruno Keller", "41", "79", "5550101", kUcpCentre},
        {"Carla Rossi", "39", "347", "5550199", kTapCentre},
        {"Duty pager", "44", "07623", "100200", ""},
    };
    for (const auto& entry : people) form.SaveDirectoryEntry(entry);
    AddGroupOf(form, "On call", {"Duty pager", "Alice Martin"});
    AddGroupOf(form, "Project team", {"Alice Martin", "Bruno Keller", "Carla Rossi"});

    Compose(form, "Bruno Keller", "Der Zug hat 20 Minuten Verspaetung, bitte ohne mich anfangen.");
    form.mnuQueue_Click();
    Compose(form, "Carla Rossi", "Reminder: the quarterly figures are due on Friday.");
    form.mnuQueue_Click();
    Compose(form, "Duty pager", "Server room temperature above 30 C since 02:10.");
    form.mnuQueue_Click();
}

void Compose(frmMain& form, const std::string& name, const std::string& text) {
    form.Names.select(form.Names.FindRow(name));
    form.Names_Click();
    form.txtMessage.Text = text;
    form.txtMessage_Change();
    form.changed();
}

}  // namespace parlane
