// The standard-texts window: what a click adds to the message, where it is cut, and how the
// notes are edited.
#include "ui/frm_tool_window.h"

#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::TestPlatform;

struct ToolFixture {
    TestPlatform p;
    frmMain& f = p.load();
    frmToolWindow tools{f};

    ToolFixture() {
        f.lblTotal.Caption = "/10";
        tools.Form_Load();
    }
    void note(int n, const std::string& text) {
        p.settings.write("Parlane", "Texts", "Note" + std::to_string(n), text);
    }
};

TEST(StandardTexts, InsertAppendsAndCutsAtTheLimitOfTheTotal) {
    struct Case {
        const char* message;
        const char* note;
        const char* after;
    } cases[] = {
        {"Hi ", "there, friend", "Hi there, "},  // cut where the limit is reached
        {"0123456789", "more", "0123456789"},    // already at the limit
        {"0123456789ABCDEF", "", "0123456789"},  // over the limit after a change of centre
        {"Hi", "", "Hi"},                        // an empty note only moves the focus
        {"", "abc", "abc"},
        {"", "", ""},  // nothing at all, not even the focus, when the message would stay empty
    };
    for (const auto& c : cases) {
        ToolFixture t;
        t.note(3, c.note);
        t.f.txtMessage.Text = c.message;
        t.f.txtMessage.SelStart = 0;  // the caret's place does not matter
        t.f.focusedControl.clear();
        const bool acted = *c.after;
        EXPECT_EQ(t.tools.picToolIcons_Click(2), acted) << c.message << c.note;
        EXPECT_EQ(t.f.txtMessage.Text, c.after) << c.message << c.note;
        EXPECT_EQ(t.f.txtMessage.SelStart,
                  acted ? static_cast<int>(t.f.txtMessage.Text.size()) : 0);
        EXPECT_EQ(t.f.focusedControl, acted ? "txtMessage" : "");
        EXPECT_TRUE(t.p.dialogues.shown.empty());
    }
}

TEST(StandardTexts, SignatureTimeAndDateAndNoLimitBeforeAnyCentre) {
    ToolFixture t;
    t.f.lblTotal.Caption = "";
    EXPECT_EQ(TotalLimit(Label{"/"}), 0);
    // The signature offers its default; an empty answer stores nothing.
    t.tools.mnuSig_Click();
    EXPECT_EQ(t.p.dialogues.shown.back().prompt, "Enter your signature line");
    EXPECT_EQ(t.p.dialogues.inputDefaults.back(), "My Signature");
    EXPECT_FALSE(t.p.settings.read("Parlane", "Texts", "Signature"));
    t.tools.picToolIcons_Click(frmToolWindow::kSignatureIcon);
    EXPECT_EQ(t.f.txtMessage.Text, "My Signature");
    t.p.dialogues.inputs = {"-- Ann"};
    t.tools.mnuSig_Click();
    t.f.txtMessage.Text.clear();
    t.tools.picToolIcons_Click(frmToolWindow::kSignatureIcon);
    EXPECT_EQ(t.f.txtMessage.Text, "-- Ann");
    t.f.txtMessage.Text.clear();
    t.tools.picToolIcons_Click(frmToolWindow::kDateIcon);
    t.tools.picToolIcons_Click(frmToolWindow::kDateIcon);
    EXPECT_EQ(t.f.txtMessage.Text, "02/01/202602/01/2026");  // nothing between the two
    t.tools.picToolIcons_Click(frmToolWindow::kTimeIcon);
    EXPECT_EQ(t.f.txtMessage.Text, "02/01/202602/01/202610:00");
}

TEST(StandardTexts, EditingANoteAsksTextThenNameAndAnEmptyAnswerEndsIt) {
    ToolFixture t;
    t.note(2, "old text");
    // Cancel at the text: nothing changes and no name is asked.
    t.tools.mnu2_Click();
    ASSERT_EQ(t.p.dialogues.shown.size(), 1u);
    EXPECT_EQ(t.p.dialogues.shown[0].prompt, "Enter your text for Note 2");
    EXPECT_EQ(t.p.dialogues.shown[0].title, "Parlane");
    EXPECT_EQ(t.p.dialogues.inputDefaults[0], "old text");
    EXPECT_EQ(t.p.settings.read("Parlane", "Texts", "Note2"), "old text");

    // A text, then cancel at the name: the text stays stored, the name as it was.
    t.p.dialogues.inputs = {"new text"};
    t.tools.mnu2_Click();
    ASSERT_EQ(t.p.dialogues.shown.size(), 3u);
    EXPECT_EQ(t.p.dialogues.shown[2].prompt, "Enter the name for note 2");
    EXPECT_EQ(t.p.settings.read("Parlane", "Texts", "Note2"), "new text");
    EXPECT_FALSE(t.p.settings.read("Parlane", "Texts", "Name2"));
    EXPECT_EQ(t.tools.mnuNote[1].Caption, "Note2");
    EXPECT_EQ(t.tools.picToolIconsToolTipText[1], "Note2");

    t.p.dialogues.inputs = {"newer", "Greeting"};
    t.tools.mnu2_Click();
    EXPECT_EQ(t.p.dialogues.inputDefaults[3], "new text");
    EXPECT_EQ(t.p.settings.read("Parlane", "Texts", "Name2"), "Greeting");
    EXPECT_EQ(t.tools.mnuNote[1].Caption, "Greeting");
    EXPECT_EQ(t.tools.picToolIconsToolTipText[1], "Greeting");
    // The next window takes the stored name.
    frmToolWindow again(t.f);
    again.Form_Load();
    EXPECT_EQ(again.mnuNote[1].Caption, "Greeting");
    EXPECT_EQ(again.picToolIconsToolTipText[1], "Greeting");
    EXPECT_EQ(again.mnuNote[2].Caption, "Note3");
}

TEST(StandardTexts, PlacedRightOfTheMainWindowOrAgainstTheScreenEdge) {
    const ScreenRect screen{0, 0, 1920, 1080};
    const struct {
        ScreenRect main, screen;
        int x, y;
    } cases[] = {
        {{100, 50, 800, 600}, screen, 900, 50},
        {{1000, 70, 800, 600}, screen, 1720, 70},
        {{921, 0, 800, 600}, screen, 1720, 0},                    // one pixel short of room
        {{2000, 10, 800, 600}, {1920, 0, 1280, 1024}, 2800, 10},  // a second screen to the right
    };
    for (const auto& c : cases) {
        const auto at = ToolWindowTopLeft(c.main, c.screen, 200);
        EXPECT_EQ(at.x, c.x) << c.main.left;
        EXPECT_EQ(at.y, c.y) << c.main.left;
    }
}

}  // namespace
}  // namespace parlane
