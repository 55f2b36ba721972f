// The debug view's model: the line panes through a real call, their bound, the saved file and
// the system-information command.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "automation/frm_debug.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::QueueTexts;
using testing::ReadBytes;
using testing::TestPlatform;
using testing::WriteBytes;

// What FromServer shows of bytes received in a dialogue that keeps its control bytes.
std::string Echo(const std::string& bytes) {
    std::string out;
    for (unsigned char b : bytes) {
        if (b >= 0x80) continue;
        out += b < 0x20 ? "<" + std::to_string(b) + ">" : std::string(1, static_cast<char>(b));
    }
    return out;
}

TEST(DebugView, LinePanesFollowAWholeTapCallInStep) {
    TestPlatform p;
    p.useSimulatedModem();
    auto centre = MakeProvider("Sim", ProtocolTap, "3");
    centre.AreaCode = "0800";
    centre.Number = "10100";
    p.writeProviders({centre});
    auto& f = p.load();
    // The line as the modem saw it, in order: what the panes must show.
    std::string sent, inStep;
    p.modem->onTraffic = [&](bool toCentre, const std::string& bytes) {
        if (toCentre) sent += bytes;
        inStep += toCentre ? std::string(bytes.size(), '.') : Echo(bytes);
    };
    QueueTexts(f, {"First of two", "Second of two"}, "44", "07700", "900123");
    f.mnuSend_Click();
    ASSERT_TRUE(p.loop.runUntil(
        [&] { return f.lblInfo.Caption == "There are no more messages in the queue  "; }));
    ASSERT_EQ(p.archiveStatuses(), std::vector<std::string>(2, "Message Sent Successfully"));

    EXPECT_NE(sent.find("Second of two"), std::string::npos);
    EXPECT_EQ(f.DebugForm.ToServer.Text(), sent);
    EXPECT_EQ(f.DebugForm.FromServer.Text(), inStep);
    // The log kept the call too, and leaving the window keeps it while the panes go.
    const std::string log = f.DebugForm.Text1();
    EXPECT_NE(log.find("Comm Port Open"), std::string::npos);
    f.DebugForm.Show();
    f.DebugForm.cmdExit_Click();
    EXPECT_FALSE(f.DebugForm.Visible);
    EXPECT_EQ(f.DebugForm.Text1(), log);
    EXPECT_EQ(f.DebugForm.ToServer.Text() + f.DebugForm.FromServer.Text(), "");
}

TEST(DebugView, TextGoesInAtTheCaretAndTheLinePanesEmptyPastTheirBound) {
    TestPlatform p;
    auto& f = p.load();
    auto& d = f.DebugForm;
    d.Received("ab");
    d.FromServer.SetSelStart(1);
    d.Sent("XY");
    EXPECT_EQ(d.FromServer.Text(), "a..b");
    EXPECT_EQ(d.FromServer.SelStart(), 3u);
    d.FromServer.SetSelStart(99);  // past the end is the end
    d.Received("c");
    EXPECT_EQ(d.FromServer.Text(), "a..bc");

    // The dots count towards the bound; only going past it empties both panes.
    struct Case {
        std::size_t sentLength;
        bool emptied;
    };
    for (const Case c :
         {Case{frmDebug::kLinePaneLimit, false}, {frmDebug::kLinePaneLimit + 1, true}}) {
        d.FromServer.Clear();
        d.ToServer.Clear();
        f.SendText(std::string(c.sentLength, 'm'));
        d.BoundLinePanes();
        EXPECT_EQ(d.FromServer.Text().empty(), c.emptied) << c.sentLength;
        EXPECT_EQ(d.ToServer.Text().empty(), c.emptied) << c.sentLength;
    }
}

TEST(DebugView, VersionLineGivesTheMinorTwoDigits) {
    struct Case {
        int major, minor, revision;
        const char* line;
    };
    for (const Case c : {Case{1, 2, 33, "Parlane 1.02.33"},
                         {1, 12, 0, "Parlane 1.12.0"},
                         {2, 0, 7, "Parlane 2.00.7"},
                         {10, 100, 1, "Parlane 10.100.1"}})
        EXPECT_EQ(DebugVersionLine("Parlane", c.major, c.minor, c.revision), c.line);
}

TEST(DebugView, SaveWritesTheFileByteForByteAndAsksBeforeReplacing) {
    TestPlatform p;
    auto& f = p.load();
    testing::PickedFile chooser;
    f.openFileChooser = &chooser;
    auto& d = f.DebugForm;
    const auto file = p.home / "out" / "debug.txt";
    const std::string version = DebugVersionLine("Parlane", PARLANE_VERSION_MAJOR,
                                                 PARLANE_VERSION_MINOR, PARLANE_VERSION_PATCH);
    const std::string info =
        std::to_string(MbInformation) + " Data successfully saved as " + file.string();

    // Cancelled: nothing is written and nothing said.
    d.cmdSave_Click();
    EXPECT_EQ(chooser.asked, "Save Debug File|" + (p.home / "").string() +
                                 "|debug.txt|txt|Text Files (*.txt)|*.txt");
    EXPECT_TRUE(p.dialogues.shown.empty());

    // A missing folder: the write fails without a word, and the panes keep their text.
    d.Sent(
        "\x02"
        "ID\r");
    d.Received("ID=<13>");
    chooser.file = file;
    d.cmdSave_Click();
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_TRUE(p.dialogues.shown.empty());

    std::filesystem::create_directories(file.parent_path());
    d.cmdSave_Click();
    const std::string log = d.Text1();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(ReadBytes(file), "TAPI Messages:\r\n" + log +
                                   "\r\n\r\nData Transmitted:\r\n\x02ID\r\r\n\r\n"
                                   "Data Received:\r\n....ID=<13>\r\n\r\n"
                                   "Program Information:\r\n" +
                                   version + "\r\n");
    ASSERT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_EQ(std::to_string(p.dialogues.shown[0].flags) + " " + p.dialogues.shown[0].prompt, info);

    // There already: No leaves it as it was, Yes replaces it.
    struct Case {
        int answer;
        bool replaced;
    };
    for (const Case c : {Case{AnswerNo, false}, {AnswerYes, true}}) {
        WriteBytes(file, "keep me");
        d.cmdExit_Click();  // empty panes: the headings and the version line are still written
        p.dialogues.shown.clear();
        p.dialogues.answers = {c.answer};
        d.cmdSave_Click();
        ASSERT_GE(p.dialogues.shown.size(), 1u);
        EXPECT_EQ(p.dialogues.shown[0].prompt, "Overwrite existing " + file.string() + " ?");
        EXPECT_EQ(p.dialogues.shown[0].flags, MbQuestionYesNo);
        const std::string expected =
            c.replaced ? "TAPI Messages:\r\n" + d.Text1() +
                             "\r\n\r\nData Transmitted:\r\n\r\n\r\nData Received:\r\n\r\n\r\n"
                             "Program Information:\r\n" +
                             version + "\r\n"
                       : "keep me";
        EXPECT_EQ(ReadBytes(file), expected) << c.answer;
        EXPECT_EQ(p.dialogues.shown.size(), c.replaced ? 2u : 1u);
    }
    struct stat st {};
    ASSERT_EQ(::stat(file.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
}

TEST(DebugView, SystemInformationStartsTheFirstToolFoundOrSaysItCannot) {
    TestPlatform p;
    auto& f = p.load();
    auto& d = f.DebugForm;
    const auto bin = p.home / "bin";
    std::vector<std::filesystem::path> started;
    bool starts = true;
    d.startProgram = [&](const std::filesystem::path& program) {
        started.push_back(program);
        return starts;
    };
    d.systemInfoSearchPath = ":" + (p.home / "none").string() + ":" + bin.string();
    WriteBytes(bin / "hardinfo", "#!/bin/sh\n");  // not executable: not a tool
    WriteBytes(bin / "kinfocenter", "#!/bin/sh\n");
    std::filesystem::permissions(bin / "kinfocenter", std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add);
    d.cmdSystem_Click();
    EXPECT_EQ(started, std::vector<std::filesystem::path>{bin / "kinfocenter"});
    EXPECT_TRUE(p.dialogues.shown.empty());

    starts = false;  // found but would not start
    d.cmdSystem_Click();
    d.systemInfoSearchPath = (p.home / "none").string();
    d.cmdSystem_Click();
    EXPECT_EQ(started.size(), 2u);
    ASSERT_EQ(p.dialogues.shown.size(), 2u);
    for (const auto& box : p.dialogues.shown)
        EXPECT_EQ(box.prompt, "System Information Is Unavailable At This Time");
}

}  // namespace
}  // namespace parlane
