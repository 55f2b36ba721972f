#include <gtest/gtest.h>

#include <functional>

#include "core/strings.h"
#include "exchange/frm_backup.h"
#include "exchange/frm_restore.h"
#include "store/directory.h"
#include "support/temp_files.h"

namespace parlane {
namespace {

using namespace testing;
namespace fs = std::filesystem;

std::string Names(const std::vector<std::string>& names) {
    std::string error;
    return SerializeNameListFile(names, error);
}

const std::string kPhones("\3\0Ann\0\0\0\0\0\0\0\0", 13);
const std::string kCentres(30, '\0');  // one empty centre

// A home with its tables and three groups, two of them named like tables.
void FillHome(const fs::path& home) {
    WriteBytes(home / "smsc.dat", kCentres);
    WriteBytes(home / "phones.dat", kPhones);
    WriteBytes(home / "queue.dat", "queue");
    WriteBytes(home / "Data" / "group.dat", Names({"Staff", "smsc", "Phones"}));
    WriteBytes(home / "Data" / "Staff.dat", Names({"Ann", "Bob"}));
    WriteBytes(home / "Data" / "smsc.dat", Names({"Ann"}));
    WriteBytes(home / "Data" / "Phones.dat", Names({"Bob"}));
    WriteBytes(home / "Data" / "notes.txt", "not a table");
}

// Records each box; `answer` says which button is pressed (OK when unset).
struct AnsweredDialogues : RecordingDialogues {
    int messageBox(const std::string& prompt, int flags, const std::string& title) override {
        RecordingDialogues::messageBox(prompt, flags, title);
        return answer ? answer() : AnswerOk;
    }
    std::function<int()> answer;
};

// Picks `folder` and presses OK.
template <typename Window>
struct CopyRun {
    CopyRun(const fs::path& home, const fs::path& folder, std::function<int()> answer = {})
        : window(home, "/", strings, dialogues, chooser) {
        dialogues.answer = std::move(answer);
        window.Form_Load();
        chooser.folder = folder;
        window.cmdBrowse_Click();
        window.cmdOK_Click();
    }
    Strings strings;
    AnsweredDialogues dialogues;
    PickedFolder chooser;
    Window window;
};

std::vector<std::string> FileNames(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) names.push_back(fs::relative(entry.path(), folder).string());
    std::sort(names.begin(), names.end());
    return names;
}

const std::string kNotCopied = "48 These files were not copied:\r\n";
const std::string kTableName =
    ": the name belongs to a table of Parlane, so a group's file of that name would replace it";

TEST(BackupRestore, RoundTripKeepsTablesAndLeavesGroupsNamedLikeTables) {
    TempFolder home, backup, fresh;
    FillHome(home.path());
    CopyRun<frmBackup> saved(home.path(), backup.path());
    EXPECT_EQ(FileNames(backup.path()),
              (std::vector<std::string>{"Staff.dat", "group.dat", "phones.dat", "smsc.dat"}));
    EXPECT_EQ(ReadBytes(backup.path() / "smsc.dat"), kCentres);
    EXPECT_EQ(ReadBytes(backup.path() / "phones.dat"), kPhones);
    const auto data = (home.path() / "Data").string();
    EXPECT_EQ(saved.dialogues.boxes,
              (std::vector<std::string>{kNotCopied + data + "/Phones.dat" + kTableName + "\r\n" +
                                            data + "/smsc.dat" + kTableName,
                                        "64 Data Backup Completed"}));
    EXPECT_TRUE(saved.window.closed && !saved.window.busy);

    CopyRun<frmRestore> restored(fresh.path(), backup.path());
    EXPECT_EQ(FileNames(fresh.path()), (std::vector<std::string>{"Data/Staff.dat", "Data/group.dat",
                                                                 "phones.dat", "smsc.dat"}));
    EXPECT_EQ(ReadBytes(fresh.path() / "Data/group.dat"),
              ReadBytes(home.path() / "Data/group.dat"));
    EXPECT_EQ(restored.dialogues.boxes,
              (std::vector<std::string>{"64 Data Restoration Completed. Please Restart Parlane"}));
}

TEST(BackupRestore, RestoreTellsWhatIsMissingAndNeverCopiesOverATable) {
    TempFolder home, backup;
    FillHome(home.path());
    WriteBytes(backup.path() / "queue.dat", "other queue");
    WriteBytes(backup.path() / "Friends.DAT", Names({"Cy"}));
    WriteBytes(backup.path() / "phones.bak", "old");
    CopyRun<frmRestore> run(home.path(), backup.path());
    const auto folder = backup.path().string();
    EXPECT_EQ(run.dialogues.boxes,
              (std::vector<std::string>{"48 " + folder + "/smsc.dat not found. Continue?",
                                        "48 " + folder + "/phones.dat not found. Continue?",
                                        kNotCopied + folder + "/queue.dat" + kTableName,
                                        "64 Data Restoration Completed. Please Restart Parlane"}));
    EXPECT_EQ(ReadBytes(home.path() / "smsc.dat"), kCentres);
    EXPECT_EQ(ReadBytes(home.path() / "queue.dat"), "queue");
    EXPECT_EQ(ReadBytes(home.path() / "Data/Friends.DAT"), Names({"Cy"}));
    for (const char* absent : {"Data/queue.dat", "phones.bak", "Data/phones.bak"})
        EXPECT_FALSE(fs::exists(home.path() / absent)) << absent;
}

TEST(BackupRestore, DamagedTableReplacesNothing) {
    const std::string torn = kPhones.substr(0, kPhones.size() - 1);
    struct Case {
        bool restore;
        bool targetExists;
    };
    for (const auto c : {Case{true, true}, Case{true, false}, Case{false, true}}) {
        TempFolder home, backup;
        FillHome(home.path());
        FillHome(backup.path());
        const fs::path from = (c.restore ? backup.path() : home.path()) / "phones.dat";
        const fs::path to = (c.restore ? home.path() : backup.path()) / "phones.dat";
        WriteBytes(from, torn);
        if (!c.targetExists) fs::remove(to);
        const auto boxes = c.restore
                               ? CopyRun<frmRestore>(home.path(), backup.path()).dialogues.boxes
                               : CopyRun<frmBackup>(home.path(), backup.path()).dialogues.boxes;
        EXPECT_EQ(ReadBytes(to), c.targetExists ? kPhones : torn);
        const std::string told =
            kNotCopied + from.string() +
            ": the file is damaged, and the file already in its place was kept";
        EXPECT_EQ(boxes[0].find(told) == 0, c.targetExists) << boxes[0];
    }
}

// A backup made where names are upper case restores whole: the tables, the group list, and each
// member file under its group's name as listed.
TEST(BackupRestore, UpperCaseNamesRestoreAsTheTablesAndGroupsTheyAre) {
    TempFolder home, backup;
    WriteBytes(backup.path() / "SMSC.DAT", kCentres);
    WriteBytes(backup.path() / "PHONES.DAT", kPhones);
    WriteBytes(backup.path() / "GROUP.DAT", Names({"Team", "Staff"}));
    WriteBytes(backup.path() / "TEAM.DAT", Names({"Ann"}));
    WriteBytes(backup.path() / "staff.Dat", Names({"Bob"}));
    CopyRun<frmRestore> run(home.path(), backup.path());
    EXPECT_EQ(run.dialogues.boxes,
              (std::vector<std::string>{"64 Data Restoration Completed. Please Restart Parlane"}));
    EXPECT_EQ(FileNames(home.path()),
              (std::vector<std::string>{"Data/Staff.dat", "Data/Team.dat", "Data/group.dat",
                                        "phones.dat", "smsc.dat"}));
    EXPECT_EQ(ReadBytes(home.path() / "Data/Team.dat"), Names({"Ann"}));
}

// An unreachable folder asks Retry or Cancel: Retry looks again, Cancel copies nothing.
TEST(BackupRestore, UnreachableFolderAsksRetryOrCancel) {
    TempFolder home;
    FillHome(home.path());
    const auto gone = home.path() / "gone";
    const std::string box =
        "21 " + gone.string() + " is not accessible.\r\n\r\nThe device is not ready.";
    CopyRun<frmBackup> cancelled(home.path(), gone, [] { return AnswerCancel; });
    EXPECT_EQ(cancelled.dialogues.boxes, std::vector<std::string>{box});
    EXPECT_TRUE(cancelled.window.Dir1 == "/" && !cancelled.window.closed);
    EXPECT_EQ(FileNames(home.path()).size(), 8u);

    // The medium is put in before Retry.
    CopyRun<frmBackup> retried(home.path(), gone, [&] {
        fs::create_directory(gone);
        return AnswerRetry;
    });
    EXPECT_EQ(retried.dialogues.boxes.front(), box);
    EXPECT_TRUE(retried.window.closed);
    EXPECT_TRUE(fs::exists(gone / "smsc.dat"));
}

}  // namespace
}  // namespace parlane
