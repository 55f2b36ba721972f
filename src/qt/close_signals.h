#pragma once
// SIGTERM, SIGINT and SIGHUP end the program the way a close of the window does, so that the
// queue is saved and the line dropped. The handler only writes the signal's number to a pipe; a
// notifier reads it on the loop's thread.

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace parlane {

class CloseSignals {
  public:
    // The signals are caught from here on and kept until listen(). A SIGINT or SIGHUP that the
    // parent set to be ignored (a background job, nohup) stays ignored.
    CloseSignals();
    // Back to the default actions.
    ~CloseSignals();
    CloseSignals(const CloseSignals&) = delete;
    CloseSignals& operator=(const CloseSignals&) = delete;

    // Calls `onSignal` on the loop's thread for every signal caught, those before included.
    void listen(std::function<void(int signalNumber)> onSignal);

  private:
    std::unique_ptr<QSocketNotifier> notifier_;
    std::function<void(int)> onSignal_;
    bool installed_ = false;
};

}  // namespace parlane
