#pragma once
// What every simulated centre shares: replies queued in order after a think time, the record of
// accepted messages, and the reading of typed lines.

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "line/sim/simulated_centre.h"

namespace parlane {

struct AcceptedMessage {
    std::string recipient;
    std::string text;
    bool operator==(const AcceptedMessage&) const = default;
};

// Which messages of a call a centre turns down, counted from 1.
struct RefusalRule {
    int nth = 0;         // 0: none
    bool every = false;  // every message
    bool refuses(int messageNumber) const { return every || messageNumber == nth; }
};

class SimulatedCentreBase : public SimulatedCentre {
  public:
    void connected(CentreLink& link) final;
    int acceptedCount() const final { return static_cast<int>(accepted_.size()); }
    const std::vector<AcceptedMessage>& accepted() const { return accepted_; }

  protected:
    SimulatedCentreBase() = default;
    // The call is up; menu centres speak first.
    virtual void greet() {}

    // Each step waits for the one queued before it, so that answers never overtake each other.
    void say(std::string bytes);  // after a think time of 200 to 800 ms
    void sayAfter(Milliseconds pause, std::string bytes);
    void then(Milliseconds pause, std::function<void()> step);
    // Ends the call after what is queued; input from then on is ignored.
    void hangUpAfter(Milliseconds pause);
    bool closing() const { return closing_; }

    void record(std::string recipient, std::string text);
    Milliseconds thinkTime();

    // Collects typed characters up to CR; line feeds are dropped. The whole line on CR.
    std::optional<std::string> typed(char c);
    static bool PlausibleNumber(const std::string& number);

  private:
    struct Step {
        Milliseconds pause;
        std::function<void()> fn;
    };
    void runNext();

    CentreLink* link_ = nullptr;
    std::deque<Step> steps_;
    bool stepScheduled_ = false;
    bool closing_ = false;
    std::uint32_t random_ = 12345;
    std::string line_;
    std::vector<AcceptedMessage> accepted_;
};

}  // namespace parlane
