#pragma once
// A timer with the behaviour the program's handlers rely on: enabling an enabled timer changes
// nothing; disabling and enabling restarts the period; a new interval restarts a running timer.

#include <functional>
#include <string>

#include "core/event_loop.h"

namespace parlane {

class Timer {
  public:
    Timer(EventLoop& loop, std::string name, int intervalMs, bool enabled,
          std::function<void()> handler);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    bool Enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    int Interval() const { return interval_; }
    void setInterval(int intervalMs);
    const std::string& name() const { return name_; }
    // How many times the handler has been entered (tests look at it).
    int fireCount() const { return fireCount_; }

  private:
    void fire();

    EventLoop& loop_;
    std::string name_;
    int interval_;
    bool enabled_ = false;
    int fireCount_ = 0;
    std::function<void()> handler_;
    EventLoop::TimerId id_;
};

}  // namespace parlane
