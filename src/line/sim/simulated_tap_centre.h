#pragma once
// A paging centre that takes TAP blocks: logon with service PG1, one block per message.

#include <string>

#include "line/sim/simulated_base_centre.h"

namespace parlane {

struct TapCentreOptions {
    std::string password;               // empty: any password logs on
    bool passwordRefusedByNak = false;  // else "BAD PASSWORD"
    std::string afterGoAhead;           // more text in the chunk of ESC "[p"
    bool ackWithCr = true;
    RefusalRule refuse;
    bool refuseByRs = false;  // else NAK CR
    // Answer this accepted message with ACK CR ESC EOT (or its long form) and end the call.
    int finishAfter = 0;
    bool finishLong = false;
    bool signOffWithEsc = true;  // ESC EOT, else EOT alone
};

class SimulatedTapCentre : public SimulatedCentreBase {
  public:
    explicit SimulatedTapCentre(TapCentreOptions options = {}) : options_(std::move(options)) {}
    void received(std::string_view bytes) override;

  private:
    enum class State { LoggingOn, LoggedOn, Closed };
    // False when the buffer holds no complete unit yet.
    bool takeLogonUnit();
    bool takeSessionUnit();
    void logon(const std::string& line);
    void block(const std::string& whole);
    void signOff();

    TapCentreOptions options_;
    State state_ = State::LoggingOn;
    std::string buffer_;
    int refusedLogons_ = 0;
    int blocks_ = 0;
};

}  // namespace parlane
