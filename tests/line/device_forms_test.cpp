// The device dialogs' models: the order and words of their checks, their key filters, and what
// they hand back. The ports form is tried through the device list (device_config_test.cpp).
#include <gtest/gtest.h>

#include "line/at/location_form.h"
#include "line/at/modem_settings_form.h"
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

TEST(ModemSettingsForm, ChecksEachFieldInOrderAndGivesTheSettingsBack) {
    ModemSettingsForm form(ModemConfig{});
    ExpectCheckOrder(form, {"1234", "9", "X", "3", "X", "ZZZ"},
                     {"2400", "7", "E", "2", "H", "AT&F1"},
                     {"Please Enter A Valid Speed (bits per second)",
                      "Please Enter A Valid Data Bits", "Please Enter A Valid Parity",
                      "Please Enter A Valid Stop Bits", "Please Enter A Valid Flow Control",
                      "Please Enter A Valid Initialisation Command (AT...)"});
    EXPECT_EQ(form.Result(), (ModemConfig{2400, 7, 'E', 2, true, "AT&F1"}));
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

TEST(LocationForm, ChecksEachFieldInOrderAndGivesTheLocationBack) {
    LocationForm form(DiallingLocation{});
    EXPECT_EQ(form.txtDialMode.Text, "T");
    ExpectCheckOrder(
        form, {"1234", "0171a", "9;", "0x", "", "X"}, {"39", "06", "9,,", "", "00", "P"},
        {"Please Enter A Valid Country Code", "Please Enter A Valid Area Code",
         "Please Enter A Valid Outside Line Prefix", "Please Enter A Valid National Prefix",
         "Please Enter A Valid International Prefix",
         "Please Enter A Valid Dialling (T tone, P pulse)"});
    EXPECT_EQ(form.Result(), (DiallingLocation{"39", "06", "9,,", "", "00", false}));
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

}  // namespace
}  // namespace parlane
