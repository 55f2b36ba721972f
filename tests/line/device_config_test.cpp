// The device block through the providers: the VARSTRING a caller sizes, the settings dialog
// over a block, the dialling location shared by the device list, and the ports setting.
#include <gtest/gtest.h>

#include <random>

#include "config/dev_config_editor.h"
#include "line/device_list.h"
#include "support/scripted_device_dialogs.h"

namespace parlane {
namespace {

std::uint32_t Dword(const std::vector<std::uint8_t>& b, std::size_t at) {
    return b[at] | b[at + 1] << 8 | b[at + 2] << 16 | static_cast<std::uint32_t>(b[at + 3]) << 24;
}

std::vector<std::uint8_t> VarString(std::size_t bytes, std::uint32_t total) {
    std::vector<std::uint8_t> v(bytes, 0);
    for (int i = 0; i < 4; ++i) v[i] = static_cast<std::uint8_t>(total >> (8 * i));
    return v;
}

TEST(DevConfigVarString, SizesAlwaysTheBlockOnlyWhenItFits) {
    VirtualEventLoop loop;
    SimulatedModem modem(loop);
    const auto block = EncodeModemConfig(modem.config());
    const auto get = [&](std::vector<std::uint8_t>& v) {
        return modem.lineGetDevConfig(0, v, "comm/datamodem");
    };
    auto fits = VarString(1048, 1048);
    ASSERT_EQ(get(fits), 0);
    EXPECT_EQ(Dword(fits, 4), 24 + block.size());  // needed
    EXPECT_EQ(Dword(fits, 8), 24 + block.size());  // used
    EXPECT_EQ(UnwrapVarString(fits), block);
    // One byte short, and a total that claims more than the buffer holds: sizes only.
    for (auto tight : {VarString(23 + block.size(), 23 + block.size()), VarString(40, 5000)}) {
        ASSERT_EQ(get(tight), 0);
        EXPECT_EQ(Dword(tight, 4), 24 + block.size());
        EXPECT_EQ(Dword(tight, 8), 24u);
        EXPECT_EQ(Dword(tight, 16), 0u);
        EXPECT_EQ(std::count(tight.begin() + 24, tight.end(), 0), tight.size() - 24);
    }
    for (auto tiny : {VarString(23, 23), VarString(100, 20)})
        EXPECT_EQ(get(tiny), LINEERR_STRUCTURETOOSMALL);
}

AtModemOptions LondonModems() {
    AtModemOptions defaults;
    defaults.lockDir.clear();
    defaults.location = DefaultDiallingLocation("GB");
    defaults.location.areaCode = "0171";
    return defaults;
}

// The simulated modem, the internet line and two AT modems (devices 2 and 3) on scripted
// dialogs.
struct ListBench {
    ListBench() { devices.setDeviceDialogs(&dialogs, &settings); }
    VirtualEventLoop loop;
    SimulatedModem simulated{loop};
    MemorySettingsStore store;
    Settings settings{store, "Parlane"};
    testing::ScriptedDeviceDialogs dialogs;
    DeviceList devices{loop, simulated,      "/nonexistent/ttyS9",
                       "",   LondonModems(), {{"/nonexistent/ttyUSB7", "USB serial ttyUSB7"}}};
    DebugLog log;
    TAPISubs tapi{devices, log};
};

TEST(DevConfigEdit, ReadEditAndApplyThroughTheDeviceList) {
    ListBench bench;
    DevConfigEditor editor;
    ReadDevConfig(bench.tapi, 2, editor);  // the AT modem's options: raw 8N1 at 115200
    EXPECT_EQ(DecodeModemConfig(editor.EditorDevConfig),
              (ModemConfig{115200, 8, 'N', 1, false, ""}));

    ListControl cbo;
    cbo.rows = {"Simulated modem", "Internet (TCP)", "/nonexistent/ttyS9"};
    cbo.select(2);
    bench.dialogs.onModem = [](ModemSettingsForm& form) {
        form.txtSpeed.Text = "2400";
        form.txtParity.Text = "E";
        form.txtInitString.Text = "ATL0";
    };
    EditDevConfig(bench.tapi, cbo, 0, editor);
    const ModemConfig edited{2400, 8, 'E', 1, false, "ATL0"};
    EXPECT_EQ(DecodeModemConfig(editor.EditorDevConfig), edited);

    // The next edit opens on the edited block; cancel keeps it byte for byte.
    const auto kept = editor.EditorDevConfig;
    bench.dialogs.onModem = [&](ModemSettingsForm& form) { EXPECT_EQ(form.Result(), edited); };
    bench.dialogs.pressOk = false;
    EditDevConfig(bench.tapi, cbo, 0, editor);
    EXPECT_EQ(editor.EditorDevConfig, kept);

    ASSERT_EQ(bench.tapi.lineSetDevConfig(2, editor.EditorDevConfig), 0);
    ReadDevConfig(bench.tapi, 2, editor);
    EXPECT_EQ(DecodeModemConfig(editor.EditorDevConfig), edited);
    EXPECT_EQ(bench.devices.modem(3)->currentConfig(), ModemConfig{});  // other devices keep theirs

    // The internet line: a new centre starts with no host; Properties sets the address, which
    // the next dial reaches, and a modem's block gives it none.
    ReadDevConfig(bench.tapi, 1, editor);
    EXPECT_EQ(DecodeTcpConfig(editor.EditorDevConfig), TcpConfig{});
    cbo.select(1);
    bench.dialogs.pressOk = true;
    bench.dialogs.onTcp = [](TcpSettingsForm& form) {
        form.txtHost.Text = "2001:db8::5";
        form.txtPort.Text = "3000";
        form.txtTls.Text = "Y";
    };
    EditDevConfig(bench.tapi, cbo, 0, editor);
    EXPECT_EQ(DecodeTcpConfig(editor.EditorDevConfig), (TcpConfig{"2001:db8::5", 3000, 30, true}));
    std::string dialable;
    for (const auto& [block, address] :
         {std::pair{editor.EditorDevConfig, "[2001:db8::5]:3000"}, {kept, "+44 1"}}) {
        bench.tapi.lineSetDevConfig(1, block);
        bench.tapi.lineTranslateAddress(1, "+44 1", dialable);
        EXPECT_EQ(dialable, address);
    }
}

TEST(DevConfigEdit, AnyBytesOpenTheDialogOnTheirSettingsOrTheCurrentOnes) {
    VirtualEventLoop loop;
    SimulatedModem modem(loop);
    const ModemConfig current{19200, 8, 'N', 2, true, "ATM1"};
    ASSERT_EQ(modem.lineSetDevConfig(0, EncodeModemConfig(current), "comm/datamodem"), 0);
    testing::ScriptedDeviceDialogs dialogs;
    modem.setDeviceDialogs(&dialogs, nullptr);
    std::string speedShown, initShown;
    bool noted = false;
    std::optional<ModemConfig> accepted;
    dialogs.onModem = [&](ModemSettingsForm& form) {
        noted = form.noteId != 0 && form.noteDetail == "19200 8N2 RTS/CTS ATM1";
        speedShown = form.txtSpeed.Text;
        initShown = form.txtInitString.Text;
        accepted = form.Result();
    };
    std::mt19937 random(7);
    const auto valid = EncodeModemConfig({4800, 7, 'O', 1, false, "ATS0=0"});
    int refused = 0, saved = 0;
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::uint8_t> bytes = valid;  // a real block, spoilt and cut short
        for (int n = random() % 4; n > 0; --n) bytes[random() % bytes.size()] = random();
        bytes.resize(random() % (bytes.size() + 1));
        if (round % 2) {  // or noise, half of it behind our mark
            bytes.resize(random() % 64);
            for (auto& b : bytes) b = static_cast<std::uint8_t>(random());
            if (round % 4 == 1 && bytes.size() >= 5) std::copy_n("PLMC\x01", 5, bytes.begin());
        }
        auto out = VarString(1024, 1024);
        const auto result = modem.lineConfigDialogEdit(0, 0, "comm/datamodem", bytes, out);
        const ModemConfig opened = DecodeModemConfig(bytes).value_or(current);
        ASSERT_EQ(speedShown, std::to_string(opened.baud)) << round;
        ASSERT_EQ(initShown, opened.initString) << round;
        ASSERT_EQ(noted, !DecodeModemConfig(bytes)) << round;  // the modem's own, and said so
        // OK goes through only on settings the checks accept, and gives exactly those back.
        ASSERT_EQ(result == 0, accepted.has_value()) << round;
        refused += result != 0;
        if (result == 0) {
            ++saved;
            ASSERT_EQ(DecodeModemConfig(*UnwrapVarString(out)), accepted) << round;
        }
    }
    EXPECT_GT(refused, 0);  // blocks that read but hold what the checks refuse
    EXPECT_GT(saved, 1000);
    EXPECT_EQ(modem.config(), current);  // an edit changes no device
}

TEST(DiallingLocationDialog, ReachesEveryModemsTranslationAndTheSettings) {
    ListBench bench;
    bench.dialogs.onLocation = [](LocationForm& form) {
        EXPECT_EQ(form.txtAreaCode.Text, "0171");
        form.txtCountryCode.Text = "39";
        form.txtAreaCode.Text = "06";
        form.txtOutsideLine.Text = "9,";
        form.txtDialMode.Text = "P";
    };
    bench.tapi.EditDialingLocation(0);
    std::string dialled, country, city;
    for (std::uint32_t device : {2u, 3u}) {
        ASSERT_EQ(bench.tapi.lineTranslateAddress(device, "+39 (06) 1234567", dialled), 0);
        EXPECT_EQ(dialled, "9,1234567");  // was 003961234567 from London
        EXPECT_EQ(bench.devices.modem(device)->options().dialMode, 'P');
    }
    bench.tapi.tapiGetLocationInfo(country, city);
    EXPECT_EQ(country + " " + city, "39 06");  // what a new centre starts with
    EXPECT_EQ(LoadDiallingLocation(bench.settings, DiallingLocation{}), bench.devices.location());
    EXPECT_EQ(bench.log.text(), "");

    // The check refuses the field; the user gives up: nothing changes and the log says so.
    bench.dialogs.onLocation = [](LocationForm& form) { form.txtCountryCode.Text = "4444"; };
    bench.tapi.EditDialingLocation(0);
    EXPECT_EQ(bench.devices.location().countryCode, "39");
    EXPECT_NE(bench.log.text().find("LINEERR_OPERATIONFAILED [80000048] - lineTranslateDialog"),
              std::string::npos);
}

TEST(SerialPortsDialog, SavesThePortsSettingOnOk) {
    ListBench bench;
    bench.dialogs.onPorts = [](PortsForm& form) {
        EXPECT_EQ(form.txtPorts.Text, "/nonexistent/ttyS9");
        form.lstPorts.ListIndex = 0;  // the one port found
        form.lstPorts_DblClick();
    };
    EXPECT_TRUE(bench.tapi.ConfigureProvider(0));
    const std::string saved = "/nonexistent/ttyS9;/nonexistent/ttyUSB7";
    EXPECT_EQ(bench.settings.GetSetting("Modem", "Ports", ""), saved);
    bench.dialogs.onPorts = [](PortsForm& form) { form.txtPorts.Text = "/dev/ttyS0; ttyS1"; };
    EXPECT_FALSE(bench.tapi.ConfigureProvider(0));
    EXPECT_EQ(bench.settings.GetSetting("Modem", "Ports", ""), saved);

    // A port added is listed the next time a list is filled, under the next free number.
    bench.tapi.InitTelephony();
    bench.dialogs.onPorts = [](PortsForm& form) { form.txtPorts.Text += ";/nonexistent/ttyS4"; };
    EXPECT_TRUE(bench.tapi.ConfigureProvider(0));
    ListControl list;
    bench.tapi.FillDeviceList(list);
    ASSERT_EQ(list.ListCount(), 5);
    EXPECT_EQ(list.rows[4], "/nonexistent/ttyS4");
    EXPECT_EQ(bench.settings.GetSetting("Modem", "Lines", ""),
              "simulated;internet;/nonexistent/ttyS9;/nonexistent/ttyUSB7;/nonexistent/ttyS4");
}

}  // namespace
}  // namespace parlane
