#pragma once
// The program's event loop on Qt's: QTimer per timer, queued calls for posts, nested event
// processing for waits. Qt does not re-enter a timer's own handler while it runs.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>
#include <vector>

#include "core/event_loop.h"

namespace parlane {

class QtEventLoop : public EventLoop {
  public:
    QtEventLoop();
    ~QtEventLoop() override;
    TimerId createTimer(std::function<void()> handler) override;
    void startTimer(TimerId id, Milliseconds interval) override;
    void stopTimer(TimerId id) override;
    void singleShot(Milliseconds delay, std::function<void()> fn) override;
    void post(std::function<void()> fn) override;
    void doEvents() override;
    void waitSecs(double seconds) override;
    bool runUntil(const std::function<bool()>& predicate) override;
    Milliseconds now() const override;
    WallClockMs wallClock() const override;

  private:
    QObject context_;
    QElapsedTimer clock_;
    std::vector<std::unique_ptr<QTimer>> timers_;
};

}  // namespace parlane
