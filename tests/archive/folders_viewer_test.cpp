// The folder browser's commands, the viewer's Send Again on files the archive writer made, and
// the print layout on a printer that records what it is told.
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "archive/frm_folders.h"
#include "archive/frm_open.h"
#include "archive/wordwrap.h"
#include "core/file_io.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

DirectoryEntry Smith() {
    DirectoryEntry e;
    e.Name = "Smith";
    e.CountryCode = "44";
    e.AreaCode = "07802";
    e.Number = "123456";
    e.ProviderName = "Alpha";
    return e;
}

// The archive file the writer leaves for `message`.
std::string Archived(TestPlatform& p, const QueuedMessage& message) {
    const auto before = p.archiveFiles();
    p.main->SaveToOutbox("Message Sent Successfully", message);
    for (const auto& name : p.archiveFiles())
        if (std::find(before.begin(), before.end(), name) == before.end())
            return p.archiveFile(name);
    return {};
}

TEST(SendAgain, TakesBackWhatTheWriterWrote) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha"), MakeProvider("Beta SMSC Plus")});
    p.writeDirectory({Smith()});
    auto& f = p.load();
    const std::string text = "Caf\xE9 at 8\r\nbring \"SMSC\" notes";

    // A name, in any case: found in the directory; the viewer stays open.
    auto byName = Archived(p, {"44", "07802", "123456", text, 1, 1, "Beta"});
    const auto parts = TakeMessageFileApart(byName, "Message:");
    EXPECT_EQ(parts.centre, "Beta");  // only the first "SMSC" counts
    frmOpen viewer(f, byName);
    viewer.cmdResend_Click();
    ASSERT_EQ(UpperBound(f.QueueBuffer), 1);
    EXPECT_EQ(f.QueueBuffer[1].Text, text);
    EXPECT_EQ(f.QueueBuffer[1].Number, "123456");
    EXPECT_FALSE(viewer.unloaded);

    // A typed number is cut at fixed places, and the viewer closes.
    frmOpen typed(f, Archived(p, {"44", "07802", "999888", "hi", 2, 0, "Alpha"}));
    typed.cmdResend_Click();
    ASSERT_EQ(UpperBound(f.QueueBuffer), 2);
    EXPECT_EQ(f.QueueBuffer[2].CountryCode, "44");
    EXPECT_EQ(f.QueueBuffer[2].AreaCode, "7802");
    EXPECT_EQ(f.QueueBuffer[2].Number, "999888");
    EXPECT_EQ(f.QueueBuffer[2].ProviderName, "Alpha");
    EXPECT_TRUE(typed.unloaded);

    // A name no longer in the directory: the message, and nothing changes.
    f.DeleteDirectoryEntry(0);
    frmOpen gone(f, byName);
    f.txtNumber.Text = "kept";
    gone.cmdResend_Click();
    EXPECT_EQ(p.dialogues.shown.back().prompt, "Name Not in Telephone Directory");
    EXPECT_EQ(f.txtNumber.Text, "kept");
    EXPECT_EQ(UpperBound(f.QueueBuffer), 2);

    // Files cut short or not in the form at all give empty parts, never a crash.
    for (const std::string broken : {"", "x", "Using: \t", "Sent To:", "Message:", "\r\n"})
        TakeMessageFileApart(broken, "Message:");
}

// Every character is 100 twips wide and 200 high on a page of 10,000 by 6,000.
class RecordingPrinter : public Printer {
  public:
    bool SetFont(const std::string& family) override { return family == "Times New Roman"; }
    int ScaleWidth() const override { return 10000; }
    int ScaleHeight() const override { return 6000; }
    int TextWidth(std::string_view text) const override {
        return 100 * static_cast<int>(text.size());
    }
    int TextHeight(std::string_view) const override { return 200; }
    void PrintAt(int x, int y, std::string_view text) override {
        printed.push_back({page, x, y, std::string(text)});
    }
    void NewPage() override { ++page; }
    int Page() const override { return page; }
    void EndDoc() override { ended = true; }
    struct Item {
        int page, x, y;
        std::string text;
    };
    std::vector<Item> printed;
    int page = 1;
    bool ended = false;
};

TEST(Wordwrap, LinesPagesAndTabStops) {
    RecordingPrinter printer;
    // 20 line ends fill the first page (text from 1440 to below 4560) and start a second.
    const std::string text =
        "one two\tthree " + std::string(86, 'w') + " " + std::string(20, '\n') + "last";
    PrintWrapped(printer, " ", text, {"24/11/26", "Page "});
    EXPECT_TRUE(printer.ended);
    std::map<std::string, RecordingPrinter::Item> at;
    for (const auto& item : printer.printed) at.emplace(item.text, item);
    EXPECT_EQ(at["one"].x, 720);
    EXPECT_EQ(at["one"].y, 1440);
    EXPECT_EQ(at["two"].x, 720 + 400);
    // The tab from 1420 (7 widths of "0" after the margin) goes to the 10th stop.
    EXPECT_EQ(at["three"].x, 720 + 1000);
    // A word wider than what is left goes to the next line; wider than a line, it is printed
    // whole all the same.
    EXPECT_EQ(at[std::string(86, 'w')].x, 720);
    EXPECT_EQ(at[std::string(86, 'w')].y, 1640);
    EXPECT_EQ(at["last"].page, 2);
    EXPECT_EQ(printer.page, 2);  // no blank page after the last word
    // Every page has its date and number, the number ending at the right limit.
    for (int page : {1, 2}) {
        const std::string number = "Page " + std::to_string(page);
        const auto footer = std::find_if(printer.printed.begin(), printer.printed.end(),
                                         [&](const auto& i) { return i.text == number; });
        ASSERT_NE(footer, printer.printed.end()) << page;
        EXPECT_EQ(footer->page, page);
        EXPECT_EQ(footer->x + footer->text.size() * 100, 10000u - 720);
        EXPECT_EQ(footer->y, 6000 - 720);
    }
}

// Deletes for good and says so; the desktop's adapter sends to the trash instead.
struct RecordingShell : ShellFileOperations {
    std::string Delete(const std::vector<std::filesystem::path>& sources) override {
        for (const auto& s : sources) std::filesystem::remove_all(s), deleted.push_back(s);
        return {};
    }
    std::vector<std::filesystem::path> deleted;
};

TEST(FolderBrowser, CommandRulesOnRootOutboxAndFolders) {
    TestPlatform p;
    auto& f = p.load();
    const auto root = p.home / "SMS";
    std::filesystem::create_directories(root / "abc DEF");
    std::filesystem::create_directories(root / ".hidden");
    for (const char* name : {"261101 090000.msg", "261102 090000.msg", "notes.txt"})
        WriteFileAtomically(root / "Outbox" / name, "Date: \tx\r\nSent To: \tAnn\r\n");
    RecordingShell shell;
    frmFolders browser(f, shell);
    browser.Form_Load();
    ASSERT_EQ(browser.folders.size(), 2u);
    EXPECT_EQ(browser.folders[0].text, "Abc def");
    EXPECT_EQ(browser.folders[1].text, "Outbox");

    // The root lists nothing and cannot be deleted or renamed.
    browser.tvwView_NodeClick(frmFolders::kRootNode);
    EXPECT_TRUE(browser.rows.empty());
    EXPECT_FALSE(browser.tvwView_BeforeLabelEdit());
    browser.mnuDelete_Click();
    EXPECT_EQ(p.dialogues.shown.back().prompt, "Please choose a folder");

    // The Outbox: newest first, neither deleted nor renamed, but its messages move and copy.
    browser.tvwView_NodeClick(3);
    ASSERT_EQ(browser.rows.size(), 2u);
    EXPECT_EQ(browser.rows[0].fileName, "261102 090000.msg");
    EXPECT_EQ(browser.Summary(0).recipient, "Ann");
    EXPECT_FALSE(browser.tvwView_BeforeLabelEdit());
    browser.mnuDelete_Click();
    EXPECT_EQ(p.dialogues.shown.back().prompt, "You can not delete the Outbox");
    EXPECT_TRUE(shell.deleted.empty());

    // Move To with nothing selected, or cancelled, changes nothing.
    bool asked = false;
    browser.chooseTargetFolder = [&](bool) -> std::optional<std::string> {
        asked = true;
        return "Outbox";
    };
    browser.mnuMoveTo_Click();
    EXPECT_TRUE(asked);
    EXPECT_EQ(browser.rows.size(), 2u);
    // A copy into the folder itself keeps both, the new one under the next free name.
    browser.selectedRows = {0};
    browser.mnuCopyTo_Click();
    ASSERT_EQ(browser.rows.size(), 3u);
    EXPECT_EQ(browser.rows[0].fileName, "261102 090000-2.msg");

    // Dropping on the root or on the folder itself is refused; on another folder it moves.
    browser.selectedRows = {0, 1};
    EXPECT_FALSE(browser.CanDropOn(frmFolders::kRootNode));
    EXPECT_FALSE(browser.CanDropOn(3));
    browser.DropOnNode(2);
    EXPECT_EQ(browser.rows.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(root / "abc DEF" / "261102 090000.msg"));

    // A folder is renamed in place; its messages go to the trash with it.
    browser.tvwView_NodeClick(2);
    ASSERT_TRUE(browser.tvwView_BeforeLabelEdit());
    browser.tvwView_AfterLabelEdit("../escape");
    EXPECT_TRUE(std::filesystem::exists(root / "abc DEF"));
    browser.tvwView_AfterLabelEdit("Kept");
    EXPECT_TRUE(std::filesystem::exists(root / "Kept" / "261102 090000.msg"));
    browser.mnuDelete_Click();
    EXPECT_EQ(shell.deleted, std::vector<std::filesystem::path>{root / "Kept"});
    EXPECT_EQ(browser.folders.size(), 1u);
}

TEST(FolderBrowser, OddFilesAndAFolderThatVanished) {
    TestPlatform p;
    auto& f = p.load();
    const auto outbox = p.home / "SMS" / "Outbox";
    WriteFileAtomically(outbox / "261101 090000.msg", "");
    WriteFileAtomically(outbox / "261101 090001.msg", std::string("\0\xff\r\x01Status:", 12));
    std::filesystem::resize_file(
        (std::ofstream(outbox / "261101 090002.msg"), outbox / "261101 090002.msg"), 50u << 20);
    std::filesystem::create_directory(outbox / "261101 090003.msg");  // not a file at all
    RecordingShell shell;
    frmFolders browser(f, shell);
    browser.Form_Load();
    browser.tvwView_NodeClick(2);
    ASSERT_EQ(browser.rows.size(), 4u);
    for (int row = 0; row < 4; ++row) {
        browser.Summary(row);
        browser.lstData_ItemClick(row);
    }
    browser.lstData_ColumnClick(frmFolders::ColumnTo);
    EXPECT_EQ(browser.rows.size(), 4u);

    // The folder goes while the window is open: commands find nothing to act on.
    std::filesystem::remove_all(outbox);
    browser.selectedRows = {0};
    browser.chooseTargetFolder = [](bool) -> std::optional<std::string> { return "Outbox"; };
    browser.mnuCopyTo_Click();
    browser.mnuOpen_Click();
    EXPECT_TRUE(browser.rows.empty());
    EXPECT_TRUE(shell.deleted.empty());
}

// Names that differ only in case are one folder: one node lists both directories, a move goes
// into the first, and a new or renamed folder may not take such a name again.
TEST(FolderBrowser, NamesDifferingOnlyInCaseAreOneFolder) {
    TestPlatform p;
    auto& f = p.load();
    const auto root = p.home / "SMS";
    for (const char* folder : {"WORK", "work", "New Stuff"})
        std::filesystem::create_directories(root / folder);
    WriteFileAtomically(root / "WORK" / "261101 090000.msg", "Sent To: \tAnn\r\n");
    WriteFileAtomically(root / "work" / "261102 090000.msg", "Sent To: \tBob\r\n");
    WriteFileAtomically(root / "Outbox" / "261103 090000.msg", "Sent To: \tCy\r\n");
    RecordingShell shell;
    frmFolders browser(f, shell);
    browser.Form_Load();
    std::vector<std::string> texts;
    for (const auto& node : browser.folders) texts.push_back(node.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"New stuff", "Outbox", "Work"}));
    browser.tvwView_NodeClick(4);
    EXPECT_EQ(browser.rows.size(), 2u);

    browser.tvwView_NodeClick(3);
    browser.selectedRows = {0};
    browser.chooseTargetFolder = [](bool) -> std::optional<std::string> { return "Work"; };
    browser.mnuMoveTo_Click();
    EXPECT_TRUE(std::filesystem::exists(root / "WORK" / "261103 090000.msg"));

    browser.askNewFolderName = [] { return std::string("new stuff"); };
    browser.mnuCreate_Click();
    browser.tvwView_NodeClick(4);
    browser.tvwView_AfterLabelEdit("outbox");
    EXPECT_EQ(browser.folders.size(), 3u);
    EXPECT_FALSE(std::filesystem::exists(root / "new stuff") ||
                 std::filesystem::exists(root / "outbox"));

    browser.mnuDelete_Click();
    EXPECT_EQ(shell.deleted, (std::vector<std::filesystem::path>{root / "WORK", root / "work"}));
}

// A renamed folder takes its first directory along; one of the old name in another case stays
// a folder of its own, and the list reads the messages where they now are.
TEST(FolderBrowser, RenamingAFolderOfTwoDirectories) {
    TestPlatform p;
    auto& f = p.load();
    const auto root = p.home / "SMS";
    for (const char* folder : {"WORK", "work"}) {
        std::filesystem::create_directories(root / folder);
        WriteFileAtomically(root / folder / "261101 090000.msg", "Sent To: \tAnn\r\n");
    }
    RecordingShell shell;
    frmFolders browser(f, shell);
    browser.Form_Load();
    browser.tvwView_NodeClick(3);
    browser.tvwView_AfterLabelEdit("Jobs");
    ASSERT_EQ(browser.rows.size(), 1u);
    EXPECT_EQ(browser.Summary(0).recipient, "Ann");
    EXPECT_EQ(browser.folders.back().directory, "work");
    EXPECT_TRUE(std::filesystem::exists(root / "Jobs" / "261101 090000.msg"));
}

TEST(FolderBrowser, NewFolderAndTargetChecks) {
    TestPlatform p;
    auto& f = p.load();
    struct Case {
        std::string name, message, result;
    } cases[] = {
        {"", "Please enter a name for this new Folder", ""},
        {"../up", "This name cannot be used for a Folder", ""},
        {".hidden", "This name cannot be used for a Folder", ""},
        {"Family", "", "Family"},
    };
    for (const auto& c : cases) {
        frmFolderAdd add(f);
        add.txtName = c.name;
        const auto shownBefore = p.dialogues.shown.size();
        add.cmdOK_Click();
        EXPECT_EQ(add.NewFolderName, c.result) << c.name;
        EXPECT_EQ(add.unloaded, !c.result.empty()) << c.name;
        if (!c.message.empty()) {
            ASSERT_GT(p.dialogues.shown.size(), shownBefore) << c.name;
            EXPECT_EQ(p.dialogues.shown.back().prompt.rfind(c.message, 0), 0u) << c.name;
        }
    }
    frmMove move(p.home / "SMS", true);
    move.tvwView_NodeClick(frmFolders::kRootNode);
    EXPECT_FALSE(move.cmdOKEnabled);
    move.tvwView_DblClick();
    EXPECT_FALSE(move.FolderDialogAccepted);
    move.tvwView_NodeClick(2);
    move.tvwView_DblClick();
    EXPECT_TRUE(move.FolderDialogAccepted);
    EXPECT_EQ(move.TargetFolder, "Outbox");
}

}  // namespace
}  // namespace parlane
