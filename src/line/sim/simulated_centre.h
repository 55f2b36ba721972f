#pragma once
// A message centre played by the program itself, at the far end of the simulated modem.
// It hears the bytes the program writes and answers through its link, with the timing and the
// faults that its behaviour asks for.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/event_loop.h"

namespace parlane {

// What a centre can do to its side of the call.
class CentreLink {
  public:
    virtual ~CentreLink() = default;
    // Bytes towards the program; they arrive as one chunk (the modem may split it further).
    virtual void sendToProgram(std::string bytes) = 0;
    // Runs `fn` after `delay` unless the call has ended by then.
    virtual void after(Milliseconds delay, std::function<void()> fn) = 0;
    // The far end hangs up.
    virtual void hangUp() = 0;
};

class SimulatedCentre {
  public:
    virtual ~SimulatedCentre() = default;
    // The call is connected; the centre may greet at once or wait.
    virtual void connected(CentreLink& link) = 0;
    // Bytes the program wrote, in order, in the pieces it wrote them.
    virtual void received(std::string_view bytes) = 0;
    // Messages the centre accepted in this call (for tests and the demo's log).
    virtual int acceptedCount() const = 0;
};

// How the line behaves before and around the centre.
struct LineBehaviour {
    int busyAttempts = 0;         // the first N dials find the line busy
    bool noAnswer = false;        // rings until the caller gives up
    bool cannotOpenLine = false;  // the device refuses to open
    int answerAfterMs = 3000;     // from dial to CONNECTED
    int dropAfterMs = 0;          // far end drops this long after CONNECTED (0: never)
    bool noise = false;           // stray bytes mixed into what the centre sends
    bool splitChunks = false;     // the centre's text arrives in small random pieces
    int burstBytes = 0;           // this many bytes of junk before the first prompt
};

struct CentreChoice {
    std::unique_ptr<SimulatedCentre> centre;  // null: nobody answers (silence)
    LineBehaviour line;
    std::string description;  // for the log: "TAP centre, password secret"
};

// Which centre answers a dialled number. The plan is documented in docs/simulated-centres.md.
CentreChoice CentreForNumber(const std::string& dialable, int attemptForThisNumber);

}  // namespace parlane
