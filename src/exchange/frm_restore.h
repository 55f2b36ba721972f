#pragma once
// frmRestore: a backup folder's tables copied back into the home. They take effect at the next
// start, since the running program keeps the tables it has in memory.

#include <functional>

#include "exchange/table_copy_window.h"

namespace parlane {

class frmRestore : public TableCopyWindow {
  public:
    frmRestore(std::filesystem::path home, std::filesystem::path startFolder,
               const Strings& strings, DialogueHost& dialogues, FolderChooser& chooser);

    void cmdOK_Click();

    // Called once the files were copied, before the message that asks for a restart: until then
    // a save from memory would write over the restored files.
    std::function<void()> Restored;
};

}  // namespace parlane
