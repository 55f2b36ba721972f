#pragma once
// A start for scripts: queue the command line's message, send, and end when the run is over,
// with an exit status that tells what became of the message. It never stays open: a run that
// makes no progress for `kNoProgressLimit` ends too (a line always in use, a silent centre whose
// calls the safety limit cuts), and what did not go stays in the queue.

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/timer.h"

namespace parlane {

class frmMain;
struct QueuedMessage;

enum SendExitStatus : int {
    kExitSent = 0,
    kExitUsage = 1,
    kExitNotQueued = 2,  // the Queue command refused it; the status line says why
    kExitNotInDirectory = 3,
    kExitNoCentre = 4,
    kExitLineFailed = 5,  // dial attempts used up, the line would not open, or the call timed out
    kExitRefused = 6,     // the centre refused the message
    kExitUnfinished = 7,  // stopped, closed, or no progress: the message is still in the queue
    kExitHomeInUse = 8,   // another copy holds the home; nothing was queued
    kExitNoLine = 9,      // its centre has no line here (or no number): still in the queue
    kExitSimulated = 10,  // "sent" through the simulated modem: nothing left the machine
};

class SendAndExit {
  public:
    static constexpr std::chrono::minutes kNoProgressLimit{5};

    // `end` closes the program; it is called once, when the status is known.
    SendAndExit(frmMain& form, EventLoop& loop, std::function<void()> end);
    // Queues `message` for the directory entry `name` (cp1252) and starts the run.
    void start(const std::string& name, const std::string& message);
    // The status now: messages still queued or in the run count as unfinished.
    int exitStatus() const;
    // One line per message queued: its number and the status of its archive record.
    std::vector<std::string> report() const;

  private:
    void archived(const std::string& status, const QueuedMessage& message);
    void tick();
    bool pending(int messageNumber) const;
    // The message while it is still queued or in the run, else null.
    const QueuedMessage* find(int messageNumber) const;
    void finish();

    frmMain& form_;
    std::function<void()> end_;
    Timer watch_;
    std::vector<int> numbers_;           // the messages this start queued
    std::map<int, std::string> status_;  // their last archive record
    int final_ = -1;                     // the status, once known
    bool ended_ = false;
    int quietTicks_ = 0;
};

}  // namespace parlane
