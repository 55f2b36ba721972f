// The modem's settings and the dialling location. Their dialogs' models: the order and words of
// their checks, their key filters, and what they hand back (the ports form is tried through the
// device list, random blocks through the settings dialog, in device_config_test.cpp). The
// device block: round trips and what is not one. Dial strings from canonical addresses for a
// given location, and the location's settings.
#include <gtest/gtest.h>

#include <random>

#include "line/at/dialling_rules.h"
#include "line/at/location_form.h"
#include "line/at/modem_settings_form.h"
#include "line/modem_config.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::ScriptedDialogues;

// Spoils every field, then mends them one at a time: each Check must name the next field.
void ExpectCheckOrder(FieldForm& form, const std::vector<std::string>& bad,
                      const std::vector<std::string>& good,
                      const std::vector<std::string>& messages) {
    ScriptedDialogues host;
    Strings strings;
    const auto& fields = form.fields();
    ASSERT_EQ(fields.size(), bad.size());
    for (std::size_t i = 0; i < fields.size(); ++i) fields[i].box->Text = bad[i];
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_FALSE(form.Check(host, strings));
        EXPECT_EQ(form.focusedControl, fields[i].control);
        ASSERT_EQ(host.shown.size(), i + 1);
        EXPECT_EQ(host.shown.back().prompt, messages[i]);
        EXPECT_EQ(host.shown.back().flags, MbInformation);
        EXPECT_EQ(host.shown.back().title, "Parlane");
        fields[i].box->Text = good[i];
    }
    EXPECT_TRUE(form.Check(host, strings));
    EXPECT_EQ(host.shown.size(), fields.size());
}

TEST(DeviceForms, CheckEachFieldInOrderAndGiveTheSettingsBack) {
    ModemSettingsForm modem(ModemConfig{});
    ExpectCheckOrder(modem, {"1234", "9", "X", "3", "X", "ZZZ"},
                     {"2400", "7", "E", "2", "H", "AT&F1"},
                     {"Please Enter A Valid Speed (bits per second)",
                      "Please Enter A Valid Data Bits", "Please Enter A Valid Parity",
                      "Please Enter A Valid Stop Bits", "Please Enter A Valid Flow Control",
                      "Please Enter A Valid Initialisation Command (AT...)"});
    EXPECT_EQ(modem.Result(), (ModemConfig{2400, 7, 'E', 2, true, "AT&F1"}));

    LocationForm location(DiallingLocation{});
    EXPECT_EQ(location.txtDialMode.Text, "T");
    ExpectCheckOrder(
        location, {"1234", "0171a", "9;", "0x", "", "X"}, {"39", "06", "9,,", "", "00", "P"},
        {"Please Enter A Valid Country Code", "Please Enter A Valid Area Code",
         "Please Enter A Valid Outside Line Prefix", "Please Enter A Valid National Prefix",
         "Please Enter A Valid International Prefix",
         "Please Enter A Valid Dialling (T tone, P pulse)"});
    EXPECT_EQ(location.Result(), (DiallingLocation{"39", "06", "9,,", "", "00", false}));
}

TEST(ModemSettingsForm, ListsOfferOnlyWhatTheChecksTakeAndTheReadyFramings) {
    ModemSettingsForm form(ModemConfig{});
    for (const auto& field : form.fields()) {
        const auto* choices = form.Choices(field.control);
        if (field.box == &form.txtInitString) {
            EXPECT_EQ(choices, nullptr);
            continue;
        }
        ASSERT_NE(choices, nullptr) << field.control;
        for (const auto& choice : *choices) EXPECT_TRUE(field.valid(choice.value)) << choice.value;
    }
    EXPECT_EQ(form.Choices("txtSpeed")->size(), 11u);
    EXPECT_FALSE(form.fields()[1].valid("6"));  // five and six data bits are not offered
    EXPECT_EQ(form.FramingIndex(), 0);
    form.cboFraming_Click(1);
    EXPECT_EQ(form.FramingIndex(), 1);
    EXPECT_EQ(form.Result(), (ModemConfig{115200, 7, 'E', 1, false, ""}));
    form.txtStopBits.Text = "2";
    EXPECT_EQ(form.FramingIndex(), -1);
}

TEST(ModemSettingsForm, RulesOfSpeedAndInitString) {
    ModemSettingsForm form(ModemConfig{9600, 8, 'N', 1, false, "ATM0"});
    const auto valid = [&](TextBox& box, const std::string& text) {
        box.Text = text;
        return form.FirstFault() == nullptr;
    };
    for (const char* speed : {"300", "115200", "460800"}) EXPECT_TRUE(valid(form.txtSpeed, speed));
    for (const char* speed : {"", "0", "9601", "99999999999999", "115200 "})
        EXPECT_FALSE(valid(form.txtSpeed, speed)) << speed;
    form.txtSpeed.Text = "9600";
    for (std::string init : {std::string(), std::string("at&c1"), "AT" + std::string(58, 'Z')})
        EXPECT_TRUE(valid(form.txtInitString, init)) << init;
    for (std::string init : {std::string("A"), std::string("ATZ\r"), std::string("AT\xE9"),
                             "AT" + std::string(59, 'Z')})
        EXPECT_FALSE(valid(form.txtInitString, init)) << init;
}

TEST(DeviceForms, KeyFiltersSwallowWhatAFieldCannotHold) {
    ModemSettingsForm modem(ModemConfig{});
    LocationForm location(DiallingLocation{});
    EXPECT_EQ(modem.KeyPress("txtSpeed", 'k'), 0);
    EXPECT_EQ(modem.KeyPress("txtParity", 'e'), 'E');
    EXPECT_EQ(modem.KeyPress("txtParity", 'x'), 0);
    EXPECT_EQ(modem.KeyPress("txtInitString", '&'), '&');
    EXPECT_EQ(modem.KeyPress("txtInitString", '\xE9'), 0);
    EXPECT_EQ(modem.KeyPress("txtSpeed", '\b'), '\b');  // backspace always works
    EXPECT_EQ(location.KeyPress("txtOutsideLine", ','), ',');
    EXPECT_EQ(location.KeyPress("txtCountryCode", ','), 0);
    EXPECT_EQ(location.KeyPress("txtDialMode", 'p'), 'P');
}

TEST(ModemConfig, RoundTripsAndALaterVersionsFieldIsPassedOver) {
    const ModemConfig config{57600, 7, 'E', 2, true, "AT&K3S7=60"};
    EXPECT_EQ(DecodeModemConfig(EncodeModemConfig(ModemConfig{})), ModemConfig{});
    auto block = EncodeModemConfig(config);
    EXPECT_EQ(DecodeModemConfig(block), config);
    block[4] = 2;
    block.insert(block.end(), {0x77, 0x02, 0x00, 0xAA, 0xBB});
    EXPECT_EQ(DecodeModemConfig(block), config);
}

TEST(ModemConfig, AnythingElseDecodesToNothing) {
    const auto good = EncodeModemConfig(ModemConfig{9600, 8, 'N', 1, false, "ATX3"});
    // Cut anywhere inside a field: refused; cut at a field's end: the fields so far.
    std::size_t accepted = 0;
    for (std::size_t cut = 0; cut < good.size(); ++cut)
        if (DecodeModemConfig(std::vector<std::uint8_t>(good.begin(), good.begin() + cut)))
            ++accepted;
    EXPECT_EQ(accepted, 6u);  // after the header and after each of the first five fields
    const std::vector<std::vector<std::uint8_t>> bad = {
        {},
        {0xAA, 0xBB},  // another device's block
        {'P', 'L', 'M', 'X', 1},
        {'P', 'L', 'M', 'C', 0},
        {'P', 'L', 'M', 'C', 1, 2, 1, 0, 9},               // nine data bits
        {'P', 'L', 'M', 'C', 1, 3, 1, 0, 'X'},             // parity X
        {'P', 'L', 'M', 'C', 1, 1, 2, 0, 1, 2},            // a baud field of two bytes
        {'P', 'L', 'M', 'C', 1, 6, 3, 0, 'A', '\r', 'T'},  // a line end in the init string
        {'P', 'L', 'M', 'C', 1, 6, 0xFF, 0xFF, 'A'},       // a length past the end
    };
    for (const auto& b : bad) EXPECT_FALSE(DecodeModemConfig(b)) << b.size();
    EXPECT_FALSE(UnwrapVarString({1, 2, 3}));
    auto wrapped = WrapVarString(good);
    wrapped[20] = 0xF0;  // an offset beyond the record
    EXPECT_FALSE(UnwrapVarString(wrapped));
    std::mt19937 random(99);
    for (int round = 0; round < 20000; ++round) {
        std::vector<std::uint8_t> noise(random() % 64);
        for (auto& b : noise) b = static_cast<std::uint8_t>(random());
        (void)UnwrapVarString(noise);
    }
}

DiallingLocation London() {
    DiallingLocation here;
    here.areaCode = "0171";
    return here;
}

TEST(DiallingRules, TranslatesTheExampleTable) {
    DiallingLocation switchboard = London();
    switchboard.outsideLine = "9,";
    DiallingLocation newYork = DefaultDiallingLocation("us");
    newYork.areaCode = "212";
    struct Case {
        const char* canonical;
        DiallingLocation here;
        const char* dial;
    };
    const Case cases[] = {
        {"+44 (0171) 555 0101", London(), "5550101"},              // local
        {"+44 (171) 555-0101", London(), "5550101"},               // area written without 0
        {"+44 (0973) 100123", London(), "0973100123"},             // national
        {"+44 7973 100123", London(), "07973100123"},              // no area at all
        {"+39 (06) 1234567", London(), "003961234567"},            // international
        {"+44 (171) 5550101", switchboard, "9,5550101"},           // outside line
        {"  +44(0973)  100 123", London(), "0973100123"},          // odd spacing
        {"+44 () 100123", DiallingLocation{}, "100123"},           // empty area both sides
        {"0973 100123,,*21#", switchboard, "9,0973100123,,*21#"},  // not canonical
        {"123w45", London(), "123W45"},                            // wait kept
        {"+1 (212) 555 0199", newYork, "5550199"},                 // US local
        {"+1 (415) 555 0199", newYork, "14155550199"},             // US national
        {"+44 (0973) 100123", newYork, "01144973100123"},          // US international
    };
    for (const Case& c : cases)
        EXPECT_EQ(TranslateCanonicalAddress(c.canonical, c.here), c.dial) << c.canonical;
    EXPECT_EQ(DefaultDiallingLocation("XX"), DiallingLocation{});  // an unknown country
}

TEST(DiallingRules, LocationSurvivesTheSettings) {
    MemorySettingsStore store;
    Settings settings(store, "Parlane");
    EXPECT_EQ(LoadDiallingLocation(settings, London()).areaCode, "0171");  // nothing stored yet

    DiallingLocation saved = DefaultDiallingLocation("US");
    saved.areaCode = "212";
    saved.outsideLine = "9,";
    saved.tone = false;
    SaveDiallingLocation(settings, saved);
    EXPECT_EQ(LoadDiallingLocation(settings, London()), saved);

    settings.SaveSetting("Location", "Tone", "yes");  // unreadable: the default stands
    EXPECT_TRUE(LoadDiallingLocation(settings, London()).tone);
}

}  // namespace
}  // namespace parlane
