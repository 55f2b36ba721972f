// The telephony module's texts, log and event handling, and the end of the program, which waits,
// serving events, until the provider has dropped the call, and no longer than the limit; the port
// is closed and telephony shut down only after that.
#include "line/tapi_subs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "line/tapi_text.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

TEST(TapiText, NamesOfErrorsMessagesAndStates) {
    struct Case {
        std::uint32_t code;
        const char* text;
    } errors[] = {
        {0x80000001, "LINEERR_ALLOCATED [80000001]"},
        {0x80000004, "Unknown TAPI Error! [80000004]"},
        {0x8000000F, "LINEERR_INUSE [8000000F]"},
        {0x8000001E, "LINEERR_INVALCARD [8000001E]"},
        {0x80000031, "Unknown TAPI Error! [80000031]"},
        {0x80000057, "LINEERR_INVALAGENTID [80000057]"},
        {0x8000005C, "LINEERR_DIALVOICEDETECT [8000005C]"},
        {0x8000005D, "Unknown TAPI Error! [8000005D]"},
        {0x9000001D, "PHONEERR_OPERATIONUNAVAIL [9000001D]"},
        {0x9000001E, "Unknown TAPI Error! [9000001E]"},
        {0x90000023, "PHONEERR_REINIT [90000023]"},
        {5, "Unknown TAPI Error! [5]"},
    };
    const Strings english;
    for (const auto& c : errors)
        EXPECT_EQ(TapiErrorText(static_cast<std::int32_t>(c.code), english), c.text);
    EXPECT_EQ(CallStateText(256, english), "LINECALLSTATE_CONNECTED [ 256]");
    EXPECT_EQ(CallStateText(32768, english), "LINECALLSTATE_UNKNOWN [ 32768]");
    EXPECT_EQ(CallStateText(3, english), "Unknown Call State");
    EXPECT_EQ(TapiMessageText(3, english), "LINE_CLOSE [3]");
    EXPECT_EQ(TapiMessageText(18, english), "PHONE_STATE [18]");
    EXPECT_EQ(TapiMessageText(19, english), "LINE_CREATE [19]");
    EXPECT_EQ(TapiMessageText(20, english), "Unknown Message");
    Strings german;
    german.LanguageOffset = 3000;
    EXPECT_EQ(TapiErrorText(5, german), "Unbekannter TAPI-Fehler! [5]");
    EXPECT_EQ(MediaModesText(16 | 8192), "LineMediaModes - \r\n\tDATAMODEM\r\n\tADSI\r\n");
    EXPECT_EQ(DigitModesText(0), "LineDigitMonitorModes - \r\n\tNONE\r\n");
    EXPECT_EQ(DigitModesText(3), "LineDigitMonitorModes - \r\n\tPULSE\r\n\tDTMF\r\n");
}

TEST(DebugLog, NewestFirstTrimmedAndCountingPast32767) {
    DebugLog log;
    for (int i = 0; i < 40000; ++i) log.AppendLog("line of the telephony log");
    EXPECT_EQ(log.text().substr(0, 7), "40000: ");
    EXPECT_LE(log.text().size(), 5100u);
    EXPECT_GE(log.text().size(), 2500u);
    DebugLog fresh;
    fresh.AppendLog("first");
    fresh.AppendLog("second");
    EXPECT_EQ(fresh.text(), "002: second\r\n001: first\r\n");
}

TEST(TapiSubs, CallbackDispatchesStatesAndKeepsThePlacedCall) {
    VirtualEventLoop loop;
    testing::FakeLine line(loop);
    DebugLog log;
    TAPISubs tapi(line, log);
    std::vector<std::string> events;
    tapi.setLblEvent = [&](const std::string& text) { events.push_back(text); };
    tapi.InitTelephony();
    EXPECT_EQ(events, std::vector<std::string>{"1"});
    ASSERT_TRUE(tapi.OpenLine(0));
    EXPECT_EQ(tapi.PlaceCall("123", LINEMEDIAMODE_DATAMODEM), PlaceCallResult::Placed);
    const auto placed = tapi.CallHandle();
    line.callback(99, LINE_CALLSTATE, 0, LINECALLSTATE_OFFERING, 0, 0);
    EXPECT_EQ(tapi.CallHandle(), placed);  // an incoming call does not take its place
    line.callback(0, LINE_REPLY, 0, 1, 0, 0);
    line.callback(0, 8, 0, 0, 0, 0);
    EXPECT_EQ(events, (std::vector<std::string>{"1", "2"}));
    EXPECT_NE(log.text().find("LineReply LINE_REPLY [12] ReqID: 1"), std::string::npos);
    EXPECT_NE(log.text().find("LINE_LINEDEVSTATE [8] hDevice=0"), std::string::npos);

    line.placeResults = {PlaceCallResult::LineInUse, PlaceCallResult::Failed};
    EXPECT_EQ(tapi.PlaceCall("1", 16), PlaceCallResult::LineInUse);
    EXPECT_EQ(tapi.PlaceCall("1", 16), PlaceCallResult::Failed);
    EXPECT_NE(log.text().find("LINEERR_INUSE [8000000F] - lineMakeCall"), std::string::npos);

    ListControl devices;
    devices.AddItem("kept");
    tapi.FillDeviceList(devices);
    EXPECT_EQ(devices.rows, std::vector<std::string>{"Simulated modem"});
}

using testing::MakeProvider;
using testing::TestPlatform;

TEST(ExitDrop, TheLineIsDroppedBeforeTheEndOrTheLimitPasses) {
    struct Case {
        const char* name;
        int connectMs;  // 0: the call is still dialling at the exit; -1: no call at all
        bool stoppedFirst;
        int idleAfterDropMs;  // -1: the modem never answers the drop
        const char* lineEnd;  // the last operations on the line, in order
        int waitedMs;
        const char* logLine;
        std::int16_t languageOffset = 0;
    };
    const Case cases[] = {
        {"online", 1000, false, 2000, "drop|deallocate|close line|shutdown", 2000,
         "Line Dropped In 2.0 s - Exit"},
        {"silent modem", 1000, false, -1, "open port|drop|shutdown", 6000,
         "Line Not Idle After 6.0 s, Closing It - Exit"},
        {"dialling", 0, false, 500, "place call|drop|shutdown", 500,
         "Line Dropped In 0.5 s - Exit"},
        // The drop Stop asked for is waited for, not asked again.
        {"stopped just before", 1000, true, 1500, "open port|drop|deallocate|close line|shutdown",
         1500, "Line Dropped In 1.5 s - Exit"},
        {"no call", -1, false, 100, "open line 0|shutdown", 0, nullptr},
        // The log's sentence is in the language in use; the operation's name is not.
        {"silent modem, in German", 1000, false, -1, "open port|drop|shutdown", 6000,
         "Leitung nicht frei nach 6.0 s, wird geschlossen - Exit", 3000},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TestPlatform p;
        p.writeProviders({MakeProvider("Alpha")});
        auto& f = p.load();
        p.globals.strings.LanguageOffset = c.languageOffset;
        p.line.autoConnectMs = std::max(c.connectMs, 0);
        p.line.idleAfterDropMs = c.idleAfterDropMs;
        testing::Compose(f, "hello");
        if (c.connectMs >= 0) {
            f.mnuSend_Click();
            p.loop.advance(Milliseconds(4000 + 1500));  // dialled at 4 s
        } else {
            f.mnuQueue_Click();
            f.tapi.OpenLine(0);  // a line, but no call on it
        }
        ASSERT_EQ(f.state.CallActive, c.connectMs > 0);
        if (c.stoppedFirst) f.mnuHangUp_Click();

        const auto before = p.loop.now();
        f.mnuExit_Click();
        EXPECT_EQ((p.loop.now() - before).count(), c.waitedMs);
        std::string tail;
        for (const auto& op : p.line.log) tail += (tail.empty() ? "" : "|") + op;
        EXPECT_TRUE(tail.ends_with(c.lineEnd)) << tail;
        if (c.logLine) {
            EXPECT_NE(f.debugLog.text().find(c.logLine), std::string::npos);
        }
        // Nothing dialled again while waiting, and the message is kept for the next start.
        EXPECT_LE(std::count(p.line.log.begin(), p.line.log.end(), "place call"), 1);
        EXPECT_TRUE(std::filesystem::exists(p.home / "queue.dat"));
    }
}

TEST(ExitDrop, AnEndDuringTheLineInUseWaitDialsNothingMore) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    auto& f = p.load();
    p.line.placeResults = {PlaceCallResult::LineInUse, PlaceCallResult::Placed};
    testing::Compose(f, "hello");
    f.mnuSend_Click();
    // Dialled at 4 s, found in use: the close comes in the middle of the 10 s wait.
    p.loop.singleShot(Milliseconds(9000), [&] { f.mnuExit_Click(); });
    p.loop.advance(Milliseconds(30000));
    EXPECT_EQ(p.line.dialled.size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(p.home / "queue.dat"));
}

}  // namespace
}  // namespace parlane
