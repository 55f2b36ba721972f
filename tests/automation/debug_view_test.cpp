// The debug view's model: the line panes through a real call, their bound, the saved file and
// the system-information command.
#include <gtest/gtest.h>

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
    ASSERT_EQ(p.archiveStatuses(),
              std::vector<std::string>(2, "Message Sent Successfully (simulated)"));

    EXPECT_NE(sent.find("Second of two"), std::string::npos);
    EXPECT_EQ(f.DebugForm.ToServer.Text(), sent);
    EXPECT_EQ(f.DebugForm.FromServer.Text(), inStep);
    // Exit empties the line panes; the log, with the call in it, stays.
    const std::string log = f.DebugForm.Text1();
    f.DebugForm.cmdExit_Click();
    EXPECT_EQ(f.DebugForm.Text1(), log);
    EXPECT_NE(log.find("Comm Port Open"), std::string::npos);
    EXPECT_EQ(f.DebugForm.ToServer.Text() + f.DebugForm.FromServer.Text(), "");
}

// Text going in at the caret is checked through the view (DebugWindow); here the bound: the dots
// count towards it, and only going past it empties both panes.
TEST(DebugView, TheLinePanesEmptyPastTheirBound) {
    TestPlatform p;
    auto& f = p.load();
    auto& d = f.DebugForm;
    for (const std::size_t length : {frmDebug::kLinePaneLimit, frmDebug::kLinePaneLimit + 1}) {
        d.cmdExit_Click();
        f.SendText(std::string(length, 'm'));
        d.BoundLinePanes();
        const bool emptied = length > frmDebug::kLinePaneLimit;
        EXPECT_EQ(d.FromServer.Text().empty() && d.ToServer.Text().empty(), emptied) << length;
    }
}

TEST(DebugView, VersionLineGivesTheMinorTwoDigits) {
    EXPECT_EQ(DebugVersionLine("Parlane", 1, 2, 33), "Parlane 1.02.33");
    EXPECT_EQ(DebugVersionLine("Parlane", 1, 12, 0), "Parlane 1.12.0");
}

// Each box as "<flags> <prompt>".
std::vector<std::string> Boxes(TestPlatform& p) {
    std::vector<std::string> boxes;
    for (const auto& b : p.dialogues.shown)
        boxes.push_back(std::to_string(b.flags) + " " + b.prompt);
    p.dialogues.shown.clear();
    return boxes;
}

TEST(DebugView, SaveWritesTheFileByteForByteAndAsksBeforeReplacing) {
    TestPlatform p;
    auto& f = p.load();
    testing::PickedFile chooser;
    f.openFileChooser = &chooser;
    auto& d = f.DebugForm;
    const auto file = p.home / "out" / "debug.txt";
    const std::string saved = "64 Data successfully saved as " + file.string();
    const std::string overwrite = "36 Overwrite existing " + file.string() + " ?";
    const std::string tail = "Program Information:\r\n" +
                             DebugVersionLine("Parlane", PARLANE_VERSION_MAJOR,
                                              PARLANE_VERSION_MINOR, PARLANE_VERSION_PATCH) +
                             "\r\n";

    d.cmdSave_Click();  // cancelled: nothing written, nothing said
    EXPECT_EQ(chooser.asked, "Save Debug File|" + (p.home / "").string() +
                                 "|debug.txt|txt|Text Files (*.txt)|*.txt");
    d.Sent("\x02ID\r");
    d.Received("ID=<13>");
    chooser.file = file;
    d.cmdSave_Click();  // no such folder: the write fails without a word
    EXPECT_EQ(Boxes(p), std::vector<std::string>{});
    std::filesystem::create_directories(file.parent_path());
    d.cmdSave_Click();
    EXPECT_EQ(ReadBytes(file), "TAPI Messages:\r\n" + d.Text1() +
                                   "\r\n\r\nData Transmitted:\r\n\x02ID\r\r\n\r\n"
                                   "Data Received:\r\n....ID=<13>\r\n\r\n" +
                                   tail);
    EXPECT_EQ(Boxes(p), std::vector<std::string>{saved});

    // There already: No leaves it, Yes replaces it; empty panes still give every heading.
    d.cmdExit_Click();
    for (const int answer : {AnswerNo, AnswerYes}) {
        WriteBytes(file, "keep me");
        p.dialogues.answers = {answer};
        d.cmdSave_Click();
        const bool yes = answer == AnswerYes;
        const std::vector<std::string> asked = {overwrite, saved};
        EXPECT_EQ(Boxes(p), std::vector<std::string>(asked.begin(), asked.begin() + (yes ? 2 : 1)));
        EXPECT_EQ(ReadBytes(file), yes ? "TAPI Messages:\r\n" + d.Text1() +
                                             "\r\n\r\nData Transmitted:\r\n\r\n\r\n"
                                             "Data Received:\r\n\r\n\r\n" +
                                             tail
                                       : "keep me");
    }
}

TEST(DebugView, SystemInformationStartsTheFirstToolFoundOrSaysItCannot) {
    TestPlatform p;
    auto& d = p.load().DebugForm;
    const auto bin = p.home / "bin";
    std::vector<std::filesystem::path> started;
    bool starts = true;
    d.startProgram = [&](const std::filesystem::path& program) {
        started.push_back(program);
        return starts;
    };
    d.systemInfoSearchPath = ":" + (p.home / "none").string() + ":" + bin.string();
    WriteBytes(bin / "hardinfo", "");  // not executable: not a tool
    WriteBytes(bin / "kinfocenter", "");
    std::filesystem::permissions(bin / "kinfocenter", std::filesystem::perms::owner_exec);
    d.cmdSystem_Click();
    starts = false;  // found, but it would not start
    d.cmdSystem_Click();
    d.systemInfoSearchPath = (p.home / "none").string();
    d.cmdSystem_Click();
    EXPECT_EQ(started, std::vector<std::filesystem::path>(2, bin / "kinfocenter"));
    EXPECT_EQ(Boxes(p),
              std::vector<std::string>(2, "0 System Information Is Unavailable At This Time"));
}

}  // namespace
}  // namespace parlane
