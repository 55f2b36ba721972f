// Directory, groups and queuing by name on the main window's model.
#include <gtest/gtest.h>

#include <filesystem>

#include "automation/command_line.h"
#include "core/file_io.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

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
