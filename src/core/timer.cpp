#include "core/timer.h"

namespace parlane {

Timer::Timer(EventLoop& loop, std::string name, int intervalMs, bool enabled,
             std::function<void()> handler)
    : loop_(loop), name_(std::move(name)), interval_(intervalMs), handler_(std::move(handler)) {
    id_ = loop_.createTimer([this] { fire(); });
    setEnabled(enabled);
}

void Timer::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (enabled_ && interval_ > 0)
        loop_.startTimer(id_, Milliseconds(interval_));
    else
        loop_.stopTimer(id_);
}

void Timer::setInterval(int intervalMs) {
    if (intervalMs == interval_) return;
    interval_ = intervalMs;
    if (!enabled_) return;
    if (interval_ > 0)
        loop_.startTimer(id_, Milliseconds(interval_));
    else
        loop_.stopTimer(id_);
}

void Timer::fire() {
    if (!enabled_) return;
    ++fireCount_;
    handler_();
}

}  // namespace parlane
