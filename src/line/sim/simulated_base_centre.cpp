#include "line/sim/simulated_base_centre.h"

#include <algorithm>
#include <utility>

namespace parlane {

void SimulatedCentreBase::connected(CentreLink& link) {
    link_ = &link;
    steps_.clear();
    stepScheduled_ = false;
    closing_ = false;
    line_.clear();
    greet();
}

void SimulatedCentreBase::say(std::string bytes) {
    sayAfter(thinkTime(), std::move(bytes));
}

void SimulatedCentreBase::sayAfter(Milliseconds pause, std::string bytes) {
    then(pause, [this, bytes = std::move(bytes)] { link_->sendToProgram(bytes); });
}

void SimulatedCentreBase::then(Milliseconds pause, std::function<void()> step) {
    if (!link_) return;
    steps_.push_back(Step{pause, std::move(step)});
    if (!stepScheduled_) runNext();
}

void SimulatedCentreBase::hangUpAfter(Milliseconds pause) {
    closing_ = true;
    then(pause, [this] { link_->hangUp(); });
}

void SimulatedCentreBase::runNext() {
    if (steps_.empty()) {
        stepScheduled_ = false;
        return;
    }
    stepScheduled_ = true;
    const Milliseconds pause = steps_.front().pause;
    link_->after(pause, [this] {
        auto step = std::move(steps_.front().fn);
        steps_.pop_front();
        step();
        runNext();
    });
}

void SimulatedCentreBase::record(std::string recipient, std::string text) {
    accepted_.push_back(AcceptedMessage{std::move(recipient), std::move(text)});
}

Milliseconds SimulatedCentreBase::thinkTime() {
    // A fixed sequence: runs repeat exactly, in tests and in the demo alike.
    random_ = random_ * 1103515245u + 12345u;
    return Milliseconds(200 + (random_ >> 16) % 601);
}

std::optional<std::string> SimulatedCentreBase::typed(char c) {
    if (c == '\r') return std::exchange(line_, {});
    if (c != '\n') line_ += c;
    return std::nullopt;
}

bool SimulatedCentreBase::PlausibleNumber(const std::string& number) {
    return number.size() >= 3 && number.size() <= 20 &&
           std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace parlane
