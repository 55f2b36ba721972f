#include "exchange/frm_backup.h"

#include "core/string_ids.h"

namespace parlane {

frmBackup::frmBackup(std::filesystem::path home, std::filesystem::path startFolder,
                     const Strings& strings, DialogueHost& dialogues, FolderChooser& chooser)
    : TableCopyWindow(sid::TitleFrmBackup, std::move(home), std::move(startFolder), strings,
                      dialogues, chooser) {}

void frmBackup::cmdOK_Click() {
    if (!FolderReachable()) return;
    busy = true;
    const auto data = home_ / "Data";
    CopyTable(home_ / "smsc.dat", Dir1 / "smsc.dat", TableFormat::Centres);
    CopyTable(home_ / "phones.dat", Dir1 / "phones.dat", TableFormat::Directory);
    CopyTable(data / "group.dat", Dir1 / "group.dat", TableFormat::NameList);

    // The member files go beside the tables, so a group named like a table would replace it.
    for (const auto& file : DatFilesIn(data)) {
        const auto name = file.filename();
        if (name == "group.dat") continue;  // copied above
        if (IsTableFileName(file))
            NotCopied(file, Load(sid::NotCopiedTableName));
        else
            CopyMemberFile(file, Dir1 / name);
    }
    Finish(sid::DataBackupCompleted);
}

}  // namespace parlane
