#include "automation/send_and_exit.h"

#include <algorithm>

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr int kTickMs = 500;

std::vector<int> Numbers(const MessageTable& table) {
    std::vector<int> numbers;
    for (int i = 1; i <= UpperBound(table); ++i)
        numbers.push_back(table[static_cast<std::size_t>(i)].MessageNumber);
    return numbers;
}

}  // namespace

SendAndExit::SendAndExit(frmMain& form, EventLoop& loop, std::function<void()> end)
    : form_(form),
      end_(std::move(end)),
      watch_(loop, "sendAndExit", kTickMs, false, [this] { tick(); }) {}

void SendAndExit::start(const std::string& name, const std::string& message) {
    form_.onArchived = [this](const std::string& status, const QueuedMessage& m) {
        archived(status, m);
    };
    const std::vector<int> before = Numbers(form_.QueueBuffer);
    const bool known = form_.FindName(name) >= 0;
    form_.QueueFromCommandLine(message, name);
    form_.changed();
    for (int number : Numbers(form_.QueueBuffer))
        if (std::find(before.begin(), before.end(), number) == before.end())
            numbers_.push_back(number);
    if (!known)
        final_ = kExitNotInDirectory;
    else if (numbers_.empty())
        final_ = form_.Services.Text.empty() ? kExitNoCentre : kExitNotQueued;
    if (final_ >= 0) return finish();
    watch_.setEnabled(true);
}

void SendAndExit::archived(const std::string& status, const QueuedMessage& message) {
    status_[message.MessageNumber] = status;
    // A call cut by the safety limit is no progress: a silent centre would hold the script
    // for every dial attempt.
    if (status.rfind(form_.LoadResString(sid::MessageSendingTimedOut), 0) != 0) quietTicks_ = 0;
}

const QueuedMessage* SendAndExit::find(int number) const {
    for (const MessageTable* table : {&form_.QueueBuffer, &form_.SendBuffer})
        for (int i = 1; i <= UpperBound(*table); ++i)
            if ((*table)[static_cast<std::size_t>(i)].MessageNumber == number)
                return &(*table)[static_cast<std::size_t>(i)];
    return nullptr;
}

bool SendAndExit::pending(int number) const {
    return find(number) != nullptr;
}

int SendAndExit::exitStatus() const {
    if (final_ >= 0) return final_;
    const auto startsWith = [this](const std::string& status, int id) {
        return status.rfind(form_.LoadResString(id), 0) == 0;
    };
    const std::string simulated = form_.LoadResString(sid::MessageSentSuccessfully) + " " +
                                  form_.LoadResString(sid::SimulatedMark);
    bool demonstration = false;
    for (int number : numbers_) {
        if (const QueuedMessage* queued = find(number))
            return form_.LineProblemFor(*queued).empty() ? kExitUnfinished : kExitNoLine;
        const auto found = status_.find(number);
        if (found == status_.end()) return kExitUnfinished;  // taken out of the queue by hand
        const std::string& status = found->second;
        if (status == form_.LoadResString(sid::MessageSentSuccessfully)) continue;
        if (status == simulated) {
            demonstration = true;
            continue;
        }
        if (startsWith(status, sid::MessageRejectedBySmsc)) return kExitRefused;
        if (startsWith(status, sid::AbortedUserPressedStop)) return kExitUnfinished;
        return kExitLineFailed;
    }
    return demonstration ? kExitSimulated : kExitSent;
}

std::vector<std::string> SendAndExit::report() const {
    std::vector<std::string> lines;
    for (int number : numbers_) {
        // Still queued: why, when its centre has no line here; else its archive status.
        std::string end = form_.LoadResString(sid::MessageInQueue);
        const auto found = status_.find(number);
        if (const QueuedMessage* queued = find(number)) {
            if (auto problem = form_.LineProblemFor(*queued); !problem.empty()) end = problem;
        } else if (found != status_.end()) {
            end = found->second;
        }
        lines.push_back(form_.LoadResString(sid::MessageNumberPrefix) + std::to_string(number) +
                        ": " + end);
    }
    return lines;
}

void SendAndExit::tick() {
    const bool done =
        std::none_of(numbers_.begin(), numbers_.end(), [this](int n) { return pending(n); });
    // A run that has stopped (Stop and save back, or nothing left to dial) will not finish them.
    const bool idle =
        !form_.timSendMessages.Enabled() && !form_.state.CallActive && !form_.state.DialPending;
    const int limitTicks = static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(kNoProgressLimit).count() / kTickMs);
    if (done || idle || ++quietTicks_ >= limitTicks) finish();
}

void SendAndExit::finish() {
    if (ended_) return;
    ended_ = true;
    final_ = exitStatus();
    watch_.setEnabled(false);
    form_.onArchived = nullptr;
    if (end_) end_();
}

}  // namespace parlane
