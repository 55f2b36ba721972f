#pragma once
// The one loop the program lives on: timers, posted work, waits that serve events.
// Production runs it on Qt's loop; tests run it in virtual time.

#include <chrono>
#include <cstdint>
#include <functional>

namespace parlane {

using Milliseconds = std::chrono::milliseconds;
// Local wall-clock time in milliseconds since the Unix epoch (used for file names and dates).
using WallClockMs = std::int64_t;

class EventLoop {
  public:
    using TimerId = int;
    virtual ~EventLoop() = default;

    // A timer calls its handler once per elapsed interval while enabled.
    virtual TimerId createTimer(std::function<void()> handler) = 0;
    // Starts the period anew from now; the caller (Timer) decides when that is due.
    virtual void startTimer(TimerId id, Milliseconds interval) = 0;
    virtual void stopTimer(TimerId id) = 0;

    // Runs fn once, `delay` from now, on the loop's thread.
    virtual void singleShot(Milliseconds delay, std::function<void()> fn) = 0;

    // Safe to call from any thread: runs fn on the loop's thread soon.
    virtual void post(std::function<void()> fn) = 0;
    // Runs what is pending now, once, without waiting.
    virtual void doEvents() = 0;
    // Serves events until `seconds` have passed on the clock.
    virtual void waitSecs(double seconds) = 0;
    // Serves events until the predicate holds. Returns false when nothing could ever make it
    // hold (the virtual loop has no more events), true otherwise.
    virtual bool runUntil(const std::function<bool()>& predicate) = 0;

    // Monotonic time of this loop, for waits and timers.
    virtual Milliseconds now() const = 0;
    // Local wall-clock time.
    virtual WallClockMs wallClock() const = 0;
};

}  // namespace parlane
