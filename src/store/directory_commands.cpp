// The directory and the groups as the main window keeps them: tables, list boxes and files.
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "core/file_io.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
std::filesystem::path frmMain::groupFile(const std::string& group) const {
    return homePath("Data") / (group + ".dat");
}

void frmMain::LoadDirectory() {
    const auto path = homePath("phones.dat");
    const auto bytes = ReadTable(path);
    if (!bytes) WriteFileAtomically(path, {});
    auto table = ParseDirectoryFile(bytes.value_or(std::string()));
    Directory = std::move(table.records);
    Names.Clear();
    Names.Sorted = true;
    Names.Text = "Names";
    ListDirectoryNames(Directory);
    if (table.damaged) reportDamage(path);
}

void frmMain::ListDirectoryNames(const std::vector<DirectoryEntry>& directory) {
    std::vector<std::string> names;
    names.reserve(directory.size());
    for (const auto& e : directory) names.push_back(e.Name);
    Names.SetItems(std::move(names));
}

void frmMain::LoadGroups() {
    const auto path = homePath("Data") / "group.dat";
    std::error_code ec;
    std::filesystem::create_directories(path.parent_path(), ec);
    const auto bytes = ReadTable(path);
    if (!bytes) WriteFileAtomically(path, {});
    auto table = ParseNameListFile(bytes.value_or(std::string()));
    cmbGroupName.Clear();
    cmbGroupName.Sorted = true;
    lstGroup.Clear();
    lstGroup.Sorted = true;
    cmbGroupName.SetItems(table.records);
    cmbGroupName.Text = LoadResString(sid::GroupsAvailable);
    if (table.damaged) reportDamage(path);
}

int frmMain::FindName(const std::string& name) const {
    return parlane::FindName(Directory, name);
}

bool frmMain::WriteDirectoryFile() {
    std::string tooLong;
    const std::string bytes = SerializeDirectoryFile(Directory, tooLong);
    const int error = tooLong.empty() ? ReplaceFile(homePath("phones.dat"), bytes) : EOVERFLOW;
    if (error == 0) return true;
    ShowStatus(FailureStatus(error, LoadResString(sid::SavingDirectory)));
    return false;
}

void frmMain::AddDirectoryEntry(const DirectoryEntry& entry) {
    Directory.push_back(entry);
    Names.AddItem(entry.Name);
    Names.Text = entry.Name;
}

void frmMain::SaveDirectoryEntry(const DirectoryEntry& entry) {
    if (entry.Name.empty()) return;
    BusyCursor busy(*this);
    const int found = FindName(entry.Name);
    if (found < 0) {
        AddDirectoryEntry(entry);
    } else {
        // A new spelling of the same name replaces the old one in the box too.
        auto& old = Directory[static_cast<std::size_t>(found)];
        if (old.Name != entry.Name) {
            Names.RemoveItem(Names.FindRow(old.Name));
            Names.AddItem(entry.Name);
        }
        old = entry;
    }
    progress.Visible = true;
    progress.Value = 100;
    WriteDirectoryFile();
    progress.Visible = false;
    changed();
}

void frmMain::DeleteDirectoryEntry(int index) {
    if (index < 0 || index >= static_cast<int>(Directory.size())) return;
    Names.RemoveItem(Names.FindRow(Directory[static_cast<std::size_t>(index)].Name));
    Directory.erase(Directory.begin() + index);
    if (Names.ListCount() > 0) Names.select(0);
    WriteDirectoryFile();
    changed();
}

void frmMain::cmbGroupName_Click() {
    lstGroup.Clear();
    const std::string group = cmbGroupName.Text;
    if (GroupNameProblem(group) != 0) return;  // never a path of our own making
    const auto path = groupFile(group);
    const auto bytes = ReadTable(path);
    if (!bytes) {
        if (const int error = ReplaceFile(path, {})) {
            setStatusRaw(FailureStatus(error, LoadResString(sid::LoadingWord) + " " + group + " " +
                                                  LoadResString(sid::GroupMemberNames)));
            return;
        }
    }
    auto table = ParseNameListFile(bytes.value_or(std::string()));
    lstGroup.SetItems(table.records);
    if (table.damaged) reportDamage(path);
    changed();
}

void frmMain::SaveGroupMembers() {
    if (lstGroup.ListCount() == 0) return;
    const std::string group = cmbGroupName.Text;
    std::string tooLong;
    const std::string bytes = SerializeNameListFile(lstGroup.rows, tooLong);
    int error = tooLong.empty() ? 0 : EOVERFLOW;
    if (error == 0 && GroupNameProblem(group) == 0) error = ReplaceFile(groupFile(group), bytes);
    if (error)
        ShowStatus(FailureStatus(error, LoadResString(sid::SavingWord) + " " + group + " " +
                                            LoadResString(sid::GroupListWord)));
}

int frmMain::WriteGroupList() {
    std::string tooLong;
    const std::string bytes = SerializeNameListFile(cmbGroupName.rows, tooLong);
    return tooLong.empty() ? ReplaceFile(homePath("Data") / "group.dat", bytes) : EOVERFLOW;
}

bool frmMain::AddGroup(const std::string& name) {
    if (name.empty()) {
        ShowMessageBox(LoadResString(sid::PleaseEnterGroupName), MbInformation);
        return false;
    }
    if (cmbGroupName.FindRow(name) >= 0) {
        ShowMessageBox(LoadResString(sid::GroupNameExists), MbExclamation);
        return false;
    }
    if (const int problem = GroupNameProblem(name)) {
        ShowMessageBox(LoadResString(problem), MbExclamation);
        return false;
    }
    cmbGroupName.AddItem(name);
    if (const int error = WriteGroupList())
        ShowStatus(FailureStatus(error, LoadResString(sid::AddingGroupName)));
    cmbGroupName.select(std::max(cmbGroupName.FindRow(name), 0));
    cmbGroupName_Click();
    return true;
}

void frmMain::DeleteSelectedGroup() {
    const int row = cmbGroupName.ListIndex;
    if (row < 0 || cmbGroupName.ListCount() <= 1) return;
    const std::string group = cmbGroupName.rows[static_cast<std::size_t>(row)];
    cmbGroupName.RemoveItem(row);
    cmbGroupName.select(0);
    cmbGroupName_Click();
    if (GroupNameProblem(group) == 0) RemoveFile(groupFile(group));
    if (const int error = WriteGroupList())
        ShowStatus(FailureStatus(error, LoadResString(sid::DeletingGroupName)));
    changed();
}

}  // namespace parlane
