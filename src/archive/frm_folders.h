#pragma once
// frmFolders, "Sent Messages Folders": the tree of archive folders, the list of the chosen
// folder's messages with a preview, and the commands on folders and messages. frmFolderAdd and
// frmMove, its two small dialogues, are here too.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "archive/message_summary.h"
#include "archive/shell_file_operations.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

// One folder of the tree: its text as shown and its directory's name on disk. Names that differ
// only in case are one folder: `others` are its directories besides the first ("work" beside
// "WORK"), listed with it and deleted with it.
struct FolderNode {
    std::string text;
    std::string directory;
    std::vector<std::string> others;
};

// The folders under the archive root, hidden ones left out, sorted by their shown text. A
// directory shows with its first letter in upper case and the rest in lower case.
std::vector<FolderNode> FillFolderTree(const std::filesystem::path& archiveRoot);
std::string FolderDisplayName(const std::string& directory);
// 0, or the id of the message that refuses `name` as a folder's name.
int FolderNameProblem(const std::string& name);

class frmFolders {
  public:
    static constexpr int kRootNode = 1;  // folders are 2 and above

    frmFolders(frmMain& main, ShellFileOperations& shell);
    void Form_Load();

    // The tree.
    std::string rootText;
    std::vector<FolderNode> folders;
    int selectedNode = kRootNode;
    std::string CurrentFolder;
    int CurrentNodeIndex = 0;
    void tvwView_NodeClick(int nodeIndex);
    // False: the label may not be edited (the root, the Outbox).
    bool tvwView_BeforeLabelEdit() const;
    void tvwView_AfterLabelEdit(const std::string& newText);

    // The list: file names in order; a row's summary is read when first asked for.
    struct Row {
        std::string fileName;
        std::optional<MessageSummary> summary;
        std::filesystem::path folder;  // the directory it is in
        std::filesystem::path path() const { return folder / fileName; }
    };
    std::vector<Row> rows;
    std::vector<int> selectedRows;  // in list order
    enum Column { ColumnDate = 1, ColumnTo = 2, ColumnStatus = 3, ColumnKey = 4 };
    int sortColumn = ColumnKey;
    bool ascending = false;  // newest first, as the icon on the date column says
    const MessageSummary& Summary(int row);
    void lstData_ColumnClick(int column);
    void lstData_ItemClick(int row);
    void ListCurrentFolder();
    std::string txtMessage;  // the preview
    std::string OpenPath;

    // Commands.
    void mnuOpen_Click();
    void mnuCreate_Click();
    void mnuDelete_Click();
    void mnuMoveTo_Click() { MoveOrCopy(false); }
    void mnuCopyTo_Click() { MoveOrCopy(true); }
    void mnuDeleteFile_Click();
    bool CanDropOn(int nodeIndex) const;
    void DropOnNode(int nodeIndex);  // the selected messages move there

    // The views: frmFolderAdd (the name, "" on Cancel), frmMove (the folder, nothing on
    // Cancel), frmOpen with a file's content.
    std::function<std::string()> askNewFolderName;
    std::function<std::optional<std::string>(bool copy)> chooseTargetFolder;
    std::function<void(const std::string& content)> openMessage;
    bool unloaded = false;

    std::filesystem::path ArchiveRoot() const;

  private:
    std::filesystem::path folderPath(const std::string& folder) const;
    // Every directory of the folder, its first directory leading.
    std::vector<std::filesystem::path> folderPaths(const std::string& folder) const;
    std::vector<std::filesystem::path> selectedPaths() const;
    void MoveOrCopy(bool copy);
    void SortRows();
    void ReadPreview(int row);
    void Report(const std::string& error);

    frmMain& main_;
    ShellFileOperations& shell_;
};

class frmFolderAdd {
  public:
    explicit frmFolderAdd(frmMain& main) : main_(main) {}
    std::string txtName;
    std::string NewFolderName;
    std::string focusedControl;
    bool unloaded = false;
    void cmdOK_Click();
    void cmdCancel_Click();

  private:
    frmMain& main_;
};

class frmMove {
  public:
    frmMove(const std::filesystem::path& archiveRoot, bool copy);
    // The bank's "Move" or "Copy", and what OK will do.
    int titleId = 0;
    int infoId = 0;
    std::vector<FolderNode> folders;
    bool cmdOKEnabled = false;
    std::string TargetFolder;
    bool FolderDialogAccepted = false;
    bool unloaded = false;
    void tvwView_NodeClick(int nodeIndex);
    void tvwView_DblClick();
    void cmdOK_Click();
    void cmdCancel_Click();

  private:
    int selectedNode_ = frmFolders::kRootNode;
};

}  // namespace parlane
