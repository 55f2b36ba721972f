#pragma once
// What the backup and restore windows share: the folder chosen with the platform's picker, the
// messages of a failed copy and the closing report.

#include <filesystem>
#include <string>
#include <vector>

#include "core/dialogue_host.h"
#include "core/strings.h"
#include "exchange/exchange_controls.h"
#include "exchange/folder_chooser.h"
#include "exchange/table_copy.h"

namespace parlane {

class TableCopyWindow {
  public:
    // `startFolder` is where the picker opens and where the window goes back to when the chosen
    // folder cannot be reached.
    TableCopyWindow(int titleId, std::filesystem::path home, std::filesystem::path startFolder,
                    const Strings& strings, DialogueHost& dialogues, FolderChooser& chooser);
    virtual ~TableCopyWindow() = default;

    void Form_Load();
    // The picker stands in for the drive and directory lists.
    void cmdBrowse_Click();
    void cmdCancel_Click() { closed = true; }

    // ----- Controls -----
    std::string Caption;
    std::filesystem::path Dir1;  // the folder of the backup
    ExchangeButton cmdOK, cmdCancel, cmdBrowse;
    bool busy = true;  // the hourglass the menu command showed, until the window is loaded
    bool closed = false;

  protected:
    // False, after telling the user and going back to the start folder, when Dir1 is no folder
    // that can be reached.
    bool FolderReachable();
    // Copies one table; a missing or unreadable source or a failed write is told at once and
    // the copy goes on, a damaged source kept out goes into the closing report.
    void CopyTable(const std::filesystem::path& from, const std::filesystem::path& to,
                   TableFormat format);
    // As CopyTable for a group's member file, whose failures only go into the report.
    void CopyMemberFile(const std::filesystem::path& from, const std::filesystem::path& to);
    void NotCopied(const std::filesystem::path& file, const std::string& reason);
    // The report of the files left alone, the closing message, and the window closes.
    void Finish(int completedId);
    std::string Load(int id) const { return strings_.LoadResString(id); }

    std::filesystem::path home_;

  private:
    int Box(const std::string& prompt, int flags);
    void CopyFailed(const std::filesystem::path& source, const FileError& error);

    int titleId_;
    std::filesystem::path startFolder_;
    const Strings& strings_;
    DialogueHost& dialogues_;
    FolderChooser& chooser_;
    std::vector<std::string> notCopied_;
};

}  // namespace parlane
