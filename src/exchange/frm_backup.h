#pragma once
// frmBackup: the centre table, the directory and the groups copied to one flat folder.

#include "exchange/table_copy_window.h"

namespace parlane {

class frmBackup : public TableCopyWindow {
  public:
    frmBackup(std::filesystem::path home, std::filesystem::path startFolder, const Strings& strings,
              DialogueHost& dialogues, FolderChooser& chooser);

    void cmdOK_Click();
};

}  // namespace parlane
