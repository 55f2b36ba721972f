// A run killed at each file operation it performs, in turn, then started again until the queue
// is empty: every message ends in the archive exactly once, none is lost, and no message whose
// acknowledgement was on disk reaches a centre again.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <set>

#include "core/file_io.h"
#include "line/sim/simulated_base_centre.h"
#include "store/queue_journal.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

constexpr int kKilled = 9;
const std::vector<std::string> kTexts = {"m1", "m2", "m3", "m4", "m5", "m6"};

void PrepareHome(const std::filesystem::path& home) {
    std::filesystem::create_directories(home);
    std::vector<Provider> centres;
    const std::pair<const char*, int> kinds[] = {
        {"Tap", ProtocolTap}, {"Ucp", ProtocolUcp}, {"Orange", ProtocolOrange}};
    for (const auto& [name, protocol] : kinds) {
        auto centre = MakeProvider(name, protocol, "3");
        centre.AreaCode = "0800";
        centre.Number = "100" + std::to_string(100 + protocol);
        centres.push_back(centre);
    }
    std::string error;
    WriteFileAtomically(home / "smsc.dat", SerializeProviderFile(centres, error));
    MessageTable queue = EmptyMessageTable();
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        QueuedMessage m;
        m.CountryCode = "44";
        m.AreaCode = "07700";
        m.Number = "90012" + std::to_string(i);
        m.Text = kTexts[i];
        m.MessageNumber = static_cast<std::int32_t>(i + 1);
        m.ProviderName = centres[i % centres.size()].ProviderName;
        queue.push_back(m);
    }
    WriteFileAtomically(home / "queue.dat", SerializeQueueFile(queue, error));
}

// Starts the program on `home`, sends whatever is queued and closes it, telling `accepted` of
// each message a centre takes.
void RunOnce(const std::filesystem::path& home,
             const std::function<void(const std::string&)>& accepted) {
    TestPlatform p;
    p.home = home;
    p.useSimulatedModem();
    auto& f = p.load();
    const SimulatedCentreBase* seenCentre = nullptr;
    std::size_t seen = 0;
    const auto watch = [&] {
        const auto* centre = dynamic_cast<const SimulatedCentreBase*>(p.modem->centre());
        if (!centre) return;
        if (centre != seenCentre || centre->accepted().size() < seen) seenCentre = centre, seen = 0;
        for (; seen < centre->accepted().size(); ++seen) accepted(centre->accepted()[seen].text);
    };
    if (UpperBound(f.QueueBuffer) > 0) {
        f.mnuSend_Click();
        p.loop.runUntil([&] {
            watch();
            return f.lblInfo.Caption == "There are no more messages in the queue  ";
        });
    }
    f.Form_QueryUnload();
    f.Form_Unload();
}

struct DiskState {
    std::multiset<std::string> archivedSent;  // texts of archive files saying they went
    std::set<std::string> acknowledged;       // archived or promised by the journal
    std::set<std::string> known;              // anywhere on disk
    std::vector<std::string> brokenFiles;     // archive files not whole
};

std::string TextOfArchiveFile(const std::string& content) {
    const std::string label = "Message: \r\n\r\n";
    const auto at = content.find(label);
    if (at == std::string::npos || content.size() < at + label.size() + 2 ||
        content.substr(content.size() - 2) != "\r\n")
        return {};
    return content.substr(at + label.size(), content.size() - at - label.size() - 2);
}

DiskState ReadDisk(const std::filesystem::path& home, bool killed) {
    DiskState disk;
    for (const auto& entry : std::filesystem::directory_iterator(home / "SMS" / "Outbox")) {
        // What a killed write leaves under its hidden name; the next start removes it.
        if (killed && entry.path().filename().string().rfind(".parlane-unfinished-", 0) == 0)
            continue;
        const auto content = ReadWholeFile(entry.path()).value_or("");
        const auto text = TextOfArchiveFile(content);
        if (text.empty() || entry.path().extension() != ".msg") {
            disk.brokenFiles.push_back(entry.path().filename().string());
            continue;
        }
        if (content.find("Status: \tMessage Sent Successfully (simulated)\r\n") !=
            std::string::npos) {
            disk.archivedSent.insert(text);
            disk.acknowledged.insert(text);
        }
        disk.known.insert(text);
    }
    if (const auto bytes = ReadWholeFile(home / "queue.journal")) {
        const auto journal = ParseQueueJournal(*bytes);
        for (std::size_t i = 1; i < journal.pending.size(); ++i)
            disk.known.insert(journal.pending[i].Text);
        for (const auto& f : journal.finished) {
            disk.acknowledged.insert(f.message.Text);
            disk.known.insert(f.message.Text);
        }
    }
    if (const auto bytes = ReadWholeFile(home / "queue.dat")) {
        const auto queue = ParseQueueFile(*bytes).records;
        for (std::size_t i = 1; i < queue.size(); ++i) disk.known.insert(queue[i].Text);
    }
    return disk;
}

// Runs the program in a child process that dies at file operation `killAt`; true when it did.
bool RunAndKill(const std::filesystem::path& home, int killAt) {
    const pid_t child = ::fork();
    if (child == 0) {
        // The child's own temporary folders go where the test cleans up.
        ::setenv("TMPDIR", home.parent_path().c_str(), 1);
        int operations = 0;
        SetFileOperationHook([&](FileOperation, const std::filesystem::path&) {
            if (++operations == killAt) ::_exit(kKilled);
            return 0;
        });
        RunOnce(home, [](const std::string&) {});
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == kKilled;
}

TEST(KillAtEveryFileOperation, NothingLostNothingSentTwice) {
    testing::TempFolder root;
    int kills = 0;
    for (int killAt = 1;; ++killAt) {
        const auto home = root.path() / std::to_string(killAt);
        PrepareHome(home);
        if (!RunAndKill(home, killAt)) break;
        ++kills;
        const DiskState afterKill = ReadDisk(home, true);
        EXPECT_TRUE(afterKill.brokenFiles.empty()) << "kill " << killAt;
        EXPECT_EQ(afterKill.known, std::set<std::string>(kTexts.begin(), kTexts.end()))
            << "kill " << killAt;

        std::map<std::string, int> acceptedAgain;
        for (int restart = 0; restart < 3; ++restart) {
            RunOnce(home, [&](const std::string& text) { ++acceptedAgain[text]; });
            if (!std::filesystem::exists(home / "queue.dat")) break;
        }

        for (const auto& text : afterKill.acknowledged)
            EXPECT_EQ(acceptedAgain[text], 0) << text << " sent again after kill " << killAt;
        const DiskState end = ReadDisk(home, false);
        EXPECT_EQ(end.archivedSent, std::multiset<std::string>(kTexts.begin(), kTexts.end()))
            << "kill " << killAt;
        EXPECT_TRUE(end.brokenFiles.empty()) << "kill " << killAt;
        EXPECT_FALSE(std::filesystem::exists(home / "queue.dat")) << "kill " << killAt;
        std::filesystem::remove_all(home);
        if (::testing::Test::HasFailure()) break;
    }
    // The run writes the journal, the archive and queue.dat many times over.
    EXPECT_GT(kills, 40);
}

// The disk fills mid-call, between a message's departure and its acknowledgement (a), or before
// a message departs (b): no message reaches the centre twice, nothing more goes out while a
// record is owed, and once there is room Send finishes the run with one record each.
TEST(DiskFull, NothingIsSentTwiceAndTheRunGoesOnWhenThereIsRoom) {
    for (const char* fillsAt : {"two", "one"}) {
        SCOPED_TRACE(fillsAt);
        TestPlatform p;
        p.useSimulatedModem();
        auto centre = MakeProvider("Tap", ProtocolTap, "3");
        centre.AreaCode = "0800";
        centre.Number = "100100";
        p.writeProviders({centre});
        auto& f = p.load();
        testing::QueueTexts(f, {"one", "two", "three"});
        bool full = false;
        std::multiset<std::string> sent;
        p.modem->onTraffic = [&](bool toCentre, const std::string& bytes) {
            for (const char* text : {"one", "two", "three"})
                if (toCentre && bytes.find(std::string("\r") + text + "\r") != std::string::npos)
                    sent.insert(text);
            if (toCentre && bytes.find(fillsAt) != std::string::npos) full = true;
        };
        SetFileOperationHook([&](FileOperation operation, const std::filesystem::path&) {
            return full && operation == FileOperation::Write ? ENOSPC : 0;
        });
        f.mnuSend_Click();
        ASSERT_TRUE(p.loop.runUntil(
            [&] { return !f.timSendMessages.Enabled() && !f.state.CallActive && full; }));
        EXPECT_NE(f.lblInfo.Caption.find("Sending stopped"), std::string::npos)
            << f.lblInfo.Caption;
        full = false;
        f.mnuSend_Click();
        EXPECT_TRUE(p.loop.runUntil(
            [&] { return f.lblInfo.Caption == "There are no more messages in the queue  "; }));
        SetFileOperationHook(nullptr);
        EXPECT_EQ(sent, (std::multiset<std::string>{"one", "two", "three"}));
        EXPECT_EQ(p.archiveStatuses(),
                  std::vector<std::string>(3, "Message Sent Successfully (simulated)"));
    }
}

}  // namespace
}  // namespace parlane
