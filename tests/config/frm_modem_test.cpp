// The choice of the default modem at start-up.
#include "config/frm_modem.h"

#include <gtest/gtest.h>

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
    } cases[] = {
        {nullptr, nullptr, nullptr, 1},    // first start
        {"4", "0", "Simulated modem", 0},  // chosen, still there
        {"4", "7", "Simulated modem", 1},  // index beyond the list: names differ
        {"4", "0", "USB modem", 1},        // renumbered or removed
        {"3", "0", "Simulated modem", 1},
    };
    for (const auto& c : cases) {
        TestPlatform p;
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
        p.main->showModemDialog = [&](frmModem& dialog) {
            ++shown;
            EXPECT_EQ(dialog.cboTapiDevice.Text, "Simulated modem");
            dialog.cmdProviderItemOk_Click();
        };
        p.main->Form_Load();
        const frmMain& f = *p.main;
        EXPECT_EQ(shown, c.shown) << c.firstRun << c.index << c.name;
        if (c.shown) {
            EXPECT_EQ(f.Providers[0].TapiDevice, "0");
            EXPECT_EQ(ParseProviderFile(*ReadWholeFile(p.home / "smsc.dat")).records[0].TapiDevice,
                      "0");
            EXPECT_EQ(p.settings.read("Parlane", "FirstRun", "Modem"), "4");
            EXPECT_EQ(p.settings.read("Parlane", "Modem", "Name"), "Simulated modem");
        } else {
            EXPECT_EQ(f.Providers[0].TapiDevice, "5");
        }
    }
}

TEST(FirstRunModem, OkRefusesAnUnusableRow) {
    TestPlatform p;
    p.writeProviders({MakeProvider("A")});
    auto& f = p.load();
    frmModem dialog(f);
    dialog.Form_Load();
    dialog.cboTapiDevice.rows = {"Not Available"};
    dialog.cboTapiDevice.select(0);
    dialog.cmdProviderItemOk_Click();
    EXPECT_FALSE(dialog.unloaded);
    EXPECT_EQ(dialog.focusedControl, "cboTapiDevice");
    ASSERT_FALSE(p.dialogues.shown.empty());
    EXPECT_EQ(p.dialogues.shown.back().prompt, "Select the Modem to Use");
}

}  // namespace
}  // namespace parlane
