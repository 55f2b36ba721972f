// The directory commands with their entry dialogue, and the group icons.
#include "ui/frm_directory_add.h"
#include "ui/frm_group_add.h"
#include "ui/panel_fixture.h"

namespace parlane {
namespace {

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
