// Queuing, the queue file's life and the hand-over to a run, and the directory, groups, queuing
// by name and the command line, on the main window's model.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "automation/command_line.h"
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

// A single-message run stashes the queue; a crash mid-call or a close during the run loses
// neither the stash nor the single message.
TEST(QueueFile, ASingleRunCutShortLosesNothing) {
    for (const bool crash : {true, false}) {
        SCOPED_TRACE(crash ? "crash" : "close");
        TestPlatform p;
        p.writeProviders({MakeProvider("Alpha")});
        {
            auto& f = p.load();
            QueueTexts(f, {"one", "two"});
            Compose(f, "urgent");
            f.mnuSendSingle_Click();
            EXPECT_EQ(f.MessageQueue.ListCount(), 1);  // the single message alone
            if (crash) {
                p.loop.advance(Milliseconds(4000));
                ASSERT_EQ(p.line.dialled.size(), 1u);
            } else {
                f.Form_QueryUnload();
            }
            p.main.reset();  // no query-unload after a crash: the process died
        }
        auto& f = p.load();
        EXPECT_EQ(Texts(f.QueueBuffer), (std::vector<std::string>{"one", "two", "urgent"}));
        EXPECT_EQ(f.MessageQueue.ListCount(), 3);
    }
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

struct NameFixture : ::testing::Test {
    TestPlatform p;
    frmMain* f = nullptr;
    void SetUp() override {
        p.writeProviders(
            {MakeProvider("Alpha"), MakeProvider("BT Cellnet UK"), MakeProvider("Gamma")});
        p.writeDirectory({{"Zoe", "44", "07", "111", "Gamma"},
                          {"ann", "44", "07", "222", ""},
                          {"Bob", "44", "07", "333", "Gone"}});
        f = &p.load();
    }
    std::string lastArchive() const {
        const auto files = p.archiveFiles();
        return files.empty() ? std::string() : p.archiveFile(files.back());
    }
};

TEST_F(NameFixture, LoadSortsTheNamesAndArchiveNamesTheRecipient) {
    EXPECT_EQ(f->Names.rows, (std::vector<std::string>{"ann", "Bob", "Zoe"}));
    EXPECT_EQ(f->Names.Text, "Names");
    f->txtMessage.Text = "hi";
    f->QueueMessage("ZOE");
    EXPECT_EQ(f->Services.Text, "Gamma");
    EXPECT_EQ(f->lblInfo.Caption, "Waiting to Send  ");
    EXPECT_TRUE(f->timSendMessages.Enabled());
    f->SaveToOutbox("Message Sent Successfully", f->QueueBuffer[1]);
    EXPECT_NE(lastArchive().find("Sent To: \tZoe\r\n"), std::string::npos);
}

TEST_F(NameFixture, AnArchiveThatCannotBeWrittenIsReportedAndNothingElseStops) {
    std::filesystem::remove_all(p.home / "SMS" / "Outbox");
    WriteFileAtomically(p.home / "SMS" / "Outbox", "not a folder");
    f->txtMessage.Text = "lost copy";
    f->QueueMessage("Nobody");
    EXPECT_EQ(f->lblInfo.Caption, "20 Saving to Outbox Not a directory  ");
    f->txtMessage.Text = "still queued";
    f->QueueMessage("Zoe");
    EXPECT_EQ(UpperBound(f->QueueBuffer), 1);
}

TEST_F(NameFixture, CentreChoiceDiffersBetweenPersonAndGroupMember) {
    // Bob's centre is gone: the group member goes to the default centre, the person keeps
    // whatever the panel shows.
    f->Services.select(2);
    f->txtMessage.Text = "x";
    f->QueueMessage("Bob");
    EXPECT_EQ(f->QueueBuffer[1].ProviderName, "Gamma");
    f->Services.select(0);
    f->txtMessage.Text = "y";
    f->QueueGroupMessage("ann");
    EXPECT_EQ(f->QueueBuffer[2].ProviderName, "BT Cellnet UK");

    f->Names.Text = "bob";
    f->UsePhoneEntry();
    EXPECT_EQ(f->txtNumber.Text, "333");
    EXPECT_EQ(f->Names.Text, "Bob");
    EXPECT_EQ(f->Services.Text, "BT Cellnet UK");
}

TEST_F(NameFixture, GroupsRefuseUnsafeNamesAndTheRemoteQueuesTheListShown) {
    EXPECT_TRUE(f->AddGroup("Staff"));
    EXPECT_TRUE(std::filesystem::exists(p.home / "Data" / "Staff.dat"));
    for (const char* bad : {"Staff", "", "group", "../phones", "SMSC"})
        EXPECT_FALSE(f->AddGroup(bad));
    EXPECT_FALSE(std::filesystem::exists(p.home / "phones.dat.dat"));
    EXPECT_EQ(ParseNameListFile(*ReadWholeFile(p.home / "Data" / "group.dat")).records,
              std::vector<std::string>{"Staff"});

    f->lstGroup.AddItem("Zoe");
    f->lstGroup.AddItem("ann");
    f->SaveGroupMembers();
    f->txtMessage.Text = "to all";
    f->RemoteQueueGroup();
    ASSERT_EQ(UpperBound(f->QueueBuffer), 2);
    EXPECT_EQ(f->QueueBuffer[2].Text, "to all");
    f->lstGroup.Clear();  // an empty list: nothing to queue
    f->RemoteQueueGroup();
    EXPECT_EQ(f->lblInfo.Caption, "Error Queueing Group Messages By Remote - Group Not Found");
}

TEST(CommandLine, ArgumentsLimitsAndTheMessage) {
    EXPECT_EQ(GetCommandLine(""), std::vector<std::string>(1));
    const auto a = GetCommandLine("  Ann \t hello   there ");
    EXPECT_EQ(a, (std::vector<std::string>{"", "Ann", "hello", "there"}));
    EXPECT_EQ(CommandLineMessage(a), "hello there");
    EXPECT_EQ(CommandLineMessage(GetCommandLine("Ann")), "Ann");
    std::string sixty;
    for (int i = 0; i < 60; ++i) sixty += "w ";
    EXPECT_EQ(GetCommandLine(sixty).size(), 52u);
    const auto cut = GetCommandLine("Ann " + std::string(196, 'x'));
    EXPECT_EQ(cut[2].size(), 167u);  // 171 characters count, the name and its blank included
}

TEST(CommandLine, StartEndsByItselfAfterACallOrStaysOpenWaitingForOne) {
    for (const char* line : {"Ann  hello from   a script", "-Embedding", "/automation.embedding",
                             "Nobody hello", "Ann rings out"}) {
        TestPlatform p;
        p.useSimulatedModem();
        const bool ringsOut = std::string(line).find("rings") != std::string::npos;
        auto centre = MakeProvider("Sim");
        centre.AreaCode = "0800";
        centre.Number = ringsOut ? "102100" : "100100";  // a centre that never answers
        p.writeProviders({centre});
        p.writeDirectory({{"Ann", "44", "07700", "900123", ""}});
        auto& f = p.load();
        bool exited = false;
        f.onExit = [&] { exited = true; };
        f.HandleCommandLine(line);
        EXPECT_TRUE(f.minimised);
        p.loop.setRunUntilLimit(std::chrono::hours(1));
        p.loop.runUntil([&] { return exited; });
        const bool embedding = std::string(line).find("mbedding") != std::string::npos;
        // With no call ever online the start waits for one: the program stays open.
        const bool staysOpen = ringsOut || std::string(line).find("Nobody") == 0;
        EXPECT_EQ(exited, !embedding && !staysOpen) << line;
        EXPECT_EQ(f.tmrCommandLine.Enabled(), staysOpen) << line;
        EXPECT_EQ(p.archiveFiles().size(), embedding ? 0u : 1u) << line;
        if (!embedding && !staysOpen) {
            const auto text = p.archiveFile(p.archiveFiles()[0]);
            EXPECT_NE(text.find("Sent To: \tAnn"), std::string::npos);
            EXPECT_NE(text.find("hello from a script\r\n"), std::string::npos);
        }
    }
}

// A call that comes and goes between two 5 s ticks is never seen: the start stays open.
TEST(CommandLine, ACallShorterThanATickGoesUnseen) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    p.writeDirectory({{"Ann", "44", "07700", "900123", "Alpha"}});
    p.line.autoConnectMs = 200;
    p.line.farEndHangUpAfterMs = 300;
    auto& f = p.load();
    bool exited = false, online = false;
    f.onExit = [&] { exited = true; };
    f.HandleCommandLine("Ann hello");
    p.loop.setRunUntilLimit(std::chrono::minutes(10));
    p.loop.runUntil([&] {
        online = online || f.state.CallActive;
        return exited;
    });
    EXPECT_TRUE(online);
    EXPECT_FALSE(exited);
    EXPECT_TRUE(f.tmrCommandLine.Enabled());
}

}  // namespace
}  // namespace parlane
