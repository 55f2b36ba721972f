// A script's start: queue, send, end, and an exit status that says what became of the message;
// whatever did not go stays in the queue.
#include "automation/send_and_exit.h"

#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::QueueTexts;
using testing::TestPlatform;

struct Outcome {
    int status = -1;
    bool ended = false;
    int queued = 0;  // messages in the queue and the run at the end
    std::vector<std::string> archived;
    std::vector<std::string> report;
    Milliseconds took{};
};

// Runs one start on a home whose centre is dialled at `centreNumber` through the simulated
// modem (empty: no centre); `during` may act once the run has begun.
Outcome RunScript(const std::string& centreNumber, const std::string& name,
                  const std::function<void(TestPlatform&, frmMain&)>& during = {},
                  const std::string& device = "0") {
    TestPlatform p;
    p.useSimulatedModem();
    if (!centreNumber.empty()) {
        auto centre = MakeProvider("Sim", centreNumber.back() == '2' ? ProtocolVoda : ProtocolTap);
        centre.AreaCode = "0800";
        centre.Number = centreNumber;
        centre.TapiDevice = device;
        p.writeProviders({centre});
    }
    p.writeDirectory({{"Ann", "44", "07700", "900123", centreNumber.empty() ? "" : "Sim"}});
    auto& f = p.load();
    Outcome out;
    SendAndExit script(f, p.loop, [&] { out.ended = true; });
    script.start(name, "hello there");
    if (during) during(p, f);
    p.loop.runUntil([&] { return out.ended; });
    out.status = script.exitStatus();
    out.queued = UpperBound(f.QueueBuffer) + std::max(0, UpperBound(f.SendBuffer));
    out.archived = p.archiveStatuses();
    out.report = script.report();
    out.took = p.loop.now();
    return out;
}

// Every run here is on the simulated modem, so even the centre's acknowledgement is no
// delivery: it has a status of its own, and the archive says so.
TEST(SendAndExit, TheExitStatusSaysWhatBecameOfTheMessage) {
    struct Case {
        const char* what;
        std::string centre, name, device;
        int status;
        const char* archived;  // nullptr: nothing archived
    } cases[] = {
        {"sent", "100100", "Ann", "0", kExitSimulated, "Message Sent Successfully (simulated)"},
        {"refused", "109102", "Ann", "0", kExitRefused, "Message Rejected By SMSC (simulated)"},
        {"no answer", "102100", "Ann", "0", kExitLineFailed,
         "Aborted - Maximum Dial Attempts Exceeded (simulated)"},
        {"unknown name", "100100", "Bob", "0", kExitNotInDirectory,
         "Aborted - Bob is not in Telephone Directory"},
        {"no centre", "", "Ann", "0", kExitNoCentre, nullptr},
        // A line that is not here is never replaced by another: the message waits in the queue.
        {"line gone", "100100", "Ann", "3", kExitNoLine, nullptr},
        {"no line chosen", "100100", "Ann", "", kExitNoLine, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Outcome out = RunScript(c.centre, c.name, {}, c.device);
        EXPECT_TRUE(out.ended);
        EXPECT_EQ(out.status, c.status);
        EXPECT_EQ(out.queued, c.status == kExitNoLine ? 1 : 0);
        EXPECT_EQ(out.archived,
                  c.archived ? std::vector<std::string>{c.archived} : std::vector<std::string>{});
        if (c.status == kExitNoLine) {
            EXPECT_NE(out.report.at(0).find("\"Sim\""), std::string::npos) << out.report.at(0);
        }
    }
}

// Stop with the answer to keep the rest: the head is given up, the run idles, the start ends and
// the message queued before it waits for the next run.
TEST(SendAndExit, AStoppedRunEndsUnfinished) {
    const Outcome out = RunScript("103100", "Ann", [](TestPlatform& p, frmMain& f) {
        QueueTexts(f, {"queued earlier"}, "44", "07700", "900124");
        p.loop.runUntil([&] { return f.state.CallActive; });
        p.dialogues.answers = {AnswerYes};
        f.mnuHangUp_Click();
    });
    EXPECT_TRUE(out.ended);
    EXPECT_EQ(out.status, kExitUnfinished);
    EXPECT_EQ(out.queued, 1);
    EXPECT_EQ(out.archived, std::vector<std::string>{"Aborted - User Pressed Stop (simulated)"});
}

// A silent centre: the cut call keeps its record, but is no progress, so the start ends at the
// limit rather than after every dial attempt.
TEST(SendAndExit, ASilentCentreEndsAtTheLimit) {
    const Outcome out = RunScript("103100", "Ann");
    EXPECT_EQ(out.status, kExitUnfinished);
    EXPECT_LT(out.took, SendAndExit::kNoProgressLimit + std::chrono::minutes(1));
    EXPECT_EQ(out.queued, 1);
    EXPECT_EQ(out.archived, std::vector<std::string>{"Message Sending Timed Out (simulated)"});
}

// A line that is always in use never finishes a message; the start still ends.
TEST(SendAndExit, ARunThatMakesNoProgressEndsAfterTheLimit) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    p.writeDirectory({{"Ann", "44", "07700", "900123", "Alpha"}});
    p.line.placeResults.assign(1000, PlaceCallResult::LineInUse);
    auto& f = p.load();
    bool ended = false;
    // The real end unloads the window, which also ends the wait for the line.
    SendAndExit script(f, p.loop, [&] {
        ended = true;
        f.RemoteClose();
    });
    script.start("Ann", "hello");
    ASSERT_TRUE(p.loop.runUntil([&] { return ended; }));
    EXPECT_EQ(script.exitStatus(), kExitUnfinished);
    EXPECT_GE(p.loop.now(), SendAndExit::kNoProgressLimit);
    EXPECT_LT(p.loop.now(), SendAndExit::kNoProgressLimit + std::chrono::minutes(1));
    EXPECT_EQ(UpperBound(f.QueueBuffer) + UpperBound(f.SendBuffer), 1);
}

}  // namespace
}  // namespace parlane
