#include "support/real_time_loop.h"

#include <cmath>

namespace parlane::testing {

RealTimeLoop::RealTimeLoop() : start_(Clock::now()) {}

EventLoop::TimerId RealTimeLoop::createTimer(std::function<void()> handler) {
    timers_.push_back(TimerSlot{std::move(handler), Milliseconds(0), std::nullopt});
    return static_cast<TimerId>(timers_.size() - 1);
}

void RealTimeLoop::startTimer(TimerId id, Milliseconds interval) {
    auto& slot = timers_.at(static_cast<std::size_t>(id));
    slot.interval = interval;
    slot.due = Clock::now() + interval;
}

void RealTimeLoop::stopTimer(TimerId id) {
    timers_.at(static_cast<std::size_t>(id)).due.reset();
}

void RealTimeLoop::singleShot(Milliseconds delay, std::function<void()> fn) {
    oneShots_.emplace(Clock::now() + delay, std::move(fn));
}

void RealTimeLoop::post(std::function<void()> fn) {
    {
        std::lock_guard lock(mutex_);
        posted_.push_back(std::move(fn));
    }
    wake_.notify_one();
}

bool RealTimeLoop::runPosted() {
    bool ran = false;
    for (;;) {
        std::function<void()> fn;
        {
            std::lock_guard lock(mutex_);
            if (posted_.empty()) return ran;
            fn = std::move(posted_.front());
            posted_.pop_front();
        }
        fn();
        ran = true;
    }
}

bool RealTimeLoop::runDue() {
    const auto now = Clock::now();
    if (!oneShots_.empty() && oneShots_.begin()->first <= now) {
        auto node = oneShots_.extract(oneShots_.begin());
        node.mapped()();
        return true;
    }
    for (auto& slot : timers_) {
        if (!slot.due || *slot.due > now) continue;
        // The next period starts now; the handler may stop or restart the timer itself.
        slot.due = now + slot.interval;
        auto handler = slot.handler;
        handler();
        return true;
    }
    return false;
}

bool RealTimeLoop::serveOnce(Clock::time_point deadline) {
    if (runPosted() || runDue()) return true;
    auto next = deadline;
    if (!oneShots_.empty()) next = std::min(next, oneShots_.begin()->first);
    for (const auto& slot : timers_)
        if (slot.due) next = std::min(next, *slot.due);
    std::unique_lock lock(mutex_);
    wake_.wait_until(lock, next, [this] { return !posted_.empty(); });
    return Clock::now() < deadline || !posted_.empty();
}

void RealTimeLoop::doEvents() {
    runPosted();
    while (runDue()) {
    }
    runPosted();
}

void RealTimeLoop::waitSecs(double seconds) {
    const auto deadline =
        Clock::now() + Milliseconds(static_cast<long long>(std::llround(seconds * 1000.0)));
    while (Clock::now() < deadline) serveOnce(deadline);
    runPosted();
}

bool RealTimeLoop::runUntil(const std::function<bool()>& predicate) {
    const auto giveUp = Clock::now() + limit_;
    while (!predicate()) {
        if (Clock::now() >= giveUp) return predicate();
        serveOnce(giveUp);
    }
    return true;
}

Milliseconds RealTimeLoop::now() const {
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - start_);
}

WallClockMs RealTimeLoop::wallClock() const {
    return std::chrono::duration_cast<Milliseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

}  // namespace parlane::testing
