#include "exchange/frm_restore.h"

#include "core/cp1252.h"
#include "core/string_ids.h"
#include "exchange/exchange_files.h"
#include "store/directory.h"

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

    // Names are matched without regard to case, as on the systems such backups come from:
    // SMSC.DAT is smsc.dat, and TEAM.DAT is the member file of the group "Team".
    const auto files = DatFilesIn(Dir1);
    const auto inBackup = [&](const std::string& name) {
        for (const auto& file : files)
            if (Cp1252LowerCase(file.filename().string()) == name) return file;
        return Dir1 / name;
    };
    CopyTable(inBackup("smsc.dat"), home_ / "smsc.dat", TableFormat::Centres);
    CopyTable(inBackup("phones.dat"), home_ / "phones.dat", TableFormat::Directory);

    FileError unread;
    const auto list = ReadFileBytes(inBackup("group.dat"), unread);
    const auto groups = list ? ParseNameListFile(*list).records : std::vector<std::string>();
    const auto memberFile = [&](const std::filesystem::path& file) {
        const std::string stem = Cp1252LowerCase(file.stem().string());
        for (const auto& group : groups)
            if (Cp1252LowerCase(group) == stem) return std::filesystem::path(group + ".dat");
        return file.filename();
    };

    // Every other .dat file of the folder belongs in Data: the group list and the member files.
    for (const auto& file : files) {
        const std::string lower = Cp1252LowerCase(file.filename().string());
        if (lower == "smsc.dat" || lower == "phones.dat") continue;
        if (lower == "group.dat")
            CopyMemberFile(file, data / "group.dat");
        else if (IsTableFileName(file))
            NotCopied(file, Load(sid::NotCopiedTableName));
        else
            CopyMemberFile(file, data / memberFile(file));
    }
    if (Restored) Restored();
    Finish(sid::DataRestorationCompleted);
}

}  // namespace parlane
