// The run in virtual time: ticks, dials, attempts, Stop, the safety limit.
#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::Compose;
using testing::MakeProvider;
using testing::TestPlatform;
using testing::Texts;

struct RunFixture : ::testing::Test {
    TestPlatform p;
    frmMain* f = nullptr;
    void SetUp() override {
        p.writeProviders({MakeProvider("Alpha"), MakeProvider("Beta")});
        f = &p.load();
    }
    void queue(const std::string& text, int centreRow = 0) {
        Compose(*f, text);
        f->Services.select(centreRow);
        f->mnuQueue_Click();
    }
};

TEST_F(RunFixture, SendQueuesThePanelAndDialsFourSecondsLater) {
    Compose(*f, "hello", "44", "07", "555");
    f->mnuSend_Click();
    EXPECT_EQ(UpperBound(f->QueueBuffer), 1);
    EXPECT_EQ(f->lblInfo.Caption, "Waiting to Send  ");
    p.loop.advance(Milliseconds(3999));
    EXPECT_TRUE(p.line.dialled.empty());
    p.loop.advance(Milliseconds(1));
    ASSERT_EQ(p.line.dialled.size(), 1u);
    EXPECT_EQ(p.line.dialled[0], "+44 (07) 1234");  // the centre's number, not the recipient's
    EXPECT_TRUE(f->mnuHangUp.Enabled);
    EXPECT_FALSE(f->mnuSend.Enabled);
    EXPECT_EQ(f->txtNumber.Text, "555");  // the head message is shown while it is dialled
    // Ticks while a call is pending start nothing.
    p.loop.advance(Milliseconds(30000));
    EXPECT_EQ(p.line.dialled.size(), 1u);

    // Send with an empty panel and an empty queue shows the panel's error only.
    TestPlatform q;
    q.writeProviders({MakeProvider("Alpha")});
    auto& g = q.load();
    g.mnuSend_Click();
    EXPECT_EQ(q.dialogues.shown.size(), 1u);
    EXPECT_FALSE(g.timSendMessages.Enabled());
}

TEST_F(RunFixture, DialAttemptsRunOutAndTheMessageIsArchived) {
    p.line.autoConnectMs = 5000;
    p.line.farEndHangUpAfterMs = 2000;
    queue("doomed");
    f->mnuSend_Click();
    p.loop.runUntil(
        [&] { return f->lblInfo.Caption == "There are no more messages in the queue  "; });
    EXPECT_EQ(p.line.dialled.size(), 3u);
    EXPECT_TRUE(p.saw("Failed - Dialling Again  2  "));
    EXPECT_TRUE(p.saw("Failed - Dialling Again  3  "));
    EXPECT_TRUE(p.saw("Message #1 Aborted - Maximum Dial Attempts Exceeded  "));
    EXPECT_EQ(UpperBound(f->SendBuffer), 0);
    const auto files = p.archiveFiles();
    ASSERT_EQ(files.size(), 1u);
    EXPECT_NE(p.archiveFile(files[0]).find("Status: \tAborted - Maximum Dial Attempts Exceeded"),
              std::string::npos);
    // Each call went: connected, port open, far-end drop, port closed before the line.
    EXPECT_EQ(std::count(p.line.log.begin(), p.line.log.end(), "deallocate"), 3);
    EXPECT_FALSE(f->state.CallActive);
}

TEST_F(RunFixture, MessagesOfOneCentreStandTogetherAfterTheSort) {
    queue("b1", 1);
    queue("a1", 0);
    queue("b2", 1);
    queue("a2", 0);
    ASSERT_TRUE(f->PrepareNextBatch());
    EXPECT_EQ(f->SendBuffer[0].Text, "You Should Never See This Message");
    ASSERT_EQ(UpperBound(f->SendBuffer), 4);
    for (int i = 1; i <= 4; ++i)
        EXPECT_EQ(f->SendBuffer[static_cast<std::size_t>(i)].ProviderIndex, i <= 2 ? 0 : 1);
    EXPECT_EQ(UpperBound(f->QueueBuffer), 0);
    EXPECT_EQ(f->MessageQueue.ListCount(), 0);
}

TEST_F(RunFixture, UnknownCentreEndsTheRunWithoutGapsOrLoss) {
    queue("ok1");
    queue("lost centre");
    queue("ok2");
    f->QueueBuffer[2].ProviderName = "Gone";
    f->mnuSend_Click();
    p.loop.advance(Milliseconds(4000));
    EXPECT_TRUE(p.saw("Unknown SMSC  "));
    EXPECT_EQ(f->lblInfo.Caption, "There are no more messages in the queue  ");
    EXPECT_EQ(UpperBound(f->SendBuffer), 0);
    ASSERT_EQ(UpperBound(f->QueueBuffer), 2);
    EXPECT_EQ(f->QueueBuffer[1].Text, "ok1");
    EXPECT_EQ(f->QueueBuffer[2].Text, "ok2");
    EXPECT_EQ(f->MessageQueue.ListCount(), 2);
    ASSERT_EQ(p.archiveFiles().size(), 1u);
    EXPECT_NE(p.archiveFile(p.archiveFiles()[0]).find("lost centre"), std::string::npos);
}

// A centre whose line is not on this machine is never dialled, nor sent through another line:
// its messages stay queued while the others go.
TEST_F(RunFixture, ACentreWithoutItsLineKeepsItsMessagesQueued) {
    f->Providers[1].TapiDevice = "4";  // a port that is gone
    queue("b1", 1);
    queue("a1", 0);
    queue("b2", 1);
    ASSERT_TRUE(f->PrepareNextBatch());
    EXPECT_EQ(Texts(f->SendBuffer), std::vector<std::string>{"a1"});
    EXPECT_EQ(Texts(f->QueueBuffer), (std::vector<std::string>{"b1", "b2"}));
    EXPECT_EQ(f->MessageQueue.ListCount(), 2);
}

TEST_F(RunFixture, StopYesSavesTheRestBackBehindNothingAndKeepsLateArrivals) {
    for (const char* t : {"m1", "m2", "m3"}) queue(t);
    f->mnuSend_Click();
    p.loop.advance(Milliseconds(4000));
    ASSERT_EQ(p.line.dialled.size(), 1u);
    queue("late");  // as automation may queue during a call
    p.dialogues.answers = {AnswerYes};
    f->mnuHangUp_Click();
    ASSERT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_EQ(p.dialogues.shown[0].flags, MbQuestionYesNo);
    EXPECT_EQ(UpperBound(f->SendBuffer), 0);
    EXPECT_EQ(Texts(f->QueueBuffer), (std::vector<std::string>{"m2", "m3", "late"}));
    EXPECT_EQ(f->lblInfo.Caption, "3 Messages in Queue");
    EXPECT_EQ(f->txtMessageQueue.Text, "m2");
    EXPECT_FALSE(f->timSendMessages.Enabled());
    EXPECT_EQ(f->state.StopPressed, 1);
    ASSERT_EQ(p.archiveFiles().size(), 1u);
    EXPECT_NE(p.archiveFile(p.archiveFiles()[0]).find("Aborted - User Pressed Stop"),
              std::string::npos);
    EXPECT_EQ(std::count(p.line.log.begin(), p.line.log.end(), "drop"), 1);
}

TEST_F(RunFixture, StopNoGivesTheHeadUpAtTheNextDialAndGoesOn) {
    for (const char* t : {"m1", "m2"}) queue(t);
    f->mnuSend_Click();
    p.loop.advance(Milliseconds(4000));
    p.dialogues.answers = {AnswerNo};
    f->mnuHangUp_Click();
    EXPECT_TRUE(f->timSendMessages.Enabled());
    p.loop.advance(Milliseconds(4000));
    EXPECT_TRUE(p.saw("Message #1 Aborted - User Pressed Stop  "));
    EXPECT_EQ(Texts(f->SendBuffer), std::vector<std::string>{"m2"});
    EXPECT_EQ(f->state.StopPressed, 0);
    p.loop.advance(Milliseconds(4000));
    EXPECT_EQ(p.line.dialled.size(), 2u);  // m2 is dialled
}

TEST_F(RunFixture, SafetyLimitCutsTheThirdMinuteAndCarriesMinutesOver) {
    p.line.autoConnectMs = 1000;
    queue("slow");
    f->mnuSend_Click();
    p.loop.advance(Milliseconds(4000));  // dialled at 4 s
    p.loop.advance(Milliseconds(179999));
    EXPECT_FALSE(p.saw("Timed Out  "));
    p.loop.advance(Milliseconds(1));
    EXPECT_TRUE(p.saw("Timed Out  "));
    EXPECT_EQ(f->state.counters.SafetyMinutes, 0);
    EXPECT_EQ(Texts(f->SendBuffer), std::vector<std::string>{"slow"});  // stays at the head
    ASSERT_EQ(p.archiveFiles().size(), 1u);
    EXPECT_NE(p.archiveFile(p.archiveFiles()[0]).find("Message Sending Timed Out"),
              std::string::npos);

    // A call of 90 s leaves one whole minute on the count.
    p.loop.advance(Milliseconds(4000));  // redial
    p.loop.advance(Milliseconds(90000));
    p.line.sendState(LINECALLSTATE_DISCONNECTED);
    EXPECT_EQ(f->state.counters.SafetyMinutes, 1);
    EXPECT_FALSE(f->timSafetyTimer.Enabled());
}

TEST_F(RunFixture, LineInUseWaitsWithoutCountingAndStopEndsTheWait) {
    p.line.placeResults = {PlaceCallResult::LineInUse, PlaceCallResult::LineInUse,
                           PlaceCallResult::Placed};
    queue("busy");
    f->mnuSend_Click();
    // The waits run inside the dial step: two 10 s waits, then the call is placed.
    p.loop.advance(Milliseconds(4000));
    EXPECT_EQ(p.loop.now().count(), 24000);
    EXPECT_TRUE(p.saw("Line In Use  "));
    EXPECT_EQ(p.line.dialled.size(), 3u);
    EXPECT_EQ(f->state.counters.DialAttempts, 0);
    EXPECT_FALSE(f->state.LineInUseRetry);
    EXPECT_TRUE(f->timSafetyTimer.Enabled());

    TestPlatform q;
    q.writeProviders({MakeProvider("Alpha")});
    auto& g = q.load();
    q.line.placeResults = {PlaceCallResult::LineInUse, PlaceCallResult::LineInUse,
                           PlaceCallResult::LineInUse, PlaceCallResult::LineInUse};
    Compose(g, "x");
    g.mnuSend_Click();
    Timer stop(q.loop, "stop", 9000, true, [&] { g.mnuHangUp_Click(); });
    q.loop.advance(Milliseconds(9000));
    stop.setEnabled(false);
    q.loop.advance(Milliseconds(20000));
    EXPECT_EQ(q.line.dialled.size(), 1u);
    EXPECT_EQ(UpperBound(g.SendBuffer), 0);
    EXPECT_TRUE(q.saw("Message #1 Aborted - User Pressed Stop  "));
    EXPECT_EQ(g.lblInfo.Caption, "There are no more messages in the queue  ");
}

TEST_F(RunFixture, CallStatesActOnceAndCloseInOrder) {
    f->Providers[0].DevConfig = {1, 2, 3};
    queue("x");
    f->mnuSend_Click();
    p.loop.advance(Milliseconds(4000));
    // The line is prepared in order: opened, given the centre's block, the address translated.
    const std::vector<std::string> setup(p.line.log.end() - 4, p.line.log.end());
    EXPECT_EQ(setup, (std::vector<std::string>{"open line 0", "set dev config 3",
                                               "translate +44 (07) 1234", "place call"}));
    p.line.log.clear();
    p.line.sendState(LINECALLSTATE_CONNECTED);
    p.line.sendState(LINECALLSTATE_CONNECTED);
    EXPECT_EQ(std::count(p.line.log.begin(), p.line.log.end(), "open port"), 1);
    EXPECT_TRUE(f->state.CallActive);
    EXPECT_TRUE(f->timSendCR.Enabled());  // TAP waits for "ID=" with CR nudges
    p.line.sendState(LINECALLSTATE_DISCONNECTED);
    p.line.sendState(LINECALLSTATE_IDLE);
    EXPECT_EQ(p.line.log,
              (std::vector<std::string>{"open port", "drop", "deallocate", "close line"}));
    EXPECT_EQ(f->lblInfo.Caption, "Disconnected  ");
    EXPECT_FALSE(f->state.DialPending);
    EXPECT_TRUE(f->timSendMessages.Enabled());
}

TEST_F(RunFixture, FailedLineSetupEndsTheAttemptAndTheRunGoesOn) {
    p.line.translateResult = -5;
    queue("x");
    f->mnuSend_Click();
    p.loop.advance(Milliseconds(4000 * 4));
    EXPECT_TRUE(p.saw("Message #1 Aborted - Maximum Dial Attempts Exceeded  "));
    EXPECT_TRUE(p.line.dialled.empty());
    EXPECT_EQ(UpperBound(f->SendBuffer), 0);

    TestPlatform q;
    q.writeProviders({MakeProvider("Alpha")});
    auto& g = q.load();
    q.line.openLineSucceeds = false;
    Compose(g, "y");
    g.mnuSend_Click();
    q.loop.advance(Milliseconds(4000));
    EXPECT_TRUE(q.saw("Unable to Open Line - Retrying  "));
    EXPECT_EQ(UpperBound(g.SendBuffer), 0);
    EXPECT_NE(std::find(q.line.log.begin(), q.line.log.end(), "shutdown"), q.line.log.end());
}

TEST_F(RunFixture, BlockRuleCarriesItsCountAcrossCalls) {
    for (int i = 1; i <= 5; ++i) queue("m" + std::to_string(i));
    ASSERT_TRUE(f->PrepareNextBatch());
    std::vector<bool> more;
    // Five messages to one centre with MaxMessages 3: calls of three and two.
    for (int i = 0; i < 5; ++i) {
        f->SendNextMessage();
        more.push_back(f->state.MoreInCall);
        RemoveSentMessage(f->SendBuffer);
    }
    EXPECT_EQ(more, (std::vector<bool>{true, true, false, true, false}));
    EXPECT_EQ(f->state.counters.BlockMessagesInCall, 1);
    EXPECT_TRUE(p.saw("Sending Message #5  "));
}

}  // namespace
}  // namespace parlane
