#include <gtest/gtest.h>

#include <thread>

#include "core/timer.h"
#include "core/virtual_event_loop.h"

namespace parlane {
namespace {

TEST(Timer, EnablingRulesAndRestarts) {
    VirtualEventLoop loop;
    std::vector<long long> fired;
    Timer t(loop, "t", 4000, false, [&] { fired.push_back(loop.now().count()); });
    t.setEnabled(true);
    loop.advance(Milliseconds(3000));
    t.setEnabled(true);  // already on: the period is not restarted
    loop.advance(Milliseconds(1000));
    EXPECT_EQ(fired, (std::vector<long long>{4000}));
    loop.advance(Milliseconds(2000));
    t.setEnabled(false);
    t.setEnabled(true);  // off and on: a full period from now
    loop.advance(Milliseconds(3999));
    EXPECT_EQ(fired.size(), 1u);
    loop.advance(Milliseconds(1));
    EXPECT_EQ(fired.back(), 10000);
    t.setInterval(1000);  // a new interval restarts a running timer
    loop.advance(Milliseconds(2500));
    EXPECT_EQ(fired, (std::vector<long long>{4000, 10000, 11000, 12000}));
    t.setEnabled(false);
    loop.advance(Milliseconds(10000));
    EXPECT_EQ(fired.size(), 4u);
}

TEST(Timer, WaitsServeOtherTimersAndTheTimerItself) {
    VirtualEventLoop loop;
    int inner = 0, outerEntries = 0, depth = 0, maxDepth = 0;
    Timer innerTimer(loop, "inner", 1000, true, [&] { ++inner; });
    Timer outer(loop, "outer", 3000, true, [&] {
        ++outerEntries;
        maxDepth = std::max(maxDepth, ++depth);
        if (outerEntries == 1) loop.waitSecs(4);  // long enough for this timer to come again
        --depth;
    });
    loop.advance(Milliseconds(7000));
    EXPECT_EQ(loop.now().count(), 7000);
    EXPECT_EQ(inner, 7);
    EXPECT_EQ(maxDepth, 2);  // a handler that waits lets its own timer in, as the guard expects
    EXPECT_EQ(outerEntries, 2);
}

TEST(EventLoop, PostFromAnotherThreadAndRunUntil) {
    VirtualEventLoop loop;
    bool done = false;
    std::thread worker([&] { loop.post([&] { done = true; }); });
    worker.join();
    EXPECT_TRUE(loop.runUntil([&] { return done; }));

    int ticks = 0;
    Timer t(loop, "t", 500, true, [&] { ++ticks; });
    EXPECT_TRUE(loop.runUntil([&] { return ticks == 3; }));
    EXPECT_EQ(loop.now().count(), 1500);
    t.setEnabled(false);
    loop.setRunUntilLimit(Milliseconds(60000));
    EXPECT_FALSE(loop.runUntil([] { return false; }));  // nothing left that could make it true
}

}  // namespace
}  // namespace parlane
