#pragma once
// A Hayes modem on the master side of a pseudo-terminal, for tests of the real serial code.
// The program opens devicePath() like a serial port. The emulator answers AT commands (echo,
// verbose or numeric results), dials with the answer it is told to give, and once connected
// bridges the bytes to a simulated centre chosen by the dialled number. "+++" between guard times
// returns to command mode; ATH or the port closing ends the call.
//
// Everything runs on the emulator's own thread, under one mutex that the getters also take.

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "line/sim/simulated_centre.h"

namespace parlane::testing {

class PtyModemEmulator : private CentreLink {
  public:
    using Clock = std::chrono::steady_clock;
    enum class Answer { Connect, Busy, NoCarrier };

    PtyModemEmulator();
    ~PtyModemEmulator() override;
    PtyModemEmulator(const PtyModemEmulator&) = delete;
    PtyModemEmulator& operator=(const PtyModemEmulator&) = delete;

    const std::string& devicePath() const { return slavePath_; }
    void setAnswer(Answer answer);
    // The device disappears (the master side closes).
    void vanish();
    // The modem stops answering anything, "+++" and ATH included; it stays off-hook.
    void goDeaf();
    // The far end hangs up: "NO CARRIER" in the call's data, as a modem without a carrier
    // line to the computer tells it.
    void farEndHangsUp();
    // ATH is answered this late, as by a modem slow to go on-hook.
    void setHangUpDelay(Milliseconds delay);

    std::vector<std::string> commands() const;  // AT command lines, as received
    std::string dialled() const;                // dial string of the last ATD
    bool callUp() const;
    int hangUps() const;   // calls ended by ATH or by the port closing
    int accepted() const;  // messages accepted by the centres, all calls

  private:
    void threadMain();
    void onBytes(const char* data, std::size_t n);
    void onCommandLine(const std::string& line);
    void onDataBytes(const char* data, std::size_t n);
    void result(const char* text, int code);
    void write(const std::string& bytes);
    void endCall();
    void schedule(Milliseconds delay, std::function<void()> fn);
    // CentreLink.
    void sendToProgram(std::string bytes) override;
    void after(Milliseconds delay, std::function<void()> fn) override;
    void hangUp() override;

    mutable std::mutex mutex_;
    int master_ = -1;
    int wake_[2] = {-1, -1};
    bool stop_ = false;
    bool portClosed_ = true;  // no one holds the device open
    std::string slavePath_;
    std::thread thread_;
    std::multimap<Clock::time_point, std::function<void()>> timers_;
    std::vector<std::function<void()>> tasks_;

    Answer answer_ = Answer::Connect;
    const Milliseconds connectDelay_{300};
    Milliseconds hangUpDelay_{0};
    Milliseconds guard_{900};  // a little under the usual second, to allow for scheduling
    bool echo_ = true, verbose_ = true, dataMode_ = false, callUp_ = false, dialPending_ = false;
    bool deaf_ = false;
    std::string line_;
    std::uint64_t callGeneration_ = 0;
    int plusCount_ = 0;
    Clock::time_point lastData_{};
    std::vector<std::string> commands_;
    std::string dialled_;
    std::map<std::string, int> attempts_;
    std::vector<std::unique_ptr<SimulatedCentre>> centres_;
    SimulatedCentre* centre_ = nullptr;
    int hangUps_ = 0;
};

}  // namespace parlane::testing
