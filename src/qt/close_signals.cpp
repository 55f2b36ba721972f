#include "qt/close_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>

namespace parlane {
namespace {

// One pipe for the process: a signal handler can reach nothing else.
int g_pipe[2] = {-1, -1};

void WriteSignalNumber(int number) {
    const int saved = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const auto n = write(g_pipe[1], &byte, 1);
    errno = saved;
}

void SetAction(int number, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

}  // namespace

CloseSignals::CloseSignals() {
    if (g_pipe[0] >= 0 || pipe2(g_pipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    installed_ = true;
    for (int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction old {};
        sigaction(number, nullptr, &old);
        if (number != SIGTERM && old.sa_handler == SIG_IGN) continue;
        SetAction(number, WriteSignalNumber);
    }
}

CloseSignals::~CloseSignals() {
    notifier_.reset();
    if (!installed_) return;
    for (int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction now {};
        sigaction(number, nullptr, &now);
        if (now.sa_handler == WriteSignalNumber) SetAction(number, SIG_DFL);
    }
    for (int& fd : g_pipe) {
        if (fd >= 0) close(fd);
        fd = -1;
    }
}

void CloseSignals::listen(std::function<void(int)> onSignal) {
    onSignal_ = std::move(onSignal);
    if (!installed_) return;
    notifier_ = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] {
        unsigned char number = 0;
        while (read(g_pipe[0], &number, 1) == 1)
            if (onSignal_) onSignal_(number);
    });
}

}  // namespace parlane
