// The choice of the default modem at start-up.
#include "config/frm_modem.h"

#include <gtest/gtest.h>

#include "config/frm_smsc_edit.h"
#include "core/file_io.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

TEST(FirstRunModem, ChoiceComesUntilMadeAndWhenTheModemMoved) {
    struct Case {
        const char* firstRun;
        const char* index;
        const char* name;
        int shown;
        bool person = true;  // else no one can answer: nothing is chosen, nothing changes
    } cases[] = {
        {nullptr, nullptr, nullptr, 1},  // first start
        {"4", "1", "Port", 0},           // chosen, still there
        {"4", "7", "Port", 1},           // index beyond the list: names differ
        {"4", "0", "USB modem", 1},      // renumbered or removed
        {"3", "0", "Simulated modem", 1},
        {nullptr, nullptr, nullptr, 0, false},
        {"4", "0", "USB modem", 0, false},
    };
    for (const auto& c : cases) {
        TestPlatform p;
        p.line.deviceNames = {"Simulated modem", "Port"};
        p.line.deviceKinds = {LineKind::Simulated};
        p.settings = MemorySettingsStore();
        if (c.firstRun) p.settings.write("Parlane", "FirstRun", "Modem", c.firstRun);
        if (c.index) p.settings.write("Parlane", "Modem", "Index", c.index);
        if (c.name) p.settings.write("Parlane", "Modem", "Name", c.name);
        auto centre = MakeProvider("A");
        centre.TapiDevice = "5";
        p.writeProviders({centre});
        int shown = 0;
        // Built by hand: the hook must be there when the window loads.
        p.main = std::make_unique<frmMain>(
            Platform{p.loop, p.settings, p.dialogues, p.formats, p.line, p.line, p.home},
            p.globals);
        if (c.person)
            p.main->showModemDialog = [&](frmModem& dialog) {
                ++shown;
                EXPECT_EQ(dialog.cboTapiDevice.Text, "Port");  // never the simulated modem
                dialog.cmdProviderItemOk_Click();
            };
        p.main->Form_Load();
        const frmMain& f = *p.main;
        EXPECT_EQ(shown, c.shown) << c.firstRun << c.index << c.name;
        if (c.shown) {
            EXPECT_EQ(f.Providers[0].TapiDevice, "1");
            EXPECT_EQ(ParseProviderFile(*ReadWholeFile(p.home / "smsc.dat")).records[0].TapiDevice,
                      "1");
            EXPECT_EQ(p.settings.read("Parlane", "FirstRun", "Modem"), "4");
            EXPECT_EQ(p.settings.read("Parlane", "Modem", "Name"), "Port");
        } else {
            EXPECT_EQ(f.Providers[0].TapiDevice, "5");
            EXPECT_EQ(p.settings.read("Parlane", "FirstRun", "Modem"),
                      c.firstRun ? std::optional<std::string>(c.firstRun) : std::nullopt);
        }
    }
}

// The modem dialogue and a new centre propose the first serial modem that can be read, never
// the simulated modem or the internet line; with no modem, nothing, and OK asks for a choice.
TEST(ModemProposal, OnlyARealSerialPortIsProposed) {
    using K = LineKind;
    const std::pair<std::vector<K>, int> cases[] = {{{K::Simulated, K::Internet}, -1},
                                                    {{K::Simulated, K::Internet, K::Modem}, 2},
                                                    {{K::Modem, K::Modem}, 1}};
    for (const auto& [kinds, proposed] : cases) {
        TestPlatform p;
        p.line.deviceNames = {"Simulated modem", "Internet", "Modem"};
        p.line.deviceNames.resize(kinds.size());
        if (kinds[0] == K::Modem) p.line.deviceNames[0] = "";  // cannot be read
        p.line.deviceKinds = kinds;
        auto& f = p.load();
        frmModem modem(f);
        modem.Form_Load();
        frmSMSCEdit editor(f);
        editor.Form_Load();
        EXPECT_EQ(modem.cboTapiDevice.ListIndex, proposed);
        EXPECT_EQ(editor.cboTapiDevice.ListIndex, proposed);
        // Nothing chosen, or a row that cannot be read: OK asks for a modem.
        const bool unreadable = kinds[0] == K::Modem;
        if (unreadable) modem.cboTapiDevice.select(0);
        modem.cmdProviderItemOk_Click();
        EXPECT_EQ(modem.unloaded, !unreadable && proposed >= 0);
        if (modem.unloaded) continue;
        EXPECT_EQ(modem.focusedControl, "cboTapiDevice");
        EXPECT_EQ(p.dialogues.shown.back().prompt, "Select the Modem to Use");
    }
}

}  // namespace
}  // namespace parlane
