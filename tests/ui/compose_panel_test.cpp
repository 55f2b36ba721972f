// The compose panel's key rules, name completion, centre limit and Insert Text File.
#include "support/temp_files.h"
#include "ui/panel_fixture.h"

namespace parlane {
namespace {

using ComposePanel = PanelFixture;

TEST_F(ComposePanel, NumberFieldsTakeDigitsOnlyAndAlwaysDropThePerson) {
    for (int key : {int{'a'}, int{'5'}, int{'+'}, 8, int{' '}, int{'-'}}) {
        pick(f->Names, "Ann");
        const bool passes = key == '5' || key == '+' || key == 8;
        EXPECT_EQ(f->NumberField_KeyPress(key), passes ? key : 0) << key;
        EXPECT_EQ(f->Names.ListIndex, -1);
        EXPECT_EQ(f->Names.Text, "Names");
    }
    pick(f->Country, "Vatican City");
    f->Country_Click();
    EXPECT_EQ(f->txtCountryCode.Text, "39");
    EXPECT_EQ(f->focusedControl, "txtAreaCode");
}

TEST_F(ComposePanel, CompletionInsertsTheTailSelectedAndBackspaceDoesNotBringItBack) {
    auto type = [&](const std::string& text) {
        f->Names.Text = text;
        f->Names.SelStart = static_cast<int>(text.size());
        f->Names.SelLength = 0;
        f->Names_Change();
    };
    type("smi");
    EXPECT_EQ(f->Names.Text, "smith");  // the first row in the list, typed case kept
    EXPECT_EQ(f->Names.SelStart, 3);
    EXPECT_EQ(f->Names.SelLength, 2);
    // Backspace removes the selection; that change is not completed.
    f->Names_KeyDown(8);
    type("smi");
    EXPECT_EQ(f->Names.Text, "smi");
    // The next key completes again.
    type("smit");
    EXPECT_EQ(f->Names.Text, "smith");
    type("Smithso");
    EXPECT_EQ(f->Names.Text, "Smithson");
    EXPECT_EQ(f->Names.SelLength, 1);
    type("Smith");  // equal to a row: nothing to add
    EXPECT_EQ(f->Names.Text, "Smith");
    EXPECT_EQ(f->Names.SelLength, 0);
    type("Zed");
    EXPECT_EQ(f->Names.Text, "Zed");

    // Leaving the box with an unknown name keeps the number fields.
    f->txtNumber.Text = "999";
    f->Names_LostFocus();
    EXPECT_EQ(f->txtNumber.Text, "999");
    pick(f->Names, "Smithson");
    f->Names_Click();
    EXPECT_EQ(f->txtNumber.Text, "111");
    EXPECT_EQ(f->Services.Text, "Gamma");
    EXPECT_EQ(f->focusedControl, "txtMessage");
}

TEST_F(ComposePanel, TheCentreSetsTheLimitAndTheKeyRuleEnforcesIt) {
    EXPECT_EQ(f->CurrentMaxChars, 160);
    EXPECT_EQ(f->lblTextCounter.Caption, "0");
    f->txtMessage.Text = "twelve chars";
    f->txtMessage_Change();
    pick(f->Services, "Short");
    f->Services_Click();
    EXPECT_EQ(f->CurrentMaxChars, 10);
    EXPECT_EQ(f->lblTotal.Caption, "/10");
    EXPECT_EQ(f->txtMessage.Text, "twelve chars");  // nothing is cut
    EXPECT_EQ(f->txtMessage_KeyPress('a'), 0);
    EXPECT_EQ(f->txtMessage_KeyPress(8), 8);
    f->txtMessage.Text = "nine char";
    f->txtMessage_Change();
    EXPECT_EQ(f->txtMessage_KeyPress('a'), 'a');
    EXPECT_EQ(f->txtMessage_KeyPress(13), 0);
    EXPECT_EQ(f->txtMessage_KeyPress(10), 0);

    // An assigned name selects its row; an unknown one leaves the selection.
    f->Services.Text = "Gamma";
    f->Services_Change();
    EXPECT_EQ(f->Services.ListIndex, 2);
    EXPECT_EQ(f->lblTotal.Caption, "/160");
    f->Services.Text = "Gone";
    f->Services_Change();
    EXPECT_EQ(f->Services.ListIndex, 2);
}

// A centre or text that code sets (a name's own centre, a queued message taken back) moves the
// limit and the counter as a pick or typing would, with no window to pass them on.
TEST_F(ComposePanel, CentreAndTextSetByCodeBringLimitAndCounterAlong) {
    ASSERT_EQ(f->lblTotal.Caption, "/160");
    pick(f->Services, "Short");
    f->txtMessage.Text = "0123456789";
    f->changed();
    EXPECT_EQ(f->lblTotal.Caption, "/10");
    EXPECT_EQ(f->lblTextCounter.Caption, "10");
    EXPECT_FALSE(f->mnuInsert.Enabled);
}

struct InsertTextFile : PanelFixture {
    testing::PickedFile chooser;
    void SetUp() override {
        PanelFixture::SetUp();
        f->openFileChooser = &chooser;
    }
    void insert(const std::string& text, const std::string& fileBytes) {
        testing::WriteBytes(p.home / "in.txt", fileBytes);
        chooser.file = p.home / "in.txt";
        f->txtMessage.Text = text;
        f->txtMessage_Change();
        f->mnuInsert_Click();
    }
};

TEST_F(InsertTextFile, AppendsPrintableCharactersUpToTheLimitByEquality) {
    insert("Hi ", "one\ttwo\r\nthree");
    EXPECT_EQ(f->txtMessage.Text, "Hi onetwothree");
    EXPECT_EQ(f->txtMessage.SelStart, 14);
    EXPECT_TRUE(p.dialogues.shown.empty());
    EXPECT_EQ(chooser.asked,
              "Insert Text File|" + p.home.string() + "|*.txt|All Files (*.txt)|*.txt");

    insert(std::string(159, 'x'), "abc");
    EXPECT_EQ(f->txtMessage.Text, std::string(159, 'x') + "a");
    EXPECT_FALSE(f->mnuInsert.Enabled);
    EXPECT_EQ(lastBox().prompt, "Too many characters for the selected SMSC. File truncated to 160");
    EXPECT_EQ(lastBox().flags, MbInformation);
    EXPECT_EQ(lastBox().title, "Parlane");

    // A file of exactly the room left still gets the message.
    p.dialogues.shown.clear();
    insert(std::string(157, 'x'), "a\r\nbc");
    EXPECT_EQ(f->txtMessage.Text.size(), 160u);
    EXPECT_EQ(p.dialogues.shown.size(), 1u);

    // Over a lower limit already: equality never comes, the whole file goes in.
    pick(f->Services, "Short");
    f->Services_Click();
    p.dialogues.shown.clear();
    insert("twelve chars", "more");
    EXPECT_EQ(f->txtMessage.Text, "twelve charsmore");
    EXPECT_TRUE(p.dialogues.shown.empty());
    EXPECT_EQ(f->busyDepth, 0);
}

TEST_F(InsertTextFile, CancelAndUnreadableFilesChangeNothing) {
    f->txtMessage.Text = "kept";
    chooser.file.reset();
    f->mnuInsert_Click();
    chooser.file = std::filesystem::path();
    f->mnuInsert_Click();
    chooser.file = p.home / "missing.txt";
    f->mnuInsert_Click();
    chooser.file = p.home;  // a folder
    f->mnuInsert_Click();
    EXPECT_EQ(f->txtMessage.Text, "kept");
    EXPECT_TRUE(p.dialogues.shown.empty());
    EXPECT_EQ(f->busyDepth, 0);
}

}  // namespace
}  // namespace parlane
