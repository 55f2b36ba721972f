#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/strings.h"
#include "exchange/frm_import.h"
#include "support/temp_files.h"

namespace parlane {
namespace {

using namespace testing;

// "Ann", "44", "07", "1234" with no centre, as phones.dat holds it.
const std::string kAnn(
    "\3\0Ann\2\0"
    "44\2\0"
    "07\4\0"
    "1234\0\0",
    21);

std::string DirectoryBytes(const std::vector<DirectoryEntry>& entries) {
    std::string error;
    return SerializeDirectoryFile(entries, error);
}

// Records each box and answers it with `answer`.
struct AnsweredDialogues : RecordingDialogues {
    int messageBox(const std::string& prompt, int flags, const std::string& title) override {
        RecordingDialogues::messageBox(prompt, flags, title);
        return answer;
    }
    int answer = AnswerOk;
};

// The wizard on a temporary home; its hooks leave their traces in `events`, the bar in `bars`.
struct Wizard {
    explicit Wizard(const std::string& phonesDat = kAnn) {
        WriteBytes(home.path() / "phones.dat", phonesDat);
        form.Form_Load();
    }
    ImportWindowHooks Hooks() {
        return {[this] { events.push_back("clear"); },
                [this](const auto& d) { events.push_back("add " + std::to_string(d.size())); },
                [this] { events.push_back("select"); },
                [this](const std::string& s) { events.push_back("status " + s); },
                [this] { bars.push_back(form.progBar.Value); }};
    }
    // Chooses a file holding `csv` and imports it.
    void import(const std::string& csv) {
        WriteBytes(home.path() / "in.csv", csv);
        chooser.file = home.path() / "in.csv";
        form.optImport_Click();
        form.cmdExport_Click();
        form.cmdOpen_Click();
        bars.clear();
        form.cmdOK_Click();
    }
    std::string file(const std::string& name) const { return ReadBytes(home.path() / name); }

    TempFolder home;
    Strings strings;
    AnsweredDialogues dialogues;
    PickedFile chooser;
    std::vector<DirectoryEntry> directory{{"stale", "", "", "", ""}};
    std::vector<std::string> events;
    std::vector<int> bars;
    frmImport form{directory, home.path(), strings, dialogues, chooser, Hooks()};
};

TEST(ImportWizard, NextNeedsAnOptionAndImportGoesToOpen) {
    Wizard w;
    EXPECT_EQ(w.directory, (std::vector<DirectoryEntry>{{"Ann", "44", "07", "1234", ""}}));
    w.form.cmdExport_Click();  // no option chosen yet
    w.form.optImport_Click();
    w.form.cmdExport_Click();
    w.form.cmdOpen_Click();  // cancelled
    EXPECT_EQ(w.dialogues.boxes, (std::vector<std::string>{"64 Please choose an option"}));
    EXPECT_TRUE(w.form.cmdOpen.Visible && !w.form.cmdExport.Visible && !w.form.cmdOK.Visible);
    EXPECT_EQ(w.chooser.asked, "Open Comma Separated Value File|" + w.home.path().string() +
                                   "|*.csv|Comma Separated Files (*.csv)|*.csv");
}

TEST(ImportWizard, ExportWritesPhonesCsv) {
    const std::string header = "\"Name\",\"CountryCode\",\"AreaCode\",\"PhoneNumber\"\r\n";
    struct Case {
        std::vector<DirectoryEntry> entries;
        std::string csv;
        std::vector<int> bars;
    };
    const Case cases[] = {
        {{{"Ann", "44", "07", "1234", "Centre"}},
         header + "\"Ann\",\"+44\",\"07\",\"1234\"\r\n",
         {}},
        {{{"Smith, Jo", "", "", "9", ""}, {"B", "1", "2", "3", ""}, {"C", "", "", "", ""}},
         header + "\"Smith, Jo\",\"+\",\"\",\"9\"\r\n\"B\",\"+1\",\"2\",\"3\"\r\n"
                  "\"C\",\"+\",\"\",\"\"\r\n",
         {50, 100}},
    };
    for (const auto& c : cases) {
        Wizard w(DirectoryBytes(c.entries));
        w.form.optExport_Click();
        w.form.cmdExport_Click();
        EXPECT_EQ(w.file("phones.csv"), c.csv);
        EXPECT_EQ(w.bars, c.bars);
        EXPECT_TRUE(w.form.closed && !w.form.progBar.Visible);
    }

    Wizard empty("");
    empty.form.optExport_Click();
    empty.form.cmdExport_Click();
    EXPECT_EQ(empty.dialogues.boxes,
              (std::vector<std::string>{"48 No Entries In Telephone Directory To Export"}));
    EXPECT_FALSE(std::filesystem::exists(empty.home.path() / "phones.csv"));
    EXPECT_TRUE(!empty.form.closed && empty.form.cmdExport.Enabled && empty.form.cmdCancel.Enabled);
}

TEST(ImportWizard, ImportAddsNewNamesAndKeepsTheOldFileAsBak) {
    const std::string before = kAnn + DirectoryBytes({{"Zo\xC9\x8A", "1", "", "", "Centre"}});
    Wizard w(before);
    w.import(
        "anything\r\n"
        "\"ANN\",\"1\",\"2\",\"3\"\r\n"  // there already, in another case
        "\"Bob\",\"+44\",\"07\",\"1234\"\r\n"
        "\"\",\"1\",\"2\",\"3\"\r\n"
        "\"bob\",\"9\",\"9\",\"9\"\r\n"         // repeated in the file
        "\"zo\xE9\x9A\",\"9\",\"9\",\"9\"\r\n"  // accented capitals in lower case
        "\"Cara\",\"\",\"(0)7\",\"+44 (0)7802\"\r\n"
        "\"Dee\",\"\xE9\",\"\",\"\"\r\n");
    const std::vector<DirectoryEntry> after = {
        {"Ann", "44", "07", "1234", ""}, {"Zo\xC9\x8A", "1", "", "", "Centre"},
        {"Bob", "44", "07", "1234", ""}, {"Cara", "", "07", "4407802", ""},
        {"Dee", "i", "", "", ""},
    };
    EXPECT_EQ(w.directory, after);
    EXPECT_EQ(w.file("phones.dat"), DirectoryBytes(after));
    EXPECT_EQ(w.file("phones.bak"), before);
    EXPECT_EQ(w.events, (std::vector<std::string>{"clear", "add 5", "select"}));
    EXPECT_TRUE(w.form.closed && w.dialogues.boxes.empty());
    // Over the 8 lines, back to 0, then over the 5 entries written.
    EXPECT_EQ(w.bars, (std::vector<int>{12, 25, 38, 50, 62, 75, 88, 0, 25, 50, 75, 100}));

    // The next import keeps the state just before it; the exported file adds nothing.
    w.form.Form_Load();
    w.form.optExport_Click();
    w.form.cmdExport_Click();
    w.import(w.file("phones.csv"));
    EXPECT_EQ(w.directory, after);
    EXPECT_EQ(w.file("phones.bak"), DirectoryBytes(after));
}

// A file is read as what it is: UTF-8 with or without a byte-order mark, else Windows-1252.
// Characters the code page cannot hold are named first; No imports nothing.
TEST(ImportWizard, Utf8FilesAreReadAsSuchAndLostCharactersAreAskedAbout) {
    const std::string question =
        "36 The file holds characters that cannot be kept:\r\nU+2713, U+1F600\r\n\r\n"
        "Each of them would become \"?\". Go on?";
    const struct {
        std::string csvName;
        int answer;
        std::string imported;  // empty: nothing imported
        bool asked;
    } cases[] = {
        {"M\xFCller", AnswerOk, "M\xFCller", false},                  // Windows-1252
        {"M\xC3\xBCller", AnswerOk, "M\xFCller", false},              // UTF-8
        {"\xEF\xBB\xBFM\xC3\xBCller", AnswerOk, "M\xFCller", false},  // UTF-8 with BOM
        {"\xE2\x82\xAC Fran\xC3\xA7ois", AnswerOk, "\x80 Fran\xE7ois", false},
        {"Ok \xE2\x9C\x93\xF0\x9F\x98\x80\xE2\x9C\x93", AnswerYes, "Ok ???", true},
        {"Ok \xE2\x9C\x93\xF0\x9F\x98\x80", AnswerNo, "", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.csvName);
        Wizard w;
        w.dialogues.answer = c.answer;
        const bool bom = c.csvName.rfind("\xEF\xBB\xBF", 0) == 0;
        w.import((bom ? "\xEF\xBB\xBF" : "") + std::string("h\r\n\"") +
                 c.csvName.substr(bom ? 3 : 0) + "\",\"44\",\"07\",\"1\"\r\n");
        EXPECT_EQ(!w.dialogues.boxes.empty() && w.dialogues.boxes[0] == question, c.asked);
        EXPECT_EQ(w.directory.back().Name, c.imported.empty() ? "Ann" : c.imported);
    }
}

TEST(ImportWizard, HeaderOnlyRewritesOnlyANonEmptyDirectory) {
    for (const std::string& phonesDat : {kAnn, std::string()}) {
        Wizard w(phonesDat);
        w.import("\"Name\",\"CountryCode\",\"AreaCode\",\"PhoneNumber\"\r\n");
        EXPECT_EQ(w.file("phones.dat"), phonesDat);
        EXPECT_EQ(std::filesystem::exists(w.home.path() / "phones.bak"), !phonesDat.empty());
        // An empty directory leaves the window open, with Cancel to leave it.
        EXPECT_EQ(w.form.closed, !phonesDat.empty());
        EXPECT_TRUE(w.form.cmdCancel.Enabled || w.form.closed);
    }
}

TEST(ImportWizard, FailedImportKeepsTheFiles) {
    Wizard w;
    w.import("h\r\n\"Zed\",\"1\",\"2\",\"3\"\r\nZed,1,2,3\r\n\"Yan\",\"1\",\"2\",\"3\"\r\n");
    EXPECT_EQ(w.directory.size(), 2u);  // Zed, in memory only
    EXPECT_EQ(w.file("phones.dat"), kAnn);
    EXPECT_FALSE(std::filesystem::exists(w.home.path() / "phones.bak"));
    EXPECT_EQ(w.dialogues.boxes, (std::vector<std::string>{"48 Error Importing Names. Please "
                                                           "check that the file format used is "
                                                           "correct"}));
    EXPECT_TRUE(w.events.empty() && w.form.closed && !w.form.busy);

    // A name too long for a record: phones.dat stays, and Names shows the table in memory.
    Wizard big;
    big.import("h\r\n\"" + std::string(70000, 'n') + "\",\"\",\"\",\"\"\r\n");
    EXPECT_EQ(big.file("phones.dat"), kAnn);
    ASSERT_EQ(big.events.size(), 3u);
    EXPECT_EQ(big.events[2], "add 2");
    EXPECT_EQ(big.dialogues.boxes.size(), 1u);
}

TEST(ImportWizard, OpeningKeepsADamagedFileAsideAndSurvivesAnUnreadableOne) {
    const std::string torn = kAnn + std::string("\5\0Bo", 4);
    Wizard damaged(torn);
    EXPECT_EQ(damaged.directory.size(), 1u);
    EXPECT_EQ(damaged.file("phones.dat.damaged-1"), torn);
    EXPECT_EQ(damaged.events, (std::vector<std::string>{"status phones.dat: A damaged file was "
                                                        "kept as phones.dat.damaged-1"}));

    Wizard unreadable;
    std::filesystem::remove(unreadable.home.path() / "phones.dat");
    std::filesystem::create_directory(unreadable.home.path() / "phones.dat");
    unreadable.form.Form_Load();
    EXPECT_EQ(unreadable.directory.size(), 1u);
    EXPECT_EQ(unreadable.dialogues.boxes,
              (std::vector<std::string>{"48 21 Loading Telephone Directory Is a directory"}));

    // A pipe chosen as the file to import is refused at once, not waited on.
    Wizard pipe;
    pipe.chooser.file = pipe.home.path() / "in.csv";
    ASSERT_EQ(::mkfifo(pipe.chooser.file->c_str(), 0600), 0);
    pipe.form.optImport_Click();
    pipe.form.cmdExport_Click();
    pipe.form.cmdOpen_Click();
    EXPECT_EQ(pipe.dialogues.boxes,
              (std::vector<std::string>{"48 Error 22:  Not an ordinary file"}));
}

}  // namespace
}  // namespace parlane
