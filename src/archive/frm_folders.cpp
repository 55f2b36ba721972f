// The folder browser and its two small dialogues.
#include "archive/frm_folders.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "core/cp1252.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr const char* kOutbox = "Outbox";
// An archive file holds one message of at most 65,535 bytes and five short lines; whatever
// else a file of that name holds is not read.
constexpr std::size_t kMessageFileReadLimit = 1 << 20;

bool IsMessageFile(const std::string& name) {
    return name.size() > 4 && name.front() != '.' &&
           Cp1252LowerCase(name.substr(name.size() - 4)) == ".msg";
}

char Cp1252Upper(char c) {
    for (int b = 0; b < 256; ++b)
        if (static_cast<char>(b) != c && Cp1252Lower(static_cast<char>(b)) == c)
            return static_cast<char>(b);
    return c;
}

// Files of one second keep the order they were written in: "x.msg", "x-2.msg", ... "x-10.msg".
int SecondsSuffix(const std::string& name) {
    if (name.size() < 15 || name[13] != '-') return 1;
    return std::atoi(name.c_str() + 14);
}

bool SameFolder(const std::string& a, const std::string& b) {
    return Cp1252LowerCase(a) == Cp1252LowerCase(b);
}

}  // namespace

std::string FolderDisplayName(const std::string& directory) {
    std::string shown = Cp1252LowerCase(directory);
    if (!shown.empty()) shown[0] = Cp1252Upper(shown[0]);
    return shown;
}

std::vector<FolderNode> FillFolderTree(const std::filesystem::path& archiveRoot) {
    std::vector<FolderNode> nodes;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(archiveRoot, ec), end; !ec && it != end;
         it.increment(ec)) {
        const std::string name = it->path().filename().string();
        std::error_code typeError;
        if (name.empty() || name[0] == '.' || !it->is_directory(typeError)) continue;
        nodes.push_back({FolderDisplayName(name), name, {}});
    }
    // Sorted by text, then by name on disk, so that the same directory leads at every fill.
    std::sort(nodes.begin(), nodes.end(), [](const FolderNode& a, const FolderNode& b) {
        const auto ka = Cp1252LowerCase(a.text), kb = Cp1252LowerCase(b.text);
        return ka != kb ? ka < kb : a.directory < b.directory;
    });
    std::vector<FolderNode> merged;
    for (auto& node : nodes) {
        if (!merged.empty() && SameFolder(merged.back().text, node.text))
            merged.back().others.push_back(std::move(node.directory));
        else
            merged.push_back(std::move(node));
    }
    return merged;
}

int FolderNameProblem(const std::string& name) {
    // A folder's name is a directory under the archive root and never a path.
    if (name == "." || name == ".." || name.front() == '.' || name.size() > 200)
        return sid::FolderNameNotAllowed;
    for (unsigned char c : name)
        if (c < 0x20 || c == 0x7F || c == '/' || c == '\\') return sid::FolderNameNotAllowed;
    return 0;
}

frmFolders::frmFolders(frmMain& main, ShellFileOperations& shell) : main_(main), shell_(shell) {}

std::filesystem::path frmFolders::ArchiveRoot() const {
    return main_.homePath("SMS");
}

std::filesystem::path frmFolders::folderPath(const std::string& folder) const {
    return folderPaths(folder).front();
}

std::vector<std::filesystem::path> frmFolders::folderPaths(const std::string& folder) const {
    // The tree's text may differ in case from the directory: the directories' own names are used.
    for (const auto& node : folders) {
        if (!SameFolder(node.text, folder)) continue;
        std::vector<std::filesystem::path> paths{ArchiveRoot() / node.directory};
        for (const auto& other : node.others) paths.push_back(ArchiveRoot() / other);
        return paths;
    }
    return {ArchiveRoot() / folder};
}

void frmFolders::Form_Load() {
    rootText = main_.LoadResString(sid::TipSentMessages);
    std::error_code ec;
    std::filesystem::create_directories(ArchiveRoot() / kOutbox, ec);
    folders = FillFolderTree(ArchiveRoot());
    selectedNode = kRootNode;
    sortColumn = ColumnKey;
    ascending = false;
}

void frmFolders::tvwView_NodeClick(int nodeIndex) {
    if (nodeIndex < kRootNode || nodeIndex > static_cast<int>(folders.size()) + 1) return;
    selectedNode = nodeIndex;
    CurrentNodeIndex = nodeIndex;
    CurrentFolder =
        nodeIndex == kRootNode ? rootText : folders[static_cast<std::size_t>(nodeIndex - 2)].text;
    ListCurrentFolder();
}

bool frmFolders::tvwView_BeforeLabelEdit() const {
    return selectedNode > kRootNode && !SameFolder(CurrentFolder, kOutbox);
}

void frmFolders::tvwView_AfterLabelEdit(const std::string& newText) {
    if (!tvwView_BeforeLabelEdit() || newText.empty() || newText == CurrentFolder) return;
    if (const int problem = FolderNameProblem(newText)) {
        main_.ShowMessageBox(main_.LoadResString(problem), MbExclamation);
        return;
    }
    const auto from = folderPath(CurrentFolder);
    const auto to = ArchiveRoot() / newText;
    std::error_code ec;
    // rename() would replace an empty folder of that name; an existing one is never touched,
    // nor one whose name differs only in case.
    const bool taken = std::any_of(folders.begin(), folders.end(), [&](const FolderNode& node) {
        return SameFolder(node.text, newText) && !SameFolder(node.text, CurrentFolder);
    });
    if (taken ||
        (std::filesystem::exists(to, ec) && !SameFolder(from.filename().string(), newText))) {
        Report(std::strerror(EEXIST));
        return;
    }
    std::filesystem::rename(from, to, ec);
    if (ec) {
        Report(ec.message());
        return;
    }
    auto& node = folders[static_cast<std::size_t>(selectedNode - 2)];
    // Directories of the old name in another case keep it: they stay a folder of their own.
    FolderNode rest;
    if (!node.others.empty()) {
        rest = {FolderDisplayName(node.others.front()),
                node.others.front(),
                {node.others.begin() + 1, node.others.end()}};
        node.others.clear();
    }
    node.text = node.directory = newText;
    if (!rest.directory.empty()) folders.push_back(std::move(rest));
    // The list goes on showing the same folder under its new name (its rows know the path).
    CurrentFolder = newText;
    ListCurrentFolder();
}

const MessageSummary& frmFolders::Summary(int row) {
    auto& r = rows[static_cast<std::size_t>(row)];
    if (!r.summary) {
        const auto text = ReadFileStart(r.path(), kMessageFileReadLimit);
        r.summary =
            ReadMessageSummary(text.value_or(std::string()), r.fileName, main_.platform().formats);
    }
    return *r.summary;
}

void frmFolders::ListCurrentFolder() {
    rows.clear();
    selectedRows.clear();
    txtMessage.clear();
    if (CurrentNodeIndex <= kRootNode) return;  // the root is no directory
    for (const auto& folder : folderPaths(CurrentFolder)) {
        std::error_code ec;
        for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end;
             it.increment(ec)) {
            std::string name = it->path().filename().string();
            if (IsMessageFile(name)) rows.push_back({std::move(name), std::nullopt, folder});
        }
    }
    SortRows();
}

void frmFolders::SortRows() {
    // The date's key is the head of the file's name: that order needs no file read.
    const auto byKey = [](const Row& a, const Row& b) {
        const std::string_view keyA = std::string_view(a.fileName).substr(0, 13);
        const std::string_view keyB = std::string_view(b.fileName).substr(0, 13);
        if (keyA != keyB) return keyA < keyB;
        const int suffixA = SecondsSuffix(a.fileName), suffixB = SecondsSuffix(b.fileName);
        if (suffixA != suffixB) return suffixA < suffixB;
        return a.fileName < b.fileName;
    };
    std::sort(rows.begin(), rows.end(), byKey);
    if (sortColumn == ColumnTo) {
        // Each recipient is lowered once; equal ones stay in date order.
        std::vector<std::pair<std::string, Row>> keyed;
        keyed.reserve(rows.size());
        for (int i = 0; i < static_cast<int>(rows.size()); ++i)
            keyed.emplace_back(Cp1252LowerCase(Summary(i).recipient),
                               std::move(rows[static_cast<std::size_t>(i)]));
        std::stable_sort(keyed.begin(), keyed.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (std::size_t i = 0; i < keyed.size(); ++i) rows[i] = std::move(keyed[i].second);
    }
    if (!ascending) std::reverse(rows.begin(), rows.end());
}

void frmFolders::lstData_ColumnClick(int column) {
    if (column == ColumnStatus) return;
    sortColumn = column == ColumnTo ? ColumnTo : ColumnKey;
    ascending = !ascending;
    // The selection follows its rows.
    std::vector<std::string> chosen;
    for (int row : selectedRows) chosen.push_back(rows[static_cast<std::size_t>(row)].fileName);
    SortRows();
    selectedRows.clear();
    for (int i = 0; i < static_cast<int>(rows.size()); ++i)
        if (std::find(chosen.begin(), chosen.end(), rows[static_cast<std::size_t>(i)].fileName) !=
            chosen.end())
            selectedRows.push_back(i);
}

void frmFolders::ReadPreview(int row) {
    OpenPath = rows[static_cast<std::size_t>(row)].path().string();
    txtMessage = ReadFileStart(OpenPath, kMessageFileReadLimit).value_or(std::string());
}

void frmFolders::lstData_ItemClick(int row) {
    if (row < 0 || row >= static_cast<int>(rows.size())) return;
    ReadPreview(row);
    const auto at = txtMessage.find(main_.LoadResString(sid::MessageLabel));
    if (at != std::string::npos) txtMessage = txtMessage.substr(at);
}

void frmFolders::mnuOpen_Click() {
    if (selectedRows.empty()) return;
    ReadPreview(selectedRows.front());
    const std::string content =
        ReadFileStart(OpenPath, kMessageFileReadLimit).value_or(std::string());
    if (openMessage) openMessage(content);
    OpenPath.clear();
    lstData_ItemClick(selectedRows.front());
}

void frmFolders::mnuCreate_Click() {
    const std::string name = askNewFolderName ? askNewFolderName() : std::string();
    if (name.empty()) return;
    std::error_code ec;
    // "new stuff" beside "New Stuff" would be the same folder twice.
    const bool taken = std::any_of(folders.begin(), folders.end(), [&](const FolderNode& node) {
        return SameFolder(node.text, name);
    });
    if (taken || !std::filesystem::create_directory(ArchiveRoot() / name, ec)) {
        Report(ec ? ec.message() : std::strerror(EEXIST));
        return;
    }
    folders.push_back({name, name, {}});
    std::sort(folders.begin(), folders.end(), [](const FolderNode& a, const FolderNode& b) {
        return Cp1252LowerCase(a.text) < Cp1252LowerCase(b.text);
    });
}

void frmFolders::mnuDelete_Click() {
    if (SameFolder(CurrentFolder, kOutbox) && CurrentNodeIndex > kRootNode) {
        main_.ShowMessageBox(main_.LoadResString(sid::CannotDeleteOutbox), MbExclamation);
        return;
    }
    if (CurrentNodeIndex < 2) {
        main_.ShowMessageBox(main_.LoadResString(sid::PleaseChooseFolder), MbExclamation);
        return;
    }
    Report(shell_.Delete(folderPaths(CurrentFolder)));
    folders = FillFolderTree(ArchiveRoot());
    // Nothing acts on the folder that went: the root is chosen again.
    selectedNode = kRootNode;
    CurrentNodeIndex = kRootNode;
    CurrentFolder = rootText;
    ListCurrentFolder();
}

std::vector<std::filesystem::path> frmFolders::selectedPaths() const {
    std::vector<std::filesystem::path> paths;
    for (int row : selectedRows) paths.push_back(rows[static_cast<std::size_t>(row)].path());
    return paths;
}

void frmFolders::MoveOrCopy(bool copy) {
    const auto target = chooseTargetFolder ? chooseTargetFolder(copy) : std::nullopt;
    if (!target) return;
    const auto paths = selectedPaths();
    if (paths.empty()) return;
    Report(copy ? shell_.Copy(paths, folderPath(*target))
                : shell_.Move(paths, folderPath(*target)));
    ListCurrentFolder();
}

void frmFolders::mnuDeleteFile_Click() {
    const auto paths = selectedPaths();
    if (paths.empty()) return;
    Report(shell_.Delete(paths));
    ListCurrentFolder();
}

bool frmFolders::CanDropOn(int nodeIndex) const {
    return nodeIndex > kRootNode && nodeIndex <= static_cast<int>(folders.size()) + 1 &&
           folders[static_cast<std::size_t>(nodeIndex - 2)].text != CurrentFolder;
}

void frmFolders::DropOnNode(int nodeIndex) {
    if (!CanDropOn(nodeIndex)) return;
    const auto paths = selectedPaths();
    if (paths.empty()) return;
    Report(shell_.Move(paths,
                       ArchiveRoot() / folders[static_cast<std::size_t>(nodeIndex - 2)].directory));
    ListCurrentFolder();
}

void frmFolders::Report(const std::string& error) {
    if (!error.empty()) main_.ShowMessageBox(error, MbExclamation);
}

void frmFolderAdd::cmdOK_Click() {
    if (txtName.empty()) {
        main_.ShowMessageBox(main_.LoadResString(sid::PleaseEnterFolderName), MbInformation);
        focusedControl = "txtName";
        return;
    }
    if (const int problem = FolderNameProblem(txtName)) {
        main_.ShowMessageBox(main_.LoadResString(problem), MbExclamation);
        focusedControl = "txtName";
        return;
    }
    NewFolderName = txtName;
    unloaded = true;
}

void frmFolderAdd::cmdCancel_Click() {
    NewFolderName.clear();
    unloaded = true;
}

frmMove::frmMove(const std::filesystem::path& archiveRoot, bool copy)
    : titleId(copy ? sid::TitleCopy : sid::TitleFrmMove),
      infoId(copy ? sid::CopyToFolderLabel : sid::MoveToFolderLabel),
      folders(FillFolderTree(archiveRoot)) {}

void frmMove::tvwView_NodeClick(int nodeIndex) {
    if (nodeIndex < frmFolders::kRootNode || nodeIndex > static_cast<int>(folders.size()) + 1)
        return;
    selectedNode_ = nodeIndex;
    cmdOKEnabled = nodeIndex > frmFolders::kRootNode;
    if (cmdOKEnabled) TargetFolder = folders[static_cast<std::size_t>(nodeIndex - 2)].text;
}

void frmMove::tvwView_DblClick() {
    if (selectedNode_ > frmFolders::kRootNode) cmdOK_Click();
}

void frmMove::cmdOK_Click() {
    if (!cmdOKEnabled) return;
    FolderDialogAccepted = true;
    unloaded = true;
}

void frmMove::cmdCancel_Click() {
    FolderDialogAccepted = false;
    TargetFolder.clear();
    unloaded = true;
}

}  // namespace parlane
