#include "core/virtual_event_loop.h"

#include <cmath>

namespace parlane {

VirtualEventLoop::VirtualEventLoop(WallClockMs wallClockAtStart) : wallAtStart_(wallClockAtStart) {}

EventLoop::TimerId VirtualEventLoop::createTimer(std::function<void()> handler) {
    timers_.push_back(TimerSlot{std::move(handler), Milliseconds(0), std::nullopt, 0});
    return static_cast<TimerId>(timers_.size() - 1);
}

void VirtualEventLoop::startTimer(TimerId id, Milliseconds interval) {
    auto& slot = timers_.at(static_cast<std::size_t>(id));
    slot.interval = interval;
    slot.due = now_ + interval;
    ++slot.generation;
}

void VirtualEventLoop::stopTimer(TimerId id) {
    auto& slot = timers_.at(static_cast<std::size_t>(id));
    slot.due.reset();
    ++slot.generation;
}

void VirtualEventLoop::singleShot(Milliseconds delay, std::function<void()> fn) {
    oneShots_.emplace(std::make_pair(now_ + delay, oneShotSequence_++), std::move(fn));
}

void VirtualEventLoop::post(std::function<void()> fn) {
    std::lock_guard lock(postedMutex_);
    posted_.push_back(std::move(fn));
}

bool VirtualEventLoop::runPosted() {
    bool ran = false;
    for (;;) {
        std::function<void()> fn;
        {
            std::lock_guard lock(postedMutex_);
            if (posted_.empty()) break;
            fn = std::move(posted_.front());
            posted_.pop_front();
        }
        fn();
        ran = true;
    }
    return ran;
}

bool VirtualEventLoop::fireNextDue(Milliseconds limit) {
    std::optional<std::size_t> best;
    for (std::size_t i = 0; i < timers_.size(); ++i) {
        const auto& t = timers_[i];
        if (!t.due || *t.due > limit) continue;
        if (!best || *t.due < *timers_[*best].due) best = i;
    }
    if (!oneShots_.empty() && oneShots_.begin()->first.first <= limit &&
        (!best || oneShots_.begin()->first.first <= *timers_[*best].due)) {
        auto node = oneShots_.extract(oneShots_.begin());
        if (node.key().first > now_) now_ = node.key().first;
        node.mapped()();
        return true;
    }
    if (!best) return false;
    auto& slot = timers_[*best];
    if (*slot.due > now_) now_ = *slot.due;
    // The next period starts now; the handler may stop or restart the timer itself.
    slot.due = now_ + slot.interval;
    auto handler = slot.handler;
    handler();
    return true;
}

void VirtualEventLoop::doEvents() {
    runPosted();
    // Only what is due already; a timer re-armed inside this pass waits for the next one.
    std::vector<std::pair<std::size_t, std::uint64_t>> due;
    for (std::size_t i = 0; i < timers_.size(); ++i)
        if (timers_[i].due && *timers_[i].due <= now_) due.emplace_back(i, timers_[i].generation);
    while (!oneShots_.empty() && oneShots_.begin()->first.first <= now_) {
        auto node = oneShots_.extract(oneShots_.begin());
        node.mapped()();
    }
    for (auto [i, generation] : due) {
        auto& slot = timers_[i];
        if (slot.generation != generation || !slot.due || *slot.due > now_) continue;
        slot.due = now_ + slot.interval;
        auto handler = slot.handler;
        handler();
    }
    runPosted();
}

void VirtualEventLoop::runTo(Milliseconds target) {
    for (;;) {
        runPosted();
        if (!fireNextDue(target)) break;
    }
    if (now_ < target) now_ = target;
    runPosted();
}

void VirtualEventLoop::waitSecs(double seconds) {
    runTo(now_ + Milliseconds(static_cast<long long>(std::llround(seconds * 1000.0))));
}

void VirtualEventLoop::advance(Milliseconds duration) {
    runTo(now_ + duration);
}

bool VirtualEventLoop::runUntil(const std::function<bool()>& predicate) {
    const Milliseconds giveUp = now_ + runUntilLimit_;
    while (!predicate()) {
        if (runPosted()) continue;
        if (now_ >= giveUp || !fireNextDue(giveUp)) return predicate();
    }
    return true;
}

}  // namespace parlane
