// Queuing, the queue file's life and the hand-over to a run, on the main window's model.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "core/file_io.h"
#include "core/string_ids.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::Compose;
using testing::MakeProvider;
using testing::QueueTexts;
using testing::TestPlatform;
using testing::Texts;

TEST(Queue, ChecksInOrderThenQueuesWithRunningNumbers) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha"), MakeProvider("Beta")});
    auto& f = p.load();
    struct Case {
        std::string text, country, area, number, message, focus;
    } cases[] = {
        {"", "44", "07", "1", "Please Enter Some Text For Your Message", "txtMessage"},
        {"Hi", "", "07", "1", "Please Enter A Country Code", "txtCountryCode"},
        {"Hi", "44", "", "1", "Please Enter An Area Code", "txtAreaCode"},
        {"Hi", "44", "07", "", "Please Enter A Telephone Number", "txtNumber"},
        {"", "", "", "", "Please Enter Some Text For Your Message", "txtMessage"},
    };
    for (const auto& c : cases) {
        Compose(f, c.text, c.country, c.area, c.number);
        p.dialogues.shown.clear();
        f.mnuQueue_Click();
        ASSERT_EQ(p.dialogues.shown.size(), 1u);
        EXPECT_EQ(p.dialogues.shown[0].prompt, c.message);
        EXPECT_EQ(p.dialogues.shown[0].flags, MbInformation);
        EXPECT_EQ(p.dialogues.shown[0].title, "Parlane");
        EXPECT_EQ(f.focusedControl, c.focus);
        EXPECT_EQ(UpperBound(f.QueueBuffer), 0);
    }
    EXPECT_EQ(f.busyDepth, 0);

    Compose(f, "first");
    f.Services.select(1);
    f.mnuQueue_Click();
    EXPECT_EQ(f.lblInfo.Caption, "1 Message in Queue");
    Compose(f, "second");
    f.mnuQueue_Click();
    EXPECT_EQ(f.lblInfo.Caption, "2 Messages in Queue");
    ASSERT_EQ(UpperBound(f.QueueBuffer), 2);
    EXPECT_EQ(f.QueueBuffer[1], (QueuedMessage{"44", "07", "1234", "first", 1, 0, "Beta"}));
    EXPECT_EQ(f.QueueBuffer[2].MessageNumber, 2);
    EXPECT_EQ(f.MessageQueue.rows,
              (std::vector<std::string>{"Beta 44 07 1234", "Beta 44 07 1234"}));
    EXPECT_EQ(f.MessageQueue.ListIndex, 1);
    EXPECT_EQ(f.txtMessageQueue.Text, "second");
    EXPECT_TRUE(f.txtMessage.Text.empty());
    EXPECT_EQ(f.busyDepth, 0);
}

TEST(Queue, WithoutCentresNothingIsQueued) {
    TestPlatform p;  // no smsc.dat: one empty centre, one empty row
    auto& f = p.load();
    EXPECT_TRUE(std::filesystem::exists(p.home / "smsc.dat"));
    EXPECT_EQ(f.Services.rows, std::vector<std::string>{""});
    Compose(f, "Hi");
    f.mnuQueue_Click();
    ASSERT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_EQ(p.dialogues.shown[0].prompt, "Please Set Up Your SMSC");
    EXPECT_EQ(f.focusedControl, "txtMessage");
    EXPECT_EQ(f.txtMessage.Text, "Hi");
    // Nor does a centre given a name but no number yet.
    f.Providers[0].ProviderName = f.Services.Text = "Draft";
    f.mnuQueue_Click();
    EXPECT_EQ(p.dialogues.shown.back().prompt, "Please Set Up Your SMSC");
    EXPECT_EQ(UpperBound(f.QueueBuffer), 0);
}

// A message the journal cannot hold (the disk refuses the write, or a text too long for a record)
// is not queued: it stays in the panel and the status line says why.
TEST(Queue, AMessageTheJournalCannotKeepStaysInThePanel) {
    const std::string huge(70000, 'h');
    for (const auto& [text, error] : {std::pair{std::string("Hi"), EISDIR}, {huge, EOVERFLOW}}) {
        TestPlatform p;
        p.writeProviders({MakeProvider("Beta")});
        auto& f = p.load();
        if (error == EISDIR) std::filesystem::create_directories(p.home / "queue.journal" / "x");
        Compose(f, text);
        f.mnuQueue_Click();
        EXPECT_EQ(UpperBound(f.QueueBuffer), 0);
        EXPECT_EQ(f.MessageQueue.ListCount(), 0);
        EXPECT_EQ(f.txtMessage.Text, text);
        EXPECT_EQ(f.lblInfo.Caption, FailureStatus(error, "Saving Message Queue") + "  ");
    }
}

TEST(Queue, UnknownCentreIsArchivedNotQueued) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Vodafone")});
    auto& f = p.load();
    Compose(f, "Hello");
    f.Services.Text = "Orange";
    f.mnuQueue_Click();
    EXPECT_EQ(f.lblInfo.Caption, "SMSC Details not Found  ");
    EXPECT_EQ(UpperBound(f.QueueBuffer), 0);
    EXPECT_EQ(f.txtMessage.Text, "Hello");
    const auto files = p.archiveFiles();
    ASSERT_EQ(files.size(), 1u);
    const auto text = p.archiveFile(files[0]);
    EXPECT_NE(text.find("Status: \tSMSC Details not Found\r\n"), std::string::npos);
    EXPECT_NE(text.find("Using: \tUnknown SMSC\r\n"), std::string::npos);
    EXPECT_NE(text.find("Sent To: \t+447"
                        "1234\r\n"),
              std::string::npos);

    // A longer name still finds its centre by prefix.
    f.Services.Text = "Vodafone TAP";
    f.mnuQueue_Click();
    EXPECT_EQ(UpperBound(f.QueueBuffer), 1);
}

TEST(QueueFile, SurvivesRestartAndIsDeletedOnLoad) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    {
        auto& f = p.load();
        QueueTexts(f, {"one", "two"});
        f.Form_QueryUnload();
        f.Form_Unload();
        p.main.reset();
    }
    const auto bytes = ReadWholeFile(p.home / "queue.dat");
    ASSERT_TRUE(bytes);
    EXPECT_EQ(ParseQueueFile(*bytes).records.size(), 3u);  // the placeholder counts
    EXPECT_FALSE(std::filesystem::exists(p.home / "queue.journal"));

    auto& f = p.load();
    EXPECT_EQ(UpperBound(f.QueueBuffer), 2);
    EXPECT_EQ(f.QueueBuffer[2].Text, "two");
    EXPECT_EQ(f.lblInfo.Caption, "2 Messages in Queue");
    EXPECT_EQ(f.MessageQueue.ListIndex, 0);
    EXPECT_FALSE(std::filesystem::exists(p.home / "queue.dat"));
    // A message queued now is numbered above the restored ones.
    QueueTexts(f, {"three"});
    EXPECT_EQ(f.QueueBuffer[3].MessageNumber, f.QueueBuffer[2].MessageNumber + 1);
    f.RemoveQueuedMessageRow(2);

    // An emptied queue leaves no file at exit.
    f.RemoveQueuedMessageRow(0);
    EXPECT_EQ(f.QueueBuffer[1].Text, "two");
    f.RemoveQueuedMessageRow(0);
    f.Form_QueryUnload();
    EXPECT_FALSE(std::filesystem::exists(p.home / "queue.dat"));
}

TEST(QueueFile, EmptyOrDamagedAtStart) {
    const std::string header(18, '\0');
    // Empty files give an empty queue quietly; a damaged one is kept aside, with a word.
    for (const auto& [bytes, keptAside] :
         {std::pair{std::string(), false}, {header, false}, {header + "\x02", true}}) {
        TestPlatform p;
        p.writeProviders({MakeProvider("Alpha")});
        WriteFileAtomically(p.home / "queue.dat", bytes);
        auto& f = p.load();
        EXPECT_EQ(UpperBound(f.QueueBuffer), 0);
        EXPECT_FALSE(std::filesystem::exists(p.home / "queue.dat"));
        EXPECT_EQ(std::filesystem::exists(p.home / "queue.dat.damaged-1"), keptAside);
        EXPECT_EQ(f.lblInfo.Caption.empty(), !keptAside) << f.lblInfo.Caption;
    }
}

TEST(QueueFile, CrashLosesNothing) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    {
        auto& f = p.load();
        QueueTexts(f, {"one", "two", "three"});
        // A single-message run stashes the queue and is cut off by a crash mid-call.
        Compose(f, "urgent");
        f.mnuSendSingle_Click();
        p.loop.advance(Milliseconds(4000));
        ASSERT_EQ(p.line.dialled.size(), 1u);
        p.main.reset();  // no query-unload: the process died
    }
    auto& f = p.load();
    EXPECT_EQ(Texts(f.QueueBuffer), (std::vector<std::string>{"one", "two", "three", "urgent"}));
    EXPECT_EQ(f.MessageQueue.ListCount(), 4);
}

TEST(QueueFile, CloseDuringSingleRunKeepsBoth) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    auto& f = p.load();
    QueueTexts(f, {"waiting"});
    Compose(f, "single");
    f.mnuSendSingle_Click();
    EXPECT_TRUE(f.MessageQueue.rows.size() == 1u);
    f.Form_QueryUnload();
    auto read = ParseQueueFile(ReadWholeFile(p.home / "queue.dat").value());
    ASSERT_EQ(read.records.size(), 3u);
    EXPECT_EQ(read.records[1].Text, "waiting");
    EXPECT_EQ(read.records[2].Text, "single");
}

TEST(SingleRun, StashedQueueComesBackAfterTheRun) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    p.line.autoConnectMs = 3000;
    p.line.farEndHangUpAfterMs = 1000;
    auto& f = p.load();
    f.state.MaxDialAttempts = 1;
    QueueTexts(f, {"a", "b"});
    Compose(f, "single");
    f.mnuSendSingle_Click();
    EXPECT_TRUE(std::filesystem::exists(p.home / "queue.dat"));
    EXPECT_EQ(UpperBound(f.QueueBuffer), 1);
    EXPECT_EQ(f.lblInfo.Caption, "Waiting to Send  ");
    // One dial, the far end hangs up, the second pass gives the message up, the run ends.
    p.loop.runUntil([&] {
        return f.lblInfo.Caption == "1 Message in Queue" ||
               f.lblInfo.Caption == "2 Messages in Queue";
    });
    EXPECT_EQ(UpperBound(f.QueueBuffer), 2);
    EXPECT_EQ(f.QueueBuffer[1].Text, "a");
    EXPECT_FALSE(f.timCheckSingleMessageSent.Enabled());
    EXPECT_TRUE(std::filesystem::exists(p.home / "queue.dat"));  // kept until the next save
}

}  // namespace
}  // namespace parlane
