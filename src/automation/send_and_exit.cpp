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
    quietTicks_ = 0;
}

bool SendAndExit::pending(int number) const {
    const auto has = [number](const MessageTable& table) {
        for (int i = 1; i <= UpperBound(table); ++i)
            if (table[static_cast<std::size_t>(i)].MessageNumber == number) return true;
        return false;
    };
    return has(form_.QueueBuffer) || has(form_.SendBuffer);
}

int SendAndExit::exitStatus() const {
    if (final_ >= 0) return final_;
    for (int number : numbers_) {
        if (pending(number)) return kExitUnfinished;
        const auto found = status_.find(number);
        if (found == status_.end()) return kExitUnfinished;  // taken out of the queue by hand
        const std::string& status = found->second;
        if (status == form_.LoadResString(sid::MessageSentSuccessfully)) continue;
        if (status.rfind(form_.LoadResString(sid::MessageRejectedBySmsc), 0) == 0)
            return kExitRefused;
        if (status == form_.LoadResString(sid::AbortedUserPressedStop)) return kExitUnfinished;
        return kExitLineFailed;
    }
    return kExitSent;
}

std::vector<std::string> SendAndExit::report() const {
    std::vector<std::string> lines;
    for (int number : numbers_) {
        const auto found = status_.find(number);
        lines.push_back(
            form_.LoadResString(sid::MessageNumberPrefix) + std::to_string(number) + ": " +
            (pending(number) || found == status_.end() ? form_.LoadResString(sid::MessageInQueue)
                                                       : found->second));
    }
    return lines;
}

void SendAndExit::tick() {
    const bool done =
        std::none_of(numbers_.begin(), numbers_.end(), [this](int n) { return pending(n); });
    // A run that has stopped (Stop and save back, or nothing left to dial) will not finish them.
    const bool idle =
        !form_.timSendMessages.Enabled() && !form_.state.CallActive && !form_.state.DialPending;
    if (form_.state.CallActive != lastCallActive_) quietTicks_ = 0;
    lastCallActive_ = form_.state.CallActive;
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
