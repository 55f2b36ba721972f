// The choice of the default modem: what is proposed, and who may choose.
#include "config/frm_modem.h"

#include <gtest/gtest.h>

#include "config/frm_smsc_edit.h"
#include "core/file_io.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

constexpr auto Sim = LineKind::Simulated;
constexpr auto Net = LineKind::Internet;
constexpr auto Port = LineKind::Modem;

// Where a modem is proposed (the modem dialogue, a new centre), only a serial port is: never the
// simulated modem, whatever its name says, and never a port that cannot be read.
TEST(ModemProposal, OnlyARealSerialPortIsProposed) {
    struct Case {
        std::vector<std::string> names;  // "" : a device that cannot be read
        std::vector<LineKind> kinds;
        int proposed;
    } cases[] = {
        {{"Simulated modem", "Internet (TCP)"}, {Sim, Net}, -1},
        {{"Simulated modem", "Internet (TCP)", "USB modem ttyACM0", "/dev/ttyS0"},
         {Sim, Net, Port, Port},
         2},
        {{"Simulated modem", "Internet (TCP)", "", "/dev/ttyS0"}, {Sim, Net, Port, Port}, 3},
        {{"/dev/ttyS0"}, {Port}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.names.size());
        TestPlatform p;
        p.line.deviceNames = c.names;
        p.line.deviceKinds = c.kinds;
        auto& f = p.load();
        frmModem modem(f);
        modem.Form_Load();
        EXPECT_EQ(modem.cboTapiDevice.ListIndex, c.proposed);
        EXPECT_FALSE(modem.unloaded);  // the person may still pick any row
        frmSMSCEdit editor(f);
        editor.Form_Load();
        EXPECT_EQ(editor.cboTapiDevice.ListIndex, c.proposed);
        if (c.proposed < 0) {
            // Nothing proposed: OK asks for a choice instead of taking one.
            modem.cmdProviderItemOk_Click();
            EXPECT_FALSE(modem.unloaded);
            EXPECT_EQ(p.dialogues.shown.back().prompt, "Select the Modem to Use");
        }
    }
}

// The start asks until a modem is chosen and whenever the chosen one moved; a person answers
// (here: OK on the proposal), and without one nothing is chosen and no centre is touched.
TEST(FirstRunModem, ChoiceComesUntilMadeAndWhenTheModemMoved) {
    struct Case {
        const char* firstRun;
        const char* index;
        const char* name;
        bool person;
        int shown;
    } cases[] = {
        {nullptr, nullptr, nullptr, true, 1},  // first start
        {"4", "2", "Port", true, 0},           // chosen, still there
        {"4", "7", "Port", true, 1},           // index beyond the list: names differ
        {"4", "0", "USB modem", true, 1},      // renumbered or removed
        {"3", "0", "Simulated modem", true, 1},
        {nullptr, nullptr, nullptr, false, 0},  // a script's first start
        {"4", "0", "USB modem", false, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.firstRun ? c.firstRun : "-") + (c.person ? " person" : ""));
        TestPlatform p;
        p.line.deviceNames = {"Simulated modem", "Internet (TCP)", "Port"};
        p.line.deviceKinds = {Sim, Net, Port};
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
                dialog.cmdProviderItemOk_Click();
            };
        p.main->Form_Load();
        const frmMain& f = *p.main;
        EXPECT_EQ(shown, c.shown);
        const std::string stored =
            ParseProviderFile(*ReadWholeFile(p.home / "smsc.dat")).records[0].TapiDevice;
        EXPECT_EQ(f.Providers[0].TapiDevice, c.shown ? "2" : "5");
        EXPECT_EQ(stored, c.shown ? "2" : "5");
        if (c.shown) {
            EXPECT_EQ(p.settings.read("Parlane", "FirstRun", "Modem"), "4");
            EXPECT_EQ(p.settings.read("Parlane", "Modem", "Name"), "Port");
        }
        if (!c.person) {
            EXPECT_NE(f.debugLog.text().find("Modem choice not confirmed"), std::string::npos);
            EXPECT_EQ(p.settings.read("Parlane", "FirstRun", "Modem"),
                      c.firstRun ? std::optional<std::string>(c.firstRun) : std::nullopt);
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
