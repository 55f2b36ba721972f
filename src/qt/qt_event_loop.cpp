#include "qt/qt_event_loop.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>

namespace parlane {

QtEventLoop::QtEventLoop() {
    clock_.start();
}
QtEventLoop::~QtEventLoop() = default;

EventLoop::TimerId QtEventLoop::createTimer(std::function<void()> handler) {
    auto timer = std::make_unique<QTimer>();
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, &context_, std::move(handler));
    timers_.push_back(std::move(timer));
    return static_cast<TimerId>(timers_.size() - 1);
}

void QtEventLoop::startTimer(TimerId id, Milliseconds interval) {
    timers_.at(static_cast<std::size_t>(id))->start(static_cast<int>(interval.count()));
}

void QtEventLoop::stopTimer(TimerId id) {
    timers_.at(static_cast<std::size_t>(id))->stop();
}

void QtEventLoop::singleShot(Milliseconds delay, std::function<void()> fn) {
    QTimer::singleShot(static_cast<int>(delay.count()), Qt::PreciseTimer, &context_, std::move(fn));
}

void QtEventLoop::post(std::function<void()> fn) {
    QMetaObject::invokeMethod(&context_, std::move(fn), Qt::QueuedConnection);
}

void QtEventLoop::doEvents() {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtEventLoop::waitSecs(double seconds) {
    const qint64 until = clock_.elapsed() + static_cast<qint64>(seconds * 1000.0);
    QTimer wake;
    wake.setSingleShot(true);
    while (clock_.elapsed() < until) {
        wake.start(static_cast<int>(until - clock_.elapsed()));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

bool QtEventLoop::runUntil(const std::function<bool()>& predicate) {
    while (!predicate()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return true;
}

Milliseconds QtEventLoop::now() const {
    return Milliseconds(clock_.elapsed());
}

WallClockMs QtEventLoop::wallClock() const {
    const QDateTime now = QDateTime::currentDateTime();
    return now.toMSecsSinceEpoch() + static_cast<qint64>(now.offsetFromUtc()) * 1000;
}

}  // namespace parlane
