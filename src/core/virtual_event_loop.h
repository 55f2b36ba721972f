#pragma once
// A deterministic loop for tests and simulations: time stands still while handlers run and jumps
// straight to the next due timer when the loop waits. Nothing ever sleeps.

#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "core/event_loop.h"

namespace parlane {

class VirtualEventLoop : public EventLoop {
  public:
    // Wall clock at virtual time zero, local time in ms since the epoch.
    explicit VirtualEventLoop(WallClockMs wallClockAtStart = 1767348000000);  // 2026-01-02 10:00

    TimerId createTimer(std::function<void()> handler) override;
    void startTimer(TimerId id, Milliseconds interval) override;
    void stopTimer(TimerId id) override;
    void singleShot(Milliseconds delay, std::function<void()> fn) override;
    void post(std::function<void()> fn) override;
    void doEvents() override;
    void waitSecs(double seconds) override;
    bool runUntil(const std::function<bool()>& predicate) override;
    Milliseconds now() const override { return now_; }
    WallClockMs wallClock() const override { return wallAtStart_ + now_.count(); }

    // Runs everything due within the next `duration` of virtual time.
    void advance(Milliseconds duration);
    // Safety net for runUntil: give up after this much virtual time.
    void setRunUntilLimit(Milliseconds limit) { runUntilLimit_ = limit; }

  private:
    struct TimerSlot {
        std::function<void()> handler;
        Milliseconds interval{0};
        std::optional<Milliseconds> due;
        std::uint64_t generation = 0;
    };
    bool runPosted();
    // Fires the earliest timer due at or before `limit`; false when none is.
    bool fireNextDue(Milliseconds limit);
    void runTo(Milliseconds target);

    WallClockMs wallAtStart_;
    Milliseconds now_{0};
    Milliseconds runUntilLimit_{std::chrono::hours(24)};
    std::vector<TimerSlot> timers_;
    // One-shot calls by due time; the sequence keeps equal times in order of scheduling.
    std::map<std::pair<Milliseconds, std::uint64_t>, std::function<void()>> oneShots_;
    std::uint64_t oneShotSequence_ = 0;
    std::mutex postedMutex_;
    std::deque<std::function<void()>> posted_;
};

}  // namespace parlane
