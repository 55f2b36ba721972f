// The main window's panels on a loaded window with three centres (Short allows 10 characters) and
// a small directory: the compose panel's key rules, name completion, centre limit and Insert Text
// File; looking at, taking back and removing waiting messages; the directory commands with their
// entry dialogue, and the group icons.
#include <gtest/gtest.h>

#include "core/file_io.h"
#include "store/directory.h"
#include "support/temp_files.h"
#include "support/test_platform.h"
#include "ui/frm_directory_add.h"
#include "ui/frm_group_add.h"

namespace parlane {
namespace {

struct PanelFixture : ::testing::Test {
    testing::TestPlatform p;
    frmMain* f = nullptr;
    void SetUp() override {
        auto shortCentre = testing::MakeProvider("Short");
        shortCentre.MaxChars = "10";
        p.writeProviders(
            {testing::MakeProvider("Alpha"), shortCentre, testing::MakeProvider("Gamma")});
        p.writeDirectory({{"Smithson", "44", "07", "111", "Gamma"},
                          {"Smith", "44", "07", "222", ""},
                          {"Ann", "39", "06", "333", ""}});
        f = &p.load();
    }
    // Selects a row of a list by its text, as a click would.
    static void pick(ListControl& list, const std::string& text) {
        list.select(list.FindRow(text));
    }
    const testing::ScriptedDialogues::Shown& lastBox() const { return p.dialogues.shown.back(); }
};

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

    // A centre or text that code sets (a name's own centre, a queued message taken back) moves
    // the limit and the counter as a pick or typing would, with no window to pass them on.
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

// A UTF-8 file (the usual one on Linux) is read as such, its length counted in the code page;
// characters the code page lacks are asked about first, and No inserts nothing.
TEST_F(InsertTextFile, Utf8IsReadAsSuchAndLostCharactersAreAskedAbout) {
    insert("",
           "\xEF\xBB\xBFM\xC3\xBCller \xE2\x82\xAC"
           "5");
    EXPECT_EQ(f->txtMessage.Text,
              "M\xFCller \x80"
              "5");
    EXPECT_TRUE(p.dialogues.shown.empty());

    insert("", "ok \xE2\x9C\x93");
    EXPECT_EQ(f->txtMessage.Text, "");
    EXPECT_EQ(lastBox().prompt,
              "The file holds characters that cannot be kept:\r\nU+2713\r\n\r\nEach of them would "
              "become \"?\". Go on?");
    p.dialogues.answers.push_back(AnswerYes);
    insert("", "ok \xE2\x9C\x93");
    EXPECT_EQ(f->txtMessage.Text, "ok ?");
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

struct QueueCommands : PanelFixture {
    void SetUp() override {
        PanelFixture::SetUp();
        for (const char* text : {"one", "two", "three"})
            testing::QueueTexts(*f, {text}, "44", "07", text);
        ASSERT_EQ(f->MessageQueue.ListCount(), 3);
    }
};

TEST_F(QueueCommands, RemovingShowsTheCountLeft) {
    f->MessageQueue.ListIndex = 1;
    f->MessageQueue_Click();
    EXPECT_EQ(f->txtMessageQueue.Text, "two");
    const char* expected[] = {"2 Messages in Queue", "1 Message in Queue", ""};
    for (const char* status : expected) {
        f->MessageQueue.ListIndex = 0;
        f->mnuRemove_Click();
        EXPECT_EQ(f->lblInfo.Caption, status);
        EXPECT_EQ(f->txtMessageQueue.Text, "");
    }
    EXPECT_EQ(UpperBound(f->QueueBuffer), 0);
    f->MessageQueue_MouseUp();
    EXPECT_FALSE(f->mnuEdit.Enabled || f->mnuRemove.Enabled || f->mnuClear.Enabled);
}

TEST_F(QueueCommands, EditTakesTheMessageBackAndKeepsAnUnlistedCentre) {
    f->QueueBuffer[2].ProviderName = "Gone";
    pick(f->Services, "Short");
    f->MessageQueue.ListIndex = 1;
    f->MessageQueue_DblClick();
    EXPECT_EQ(f->txtMessage.Text, "two");
    EXPECT_EQ(f->txtNumber.Text, "two");
    EXPECT_EQ(f->Services.Text, "Short");
    EXPECT_EQ(f->lblTextCounter.Caption, "3");
    ASSERT_EQ(UpperBound(f->QueueBuffer), 2);
    EXPECT_EQ(f->QueueBuffer[2].Text, "three");
    EXPECT_EQ(f->lblInfo.Caption, "2 Messages in Queue");

    f->MessageQueue.ListIndex = 0;
    f->mnuEdit_Click();
    EXPECT_EQ(f->Services.Text, "Alpha");
}

TEST_F(QueueCommands, ContextMenuAndClearAll) {
    f->MessageQueue.ListIndex = -1;
    f->mnuEdit.Enabled = f->mnuRemove.Enabled = false;
    f->MessageQueue_MouseUp();
    EXPECT_FALSE(f->mnuEdit.Enabled || f->mnuRemove.Enabled);  // kept as they were
    EXPECT_TRUE(f->mnuClear.Enabled);
    f->MessageQueue.ListIndex = 0;
    f->MessageQueue_MouseUp();
    EXPECT_TRUE(f->mnuEdit.Enabled && f->mnuSeparator12.Enabled && f->mnuRemove.Enabled);

    f->mnuClear_Click();  // No
    EXPECT_EQ(lastBox().prompt,
              "Are you certain you want to delete all messages waiting in the Message Queue?");
    EXPECT_EQ(UpperBound(f->QueueBuffer), 3);
    EXPECT_EQ(f->MessageQueue.ListCount(), 3);
    p.dialogues.answers = {AnswerYes};
    f->mnuClear_Click();
    EXPECT_EQ(UpperBound(f->QueueBuffer), 0);
    EXPECT_EQ(f->MessageQueue.ListCount(), 0);
    EXPECT_EQ(f->lblInfo.Caption, "");
}

using DirectoryCommands = PanelFixture;

TEST_F(DirectoryCommands, NewAndEditOpenTheDialogueFilledAndTitled) {
    std::vector<frmDirectoryAdd> opened;
    f->showDirectoryAdd = [&](frmDirectoryAdd& d) { opened.push_back(d); };
    // A typed name not in the directory: Edit goes to New.
    f->Names.Text = "Newman";
    f->txtCountryCode.Text.clear();
    pick(f->Services, "Short");
    f->mnuEditPhone_Click();
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0].Caption, "Directory Item - Add New Entry");
    EXPECT_EQ(opened[0].txtName.Text, "Newman");
    EXPECT_EQ(opened[0].txtCountryCode.Text, "44");  // from the dialling location
    EXPECT_TRUE(opened[0].chkUseService.Value);
    EXPECT_TRUE(opened[0].Services.Enabled);
    EXPECT_EQ(opened[0].Services.Text, "Short");

    f->Names.Text = "Names";
    f->mnuEditPhone_Click();
    EXPECT_EQ(opened.at(1).txtName.Text, "");

    f->Names.Text.clear();
    f->mnuEditPhone_Click();
    EXPECT_EQ(opened.size(), 2u);
    EXPECT_EQ(lastBox().prompt, "Select Name");
    EXPECT_EQ(f->focusedControl, "Names");

    pick(f->Names, "Smith");
    f->mnuEditPhone_Click();
    EXPECT_EQ(opened.at(2).Caption, "Directory Item - Edit Current Entry");
    EXPECT_EQ(opened[2].txtNumber.Text, "222");
    EXPECT_FALSE(opened[2].chkUseService.Value);  // no centre of its own
    EXPECT_FALSE(opened[2].Services.Enabled);

    // Nobody to show the dialogue to: nothing changes.
    f->showDirectoryAdd = nullptr;
    f->mnuNew_Click();
    EXPECT_EQ(f->Directory.size(), 3u);
}

TEST_F(DirectoryCommands, EntryDialogueChecksInOrderThenSaves) {
    frmDirectoryAdd d(*f, {});
    d.Form_Load();
    EXPECT_EQ(d.NumberField_KeyPress('x'), 0);
    EXPECT_EQ(d.Services_KeyPress(8), 8);
    EXPECT_EQ(d.Services_KeyPress('a'), 0);
    const struct {
        TextBox* field;
        std::string value;
        const char* message;
        const char* focus;
    } steps[] = {
        {&d.txtName, "Smith", "Please Enter A Name", "txtName"},
        {&d.txtCountryCode, "44", "Please Enter A Country Code", "txtCountryCode"},
        {&d.txtAreaCode, "07", "Please Enter An Area Code", "txtAreaCode"},
        {&d.txtNumber, "555", "Please Enter A Telephone Number", "txtNumber"},
    };
    for (const auto& s : steps) {
        d.cmdProviderItemOk_Click();
        EXPECT_EQ(lastBox().prompt, s.message);
        EXPECT_EQ(lastBox().flags, MbInformation);
        EXPECT_EQ(d.focusedControl, s.focus);
        EXPECT_FALSE(d.unloaded);
        s.field->Text = s.value;
    }
    d.cmdProviderItemOk_Click();
    EXPECT_EQ(lastBox().prompt,
              "This Telephone Directory name already exists. Please choose a new name");
    EXPECT_EQ(lastBox().flags, MbExclamation);
    EXPECT_EQ(d.focusedControl, "txtName");
    EXPECT_EQ(f->busyDepth, 0);

    // Another case passes the exact test and then overwrites that entry.
    d.txtName.Text = "SMITH";
    d.chkUseService.Value = true;
    pick(d.Services, "Gamma");
    d.cmdProviderItemOk_Click();
    EXPECT_TRUE(d.unloaded);
    ASSERT_EQ(f->Directory.size(), 3u);
    EXPECT_EQ(f->Directory[1], (DirectoryEntry{"SMITH", "44", "07", "555", "Gamma"}));
    EXPECT_EQ(ParseDirectoryFile(*ReadWholeFile(p.home / "phones.dat")).records, f->Directory);

    frmDirectoryAdd cancelled(*f, {"Zed", "1", "2", "3", ""});
    cancelled.Form_Load();
    cancelled.cmdProviderItemCancel_Click();
    EXPECT_TRUE(cancelled.unloaded);
    EXPECT_EQ(cancelled.Entry.Name, "");
    EXPECT_EQ(f->FindName("Zed"), -1);
}

TEST_F(DirectoryCommands, DeleteAsksAndRefusesTheOnlyEntry) {
    f->Names.ListIndex = -1;
    f->mnuDelete_Click();
    EXPECT_EQ(lastBox().prompt, "Select Name To Delete");
    pick(f->Names, "Ann");
    f->mnuDelete_Click();  // the scripted answer is No
    EXPECT_EQ(lastBox().prompt, "Are you certain you want to delete Ann");
    EXPECT_EQ(lastBox().flags, MbQuestionYesNo);
    EXPECT_EQ(f->Directory.size(), 3u);
    for (const char* name : {"Ann", "Smith"}) {
        pick(f->Names, name);
        p.dialogues.answers = {AnswerYes};
        f->mnuDelete_Click();
    }
    ASSERT_EQ(f->Directory.size(), 1u);
    pick(f->Names, "Smithson");
    p.dialogues.answers = {AnswerYes};
    f->mnuDelete_Click();
    EXPECT_EQ(lastBox().prompt,
              "It is not possible to delete the only entry in the Telephone Directory");
    EXPECT_EQ(lastBox().flags, MbExclamation);
    EXPECT_EQ(f->Directory.size(), 1u);
}

struct GroupCommands : PanelFixture {
    void SetUp() override {
        PanelFixture::SetUp();
        ASSERT_TRUE(f->AddGroup("Staff"));
        ASSERT_TRUE(f->AddGroup("Family"));
        pick(f->cmbGroupName, "Staff");
        f->cmbGroupName_Click();
    }
};

TEST_F(GroupCommands, AddingAndRemovingMembers) {
    pick(f->Names, "Ann");
    f->AddToGroupList();
    pick(f->Names, "Smith");
    f->AddToGroupList();
    f->AddToGroupList();
    EXPECT_EQ(lastBox().prompt,
              "This name is already in the Group list and can not be added again");
    EXPECT_EQ(ParseNameListFile(*ReadWholeFile(p.home / "Data" / "Staff.dat")).records,
              (std::vector<std::string>{"Ann", "Smith"}));

    f->lstGroup_MouseUp();
    EXPECT_FALSE(f->mnuRemoveName.Enabled);
    f->lstGroup.select(0);
    f->lstGroup_MouseUp();
    EXPECT_TRUE(f->mnuRemoveName.Enabled);
    f->mnuRemoveName_Click();
    f->lstGroup.select(0);
    f->mnuRemoveName_Click();  // the last member: the file keeps it
    EXPECT_EQ(ParseNameListFile(*ReadWholeFile(p.home / "Data" / "Staff.dat")).records,
              std::vector<std::string>{"Smith"});
}

TEST_F(GroupCommands, UseThisGroupListLocksTheWindowWhileEventsRun) {
    f->txtMessage.Text = "to all";
    f->UseThisGroupList();
    EXPECT_EQ(lastBox().prompt, "There are no names in this Group List");
    for (const char* name : {"Ann", "Gone", "Smith"}) f->lstGroup.AddItem(name);

    // Runs inside the loop, through its events.
    std::vector<bool> locked;
    p.loop.post([&] {
        locked.push_back(!f->mnuInsert.Visible && !f->mnuQueue.Enabled &&
                         !f->picToolIconsEnabled[11] && !f->picToolIconsEnabled[0] &&
                         f->progress.Visible);
    });
    f->UseThisGroupList();
    EXPECT_EQ(locked, std::vector<bool>{true});
    // Every member queued with its own centre; the one not in the directory is archived.
    ASSERT_EQ(UpperBound(f->QueueBuffer), 2);
    EXPECT_EQ(f->QueueBuffer[1].Number, "333");
    EXPECT_EQ(f->QueueBuffer[2].Text, "to all");
    EXPECT_EQ(p.archiveFiles().size(), 1u);
    EXPECT_EQ(f->txtMessage.Text, "");
    EXPECT_TRUE(f->mnuInsert.Visible && f->mnuSeparator11.Visible && f->mnuQueue.Enabled &&
                f->mnuGroup.Enabled && f->mnuData.Enabled && f->picToolIconsEnabled[13]);
    EXPECT_FALSE(f->progress.Visible);
    EXPECT_EQ(f->busyDepth, 0);

    f->cmbGroupName.ListIndex = -1;
    f->UseThisGroupList();
    EXPECT_EQ(lastBox().prompt, "Please select a Group to send your message to");
    EXPECT_EQ(f->focusedControl, "cmbGroupName");
}

TEST_F(GroupCommands, AddAndDeleteGroups) {
    std::vector<std::string> refusals;
    f->showGroupAdd = [&](frmGroupAdd& d) {
        EXPECT_EQ(d.Caption, "Group Name To Add");
        for (const char* name : {"", "Staff", "Friends"}) {
            d.txtName.Text = name;
            d.cmdProviderItemOk_Click();
            if (!d.unloaded) refusals.push_back(lastBox().prompt + "|" + d.txtName.Text);
        }
        EXPECT_EQ(d.NewGroupName, "Friends");
    };
    f->AddNewGroup();
    EXPECT_EQ(refusals, (std::vector<std::string>{
                            "Please enter a name for this new Group|",
                            "This Group Name already exists. Please choose a new name|"}));
    EXPECT_EQ(f->cmbGroupName.Text, "Friends");

    p.dialogues.answers = {AnswerNo};
    f->DeleteCurrentGroup();
    EXPECT_EQ(lastBox().prompt, "Are you certain you want to remove Friends group?");
    EXPECT_EQ(f->cmbGroupName.ListCount(), 3);
    for (int i = 0; i < 2; ++i) {
        p.dialogues.answers = {AnswerYes};
        f->DeleteCurrentGroup();
    }
    EXPECT_EQ(f->cmbGroupName.ListCount(), 1);
    f->DeleteCurrentGroup();
    EXPECT_EQ(lastBox().prompt, "You must leave at least one Group Name in the directory");
    f->cmbGroupName.ListIndex = -1;
    f->DeleteCurrentGroup();
    EXPECT_EQ(lastBox().prompt, "Please select a Group to delete");
}

}  // namespace
}  // namespace parlane
