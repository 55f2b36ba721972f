// The end of the program waits, serving events, until the provider has dropped the call, and no
// longer than the limit; the port is closed and telephony shut down only after that.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/test_platform.h"

namespace parlane {
namespace {

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
