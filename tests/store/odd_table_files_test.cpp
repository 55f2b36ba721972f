// Table files that are no files at all, or far too large, are moved out of the way at start:
// the start goes on at once, says which file it set aside, and keeps every other table.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fstream>

#include "core/file_io.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

void WriteGoodTables(TestPlatform& p) {
    p.writeProviders({MakeProvider("Alpha")});
    p.writeDirectory({{"Ann", "44", "07", "1234", ""}});
    std::string error;
    std::filesystem::create_directories(p.home / "Data");
    WriteFileAtomically(p.home / "Data" / "group.dat", SerializeNameListFile({"Friends"}, error));
    MessageTable queue = EmptyMessageTable();
    queue.push_back(QueuedMessage{"44", "07", "1234", "hello", 1, 0, "Alpha"});
    WriteFileAtomically(p.home / "queue.dat", SerializeQueueFile(queue, error));
}

TEST(OddTableFiles, AreSetAsideAndTheStartGoesOn) {
    const std::pair<const char*, std::function<void(const std::filesystem::path&)>> kinds[] = {
        {"Not an ordinary file", [](const auto& path) { ::mkfifo(path.c_str(), 0600); }},
        {"Not an ordinary file", [](const auto& path) { std::filesystem::create_directory(path); }},
        {"Not an ordinary file",
         [](const auto& path) { std::filesystem::create_symlink("/dev/zero", path); }},
        {"Larger than 32 MB",
         [](const auto& path) {
             std::ofstream{path};
             std::filesystem::resize_file(path, 100u << 20);
         }},
    };
    for (const std::string table :
         {"smsc.dat", "phones.dat", "Data/group.dat", "queue.dat", "queue.journal"}) {
        for (const auto& [reason, make] : kinds) {
            TestPlatform p;
            WriteGoodTables(p);
            const auto path = p.home / table;
            std::filesystem::remove(path);
            make(path);

            const auto started = std::chrono::steady_clock::now();
            auto& f = p.load();
            const auto took = std::chrono::steady_clock::now() - started;
            const std::string name = path.filename().string();
            const std::string context = table + " " + reason;
            EXPECT_LT(took, std::chrono::seconds(1)) << context;
            EXPECT_TRUE(p.saw(name + ": " + reason + ", set aside as " + name + ".damaged-1  "))
                << context;
            EXPECT_TRUE(std::filesystem::exists(
                std::filesystem::symlink_status(path.parent_path() / (name + ".damaged-1"))))
                << context;

            EXPECT_EQ(f.Services.FindRow("Alpha") >= 0, table != "smsc.dat") << context;
            EXPECT_EQ(f.Names.FindRow("Ann") >= 0, table != "phones.dat") << context;
            EXPECT_EQ(f.cmbGroupName.FindRow("Friends") >= 0, table != "Data/group.dat") << context;
            EXPECT_EQ(UpperBound(f.QueueBuffer), table == "queue.dat" ? 0 : 1) << context;
        }
    }
}

// A table that cannot be rewritten says so as the error's number, the action and the system's
// words, and the program goes on with what it holds.
TEST(TableWriteFailures, ShowTheErrorNumberTheActionAndTheSystemsDescription) {
    const std::string isDirectory = std::to_string(EISDIR) + " %s " + std::strerror(EISDIR) + "  ";
    struct Case {
        const char* table;
        const char* action;
        std::function<void(frmMain&)> change;
    } cases[] = {
        {"phones.dat", "Saving SMS Telephone Directory",
         [](frmMain& f) {
             f.SaveDirectoryEntry(DirectoryEntry{"Bea", "44", "07", "99", "Alpha"});
         }},
        {"Data/group.dat", "Adding Group Name", [](frmMain& f) { f.AddGroup("Club"); }},
        {"Data/Friends.dat", "Saving Friends Group List",
         [](frmMain& f) {
             f.cmbGroupName.select(f.cmbGroupName.FindRow("Friends"));
             f.lstGroup.AddItem("Ann");
             f.SaveGroupMembers();
         }},
        {"smsc.dat", "Saving Service Centres", [](frmMain& f) { f.SaveProviders(); }},
    };
    for (const auto& c : cases) {
        TestPlatform p;
        WriteGoodTables(p);
        auto& f = p.load();
        std::filesystem::remove(p.home / c.table);
        std::filesystem::create_directories(p.home / c.table / "in the way");
        c.change(f);
        std::string expected = isDirectory;
        expected.replace(expected.find("%s"), 2, c.action);
        EXPECT_EQ(f.lblInfo.Caption, expected) << c.table;
    }
}

mode_t ModeOf(const std::filesystem::path& path) {
    struct stat info {};
    ::stat(path.c_str(), &info);
    return info.st_mode & 0777;
}

TEST(HomePrivacy, AnOpenHomeIsClosedWithANoteAndNewFilesAreTheUsersAlone) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    ::chmod(p.home.c_str(), 0755);
    ::chmod((p.home / "smsc.dat").c_str(), 0644);
    auto& f = p.load();
    EXPECT_EQ(ModeOf(p.home), 0700u);
    EXPECT_EQ(ModeOf(p.home / "smsc.dat"), 0600u);
    EXPECT_NE(f.debugLog.text().find("Other users could read the program's files"),
              std::string::npos);
    testing::QueueTexts(f, {"hi"});
    f.Form_QueryUnload();
    EXPECT_EQ(ModeOf(p.home / "queue.dat"), 0600u);

    // A home that is already private says nothing.
    TestPlatform q;
    ::chmod(q.home.c_str(), 0700);
    auto& g = q.load();
    EXPECT_EQ(g.debugLog.text().find("Other users"), std::string::npos);
}

}  // namespace
}  // namespace parlane
