#pragma once
// An event loop in real time for tests that involve threads and devices: timers and one-shot
// calls on a steady clock, posts from any thread wake it at once. It only runs inside waitSecs,
// runUntil and doEvents, on the thread that calls them.

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "core/event_loop.h"

namespace parlane::testing {

class RealTimeLoop : public EventLoop {
  public:
    RealTimeLoop();
    TimerId createTimer(std::function<void()> handler) override;
    void startTimer(TimerId id, Milliseconds interval) override;
    void stopTimer(TimerId id) override;
    void singleShot(Milliseconds delay, std::function<void()> fn) override;
    void post(std::function<void()> fn) override;
    void doEvents() override;
    void waitSecs(double seconds) override;
    // Gives up (false) after the limit.
    bool runUntil(const std::function<bool()>& predicate) override;
    Milliseconds now() const override;
    WallClockMs wallClock() const override;

  private:
    using Clock = std::chrono::steady_clock;
    struct TimerSlot {
        std::function<void()> handler;
        Milliseconds interval{0};
        std::optional<Clock::time_point> due;
    };
    // Runs one due thing, or waits for one until `deadline`; false when the deadline passed.
    bool serveOnce(Clock::time_point deadline);
    bool runPosted();
    bool runDue();

    Clock::time_point start_;
    const Milliseconds limit_{30000};
    std::vector<TimerSlot> timers_;
    std::multimap<Clock::time_point, std::function<void()>> oneShots_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::function<void()>> posted_;
};

}  // namespace parlane::testing
