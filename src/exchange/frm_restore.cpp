#include "exchange/frm_restore.h"

#include "core/cp1252.h"
#include "core/string_ids.h"

namespace parlane {

frmRestore::frmRestore(std::filesystem::path home, std::filesystem::path startFolder,
                       const Strings& strings, DialogueHost& dialogues, FolderChooser& chooser)
    : TableCopyWindow(sid::TitleFrmRestore, std::move(home), std::move(startFolder), strings,
                      dialogues, chooser) {}

void frmRestore::cmdOK_Click() {
    if (!FolderReachable()) return;
    busy = true;
    const auto data = home_ / "Data";
    std::error_code ec;
    std::filesystem::create_directories(data, ec);

    CopyTable(Dir1 / "smsc.dat", home_ / "smsc.dat", TableFormat::Centres);
    CopyTable(Dir1 / "phones.dat", home_ / "phones.dat", TableFormat::Directory);

    // Every other .dat file of the folder belongs in Data: the group list and the member files.
    for (const auto& file : DatFilesIn(Dir1)) {
        const auto name = file.filename();
        const std::string lower = Cp1252LowerCase(name.string());
        if (lower == "smsc.dat" || lower == "phones.dat") continue;
        if (name != "group.dat" && IsTableFileName(file))
            NotCopied(file, Load(sid::NotCopiedTableName));
        else
            CopyMemberFile(file, data / name);
    }
    if (Restored) Restored();
    Finish(sid::DataRestorationCompleted);
}

}  // namespace parlane
