// The directory commands (New, Edit, Delete) and the four group icons.
#include <cmath>
#include <exception>

#include "core/string_ids.h"
#include "line/tapi_text.h"
#include "ui/frm_directory_add.h"
#include "ui/frm_group_add.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

std::string TrimBlanks(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

void frmMain::ShowDirectoryAdd(const DirectoryEntry& entry, int commandNameId) {
    frmDirectoryAdd dialog(*this, entry);
    dialog.Caption =
        LoadResString(sid::TitleFrmDirectoryAdd) + " - " + LoadResString(commandNameId);
    dialog.Form_Load();
    if (showDirectoryAdd) showDirectoryAdd(dialog);
    changed();
}

void frmMain::mnuNew_Click() {
    DirectoryEntry entry;
    entry.CountryCode = txtCountryCode.Text;
    if (entry.CountryCode.empty()) {
        std::string country;
        if (tapi.tapiGetLocationInfo(country) >= 0)
            entry.CountryCode = TrimBlanks(BlankNuls(country));
    }
    entry.AreaCode = txtAreaCode.Text;
    // A name typed that is not yet in the directory opens the dialogue already filled.
    if (Names.ListIndex < 0 && Names.Text != "Names") entry.Name = Names.Text;
    entry.Number = txtNumber.Text;
    entry.ProviderName = Services.Text;
    ShowDirectoryAdd(entry, sid::TipAddNewEntry);
}

void frmMain::mnuEditPhone_Click() {
    if (Names.ListIndex < 0) {
        if (!Names.Text.empty()) return mnuNew_Click();
        ShowMessageBox(LoadResString(sid::SelectName), MbInformation);
        focusedControl = "Names";
        return;
    }
    const int found = FindName(Names.Text);
    if (found < 0) {
        ShowStatus(LoadResString(sid::FindingName) + " " + LoadResString(sid::NameNotInDirectory));
        return;
    }
    ShowDirectoryAdd(Directory[static_cast<std::size_t>(found)], sid::TipEditCurrentEntry);
}

void frmMain::mnuDelete_Click() {
    if (Names.ListIndex < 0) {
        ShowMessageBox(LoadResString(sid::SelectNameToDelete), MbInformation);
        focusedControl = "Names";
        return;
    }
    const std::string name = Names.Text;
    if (ShowMessageBox(LoadResString(sid::AreYouCertainDelete) + " " + name, MbQuestionYesNo) !=
        AnswerYes)
        return;
    const int found = FindName(name);
    if (found < 0) {
        ShowMessageBox(LoadResString(sid::UnableToCompleteDeletion), MbCritical);
        return;
    }
    if (Directory.size() == 1) {
        ShowMessageBox(LoadResString(sid::CannotDeleteOnlyEntry), MbExclamation);
        return;
    }
    DeleteDirectoryEntry(found);
}

void frmMain::AddToGroupList() {
    if (Names.ListIndex < 0) {
        ShowMessageBox(LoadResString(sid::PleaseSelectNameToAdd), MbInformation);
        return;
    }
    if (cmbGroupName.ListIndex < 0) {
        ShowMessageBox(LoadResString(sid::PleaseSelectGroupToAddTo), MbInformation);
        return;
    }
    if (lstGroup.FindRow(Names.Text) >= 0) {
        ShowMessageBox(LoadResString(sid::NameAlreadyInGroup), MbExclamation);
        return;
    }
    lstGroup.AddItem(Names.Text);
    SaveGroupMembers();
    changed();
}

void frmMain::mnuRemoveName_Click() {
    if (lstGroup.ListIndex < 0) return;
    lstGroup.RemoveItem(lstGroup.ListIndex);
    SaveGroupMembers();
    changed();
}

void frmMain::lstGroup_MouseUp() {
    mnuRemoveName.Enabled = lstGroup.ListCount() > 0 && lstGroup.ListIndex >= 0;
}

namespace {

// Locks the window while a group is queued: the loop lets events run, so nothing that would
// disturb it may be used meanwhile. Everything comes back on every way out.
class GroupLoopLock {
  public:
    explicit GroupLoopLock(frmMain& f) : f_(f), busy_(f) {
        f_.mnuInsert.Visible = f_.mnuSeparator11.Visible = false;
        for (MenuItem* m : menus()) m->Enabled = false;
        for (int i : kIcons) f_.picToolIconsEnabled[static_cast<std::size_t>(i)] = false;
        f_.progress.Value = 0;
        f_.progress.Visible = true;
    }
    ~GroupLoopLock() {
        f_.progress.Visible = false;
        f_.mnuInsert.Visible = f_.mnuSeparator11.Visible = true;
        for (MenuItem* m : menus()) m->Enabled = true;
        for (int i : kIcons) f_.picToolIconsEnabled[static_cast<std::size_t>(i)] = true;
    }
    GroupLoopLock(const GroupLoopLock&) = delete;
    GroupLoopLock& operator=(const GroupLoopLock&) = delete;

  private:
    static constexpr int kIcons[] = {0, 1, 7, 8, 9, 10, 11, 12, 13};
    std::array<MenuItem*, 6> menus() {
        return {&f_.mnuQueue, &f_.mnuSend,      &f_.mnuTelephoneDir,
                &f_.mnuData,  &f_.mnuViewQueue, &f_.mnuGroup};
    }
    frmMain& f_;
    BusyCursor busy_;
};

}  // namespace

void frmMain::UseThisGroupList() {
    if (cmbGroupName.ListIndex < 0) {
        ShowMessageBox(LoadResString(sid::PleaseSelectGroupToSend), MbInformation);
        focusedControl = "cmbGroupName";
        return;
    }
    if (txtMessage.Text.empty()) {
        ShowMessageBox(LoadResString(sid::PleaseEnterGroupText), MbInformation);
        focusedControl = "txtMessage";
        return;
    }
    const std::string text = txtMessage.Text;
    if (lstGroup.ListCount() == 0) {
        ShowMessageBox(LoadResString(sid::NoNamesInGroup), MbExclamation);
        return;
    }
    // Members as they stand now: events inside the loop may change the list.
    const std::vector<std::string> members = lstGroup.rows;
    try {
        GroupLoopLock lock(*this);
        const double n = static_cast<double>(members.size());
        for (std::size_t i = 0; i < members.size(); ++i) {
            progress.Value = static_cast<int>(std::lround(100.0 / n * static_cast<double>(i)));
            changed();
            platform_.loop.doEvents();
            txtMessage.Text = text;
            QueueGroupMessage(members[i]);
        }
    } catch (const std::exception& e) {
        ShowStatus(FailureStatus(ErrorNumberOf(e), LoadResString(sid::QueueingGroupMessages)));
    }
    // A run that dialled meanwhile keeps the commands it took away.
    if (picToolIconsEnabled[2]) SetCallingLook();
    txtMessage_Change();
    changed();
}

void frmMain::AddNewGroup() {
    frmGroupAdd dialog(*this);
    dialog.Form_Load();
    if (showGroupAdd) showGroupAdd(dialog);
    changed();
}

void frmMain::DeleteCurrentGroup() {
    if (cmbGroupName.Text == LoadResString(sid::GroupsAvailable) || cmbGroupName.ListIndex < 0) {
        ShowMessageBox(LoadResString(sid::PleaseSelectGroupToDelete), MbInformation);
        return;
    }
    if (cmbGroupName.ListCount() <= 1) {
        ShowMessageBox(LoadResString(sid::MustLeaveOneGroup), MbExclamation);
        return;
    }
    const std::string question = LoadResString(sid::AreYouCertainRemove) + " " + cmbGroupName.Text +
                                 " " + LoadResString(sid::GroupQuestionEnd);
    if (ShowMessageBox(question, MbQuestionYesNo) != AnswerYes) return;
    DeleteSelectedGroup();
}

}  // namespace parlane
