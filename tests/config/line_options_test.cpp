// The one-field dialogues of the line options: what they accept, what they refuse and what a
// refusal leaves behind.
#include <gtest/gtest.h>

#include <span>

#include "config/frm_dial.h"
#include "config/frm_modem_info.h"
#include "config/frm_originator.h"
#include "config/frm_timeout.h"
#include "core/string_bank.h"
#include "core/string_ids.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::TestPlatform;

std::string Text(int id) {
    return FindBankString(id).value_or("<missing>");
}

struct NumberCase {
    const char* typed;
    const char* stored;  // nullptr: refused
    int message;         // the refusal's text id
};

// Runs the cases through one number dialogue. A refusal names its rule, keeps the dialogue open
// on its field and leaves the old value: `old`, stored first when `preset`, or else the default.
template <class Dialog>
void ExpectNumberRules(std::span<const NumberCase> cases, TextBox Dialog::*box,
                       void (Dialog::*ok)(), const char* focus, const char* key,
                       std::int16_t& (*value)(frmMain&), std::int16_t old, bool preset) {
    for (const auto& c : cases) {
        TestPlatform p;
        auto& f = p.load();
        if (preset) {
            p.settings.write("Parlane", "Settings", key, std::to_string(old));
            value(f) = old;
        }
        EXPECT_EQ(value(f), old);
        const auto stored = p.settings.read("Parlane", "Settings", key);
        Dialog dialog(f);
        dialog.Form_Load();
        EXPECT_EQ((dialog.*box).Text, std::to_string(old));
        (dialog.*box).Text = c.typed;
        (dialog.*ok)();
        EXPECT_EQ(dialog.unloaded, c.stored != nullptr) << c.typed;
        if (c.stored) {
            EXPECT_TRUE(p.dialogues.shown.empty()) << c.typed;
            EXPECT_EQ(p.settings.read("Parlane", "Settings", key), c.stored);
            EXPECT_EQ(std::to_string(value(f)), c.stored);
        } else {
            EXPECT_EQ(dialog.focusedControl, focus) << c.typed;
            ASSERT_EQ(p.dialogues.shown.size(), 1u) << c.typed;
            EXPECT_EQ(p.dialogues.shown[0].prompt, Text(c.message)) << c.typed;
            EXPECT_EQ(p.dialogues.shown[0].flags, MbInformation);
            EXPECT_EQ(p.settings.read("Parlane", "Settings", key), stored);
            EXPECT_EQ(value(f), old);
        }
    }
}

TEST(DialAttempts, AcceptsOneOrMoreUpTo32767AndRefusalsKeepTheOldValue) {
    const int one = sid::MustEnterAtLeastOne, large = sid::NumberTooLarge;
    // clang-format off
    const NumberCase cases[] = {
        {"0", nullptr, one}, {"00", nullptr, one}, {"", nullptr, one}, {"-2", nullptr, one},
        {"32768", nullptr, large}, {"99999999999", nullptr, large}, {"1", "1", 0}, {"+3", "3", 0},
        {"3+4", "3", 0}, {"040", "40", 0}, {"32767", "32767", 0}, {"7 tries", "7", 0}};
    // clang-format on
    ExpectNumberRules<frmDial>(
        cases, &frmDial::txtDialAttempts, &frmDial::cmdProvidersClose_Click, "txtDialAttempts",
        "MaxDial", [](frmMain& f) -> std::int16_t& { return f.state.MaxDialAttempts; }, 5, true);
}

TEST(ResponseTimeout, ThirtyIsTheLeastAndTheLowBoundIsCheckedFirst) {
    const int thirty = sid::MustEnterAtLeast30;
    const NumberCase cases[] = {{"29", nullptr, thirty}, {"", nullptr, thirty},
                                {"+", nullptr, thirty},  {"40000", nullptr, sid::NumberTooLarge},
                                {"30", "30", 0},         {"+045", "45", 0}};
    ExpectNumberRules<frmTimeout>(
        cases, &frmTimeout::txtResponseSecs, &frmTimeout::cmdOK_Click, "txtResponseSecs", "Timeout",
        [](frmMain& f) -> std::int16_t& { return f.ResponseTimeoutSecs; }, 30, false);
}

TEST(NumberFields, TakeDigitsPlusAndBackspaceAndSelectAllOnFocus) {
    TestPlatform p;
    auto& f = p.load();
    frmDial dial(f);
    frmTimeout timeout(f);
    dial.Form_Load();
    for (int key = 1; key < 256; ++key) {
        const bool wanted = (key >= '0' && key <= '9') || key == '+' || key == 8;
        EXPECT_EQ(dial.txtDialAttempts_KeyPress(key), wanted ? key : 0) << key;
        EXPECT_EQ(timeout.txtResponseSecs_KeyPress(key), wanted ? key : 0) << key;
    }
    dial.txtDialAttempts.Text = "123";
    dial.txtDialAttempts.SelStart = 2;
    dial.txtDialAttempts_GotFocus();
    EXPECT_EQ(dial.txtDialAttempts.SelStart, 0);
    EXPECT_EQ(dial.txtDialAttempts.SelLength, 3);
}

// Typed keys are checked through the view (QtOriginatorDialog); pasted text keeps to the same
// rule, and an empty field closes without a word and keeps the old value.
TEST(Originator, PastedTextKeepsSixteenDigitsAndAnEmptyFieldKeepsTheOldValue) {
    TestPlatform p;
    auto& f = p.load();
    frmOriginator dialog(f);
    dialog.Form_Load();
    EXPECT_EQ(dialog.txtID.Text, "12345");
    dialog.txtID.Text = "+44 7801/234567 and more digits 12345";
    dialog.txtID_Change();
    EXPECT_EQ(dialog.txtID.Text, "4478012345671234");
    EXPECT_EQ(dialog.txtID.SelStart, 16);
    dialog.cmdOK_Click();
    EXPECT_TRUE(dialog.unloaded);
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Originator"), "4478012345671234");
    EXPECT_EQ(f.state.OriginatorId, "4478012345671234");

    frmOriginator again(f);
    again.Form_Load();
    again.txtID.Text.clear();
    again.cmdOK_Click();
    EXPECT_TRUE(again.unloaded);
    EXPECT_TRUE(p.dialogues.shown.empty());
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Originator"), "4478012345671234");
    EXPECT_EQ(f.state.OriginatorId, "4478012345671234");
}

TEST(ModemInfo, EveryClickStoresTheTickAndOneStopsTheNotice) {
    TestPlatform p;
    auto& f = p.load();
    EXPECT_TRUE(frmModemInfo::Wanted(f.settings()));
    frmModemInfo dialog(f);
    dialog.Form_Load();
    EXPECT_FALSE(dialog.chkShowModemInfo.Value);
    dialog.chkShowModemInfo.Value = true;
    dialog.chkShowModemInfo_Click();
    EXPECT_FALSE(frmModemInfo::Wanted(f.settings()));
    dialog.chkShowModemInfo.Value = false;
    dialog.chkShowModemInfo_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Options", "ModemTip"), "0");
    EXPECT_TRUE(frmModemInfo::Wanted(f.settings()));
    dialog.cmdOK_Click();
    EXPECT_TRUE(dialog.unloaded);
}

}  // namespace
}  // namespace parlane
