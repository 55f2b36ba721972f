#pragma once
// One Hayes-compatible modem on a serial device. The provider owns the port: it takes the UUCP
// lock, opens and configures the device, talks AT commands until CONNECT, then hands the
// descriptor to its serial link and only watches for the call's end (carrier or device lost).
// Dropping the call lowers DTR; when the carrier outlives that, or DTR cannot be driven (a
// pseudo-terminal), it escapes with "+++" between guard times and sends ATH, on timers of the
// program's loop.
//
// Threads: one watcher thread per open port. It reads the modem's answers line by line and posts
// them to the loop; it never touches anything else. Every event reaches the program through the
// callback on the loop.

#include <sys/types.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "core/event_loop.h"
#include "line/at/dialling_rules.h"
#include "line/at/posix_serial_link.h"
#include "line/device_dialogs.h"
#include "line/modem_config.h"
#include "line/telephony.h"

namespace parlane {

struct AtModemOptions {
    std::string devicePath;
    std::string lineName;  // shown in the device lists; the path when empty
    // UUCP lock files LCK..<device name> live here; empty: no locking.
    std::string lockDir = "/var/lock";
    std::vector<std::string> initCommands = {"ATZ", "ATE0V1"};
    char dialMode = 'T';  // T tone, P pulse
    int baud = 115200;
    bool hardwareFlowControl = false;
    DiallingLocation location;  // where the modem dials from
    Milliseconds commandTimeout{5000};
    Milliseconds dialTimeout{90000};
    Milliseconds guardTime{1000};     // silence around "+++"
    Milliseconds dtrLowTime{500};     // how long DTR stays low to hang up
    Milliseconds carrierCheck{1000};  // DCD is read this often during a call, where it can be
};

// What a line from the modem means.
enum class ModemReply { None, Echo, Ok, Connect, Ring, Failure };
// Verbose or numeric result codes, any case; a line starting with "AT" is the modem's echo.
ModemReply ClassifyModemLine(const std::string& line);

// Writes the lock file for `deviceName` in `lockDir` (HDB format: the pid in ten columns). A lock
// of a process that no longer exists, or one that cannot be read, is taken over. Returns 0, or
// EBUSY when a live process holds it, or another errno value.
int AcquireUucpLock(const std::string& lockDir, const std::string& deviceName);
void ReleaseUucpLock(const std::string& lockDir, const std::string& deviceName);

class AtModem : public TapiProvider {
  public:
    AtModem(EventLoop& loop, AtModemOptions options);
    ~AtModem() override;
    AtModem(const AtModem&) = delete;
    AtModem& operator=(const AtModem&) = delete;

    // The link that carries the call's bytes; lineGetID's handle is meant for it.
    PosixSerialLink& serialLink() { return link_; }
    const AtModemOptions& options() const { return options_; }
    // Where the modem dials from; its tone or pulse choice picks ATDT or ATDP.
    void setLocation(const DiallingLocation& location);
    // The dialogs of lineConfigDialogEdit and lineTranslateDialog; the location is saved in
    // `settings` when given.
    void setDeviceDialogs(DeviceDialogs* dialogs, Settings* settings) {
        dialogs_ = dialogs;
        settings_ = settings;
    }
    // The settings the next call runs with: the block last applied, else the options'.
    ModemConfig currentConfig() const;

    // Telephony; this provider has one device, index 0.
    std::int32_t lineInitialize(LineCallbackFunction callback, const std::string& appName,
                                std::uint32_t& deviceCount) override;
    std::int32_t lineShutdown() override;
    std::int32_t lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t low,
                                         std::uint32_t high, std::uint32_t& version) override;
    std::int32_t lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) override;
    // Opens the port when it is free. When another process holds its lock the line still opens,
    // and lineMakeCall answers LINEERR_INUSE until the lock is gone, so that the program waits
    // and tries again instead of giving the message up.
    std::int32_t lineOpen(std::uint32_t device, std::uint32_t& lineHandle) override;
    std::int32_t lineMakeCall(std::uint32_t lineHandle, std::uint32_t& callHandle,
                              const std::string& dialable, std::uint32_t mediaMode) override;
    std::int32_t lineDrop(std::uint32_t callHandle) override;
    std::int32_t lineDeallocateCall(std::uint32_t) override { return 0; }
    std::int32_t lineClose(std::uint32_t lineHandle) override;
    std::int32_t lineGetID(std::uint32_t lineHandle, std::intptr_t& portHandle) override;
    std::int32_t lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                      std::string& dialable) override;
    std::int32_t tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) override;
    std::int32_t lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& config,
                                  const std::string& deviceClass) override;
    std::int32_t lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                  const std::string& deviceClass) override;
    std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                      const std::string& deviceClass,
                                      const std::vector<std::uint8_t>& blockIn,
                                      std::vector<std::uint8_t>& varStringOut) override;
    std::int32_t lineTranslateDialog(std::uint32_t device, std::uintptr_t owner) override;
    // The ports are the device list's to configure; one modem has nothing of its own.
    std::int32_t lineConfigProvider(std::uintptr_t, std::uint32_t) override {
        return LINEERR_OPERATIONFAILED;
    }

  private:
    enum class Phase { Idle, Init, Dialling, Connected, Dropping, Ended };
    enum Mode : int { kCommand, kWatch, kStop };

    std::int32_t openPort();
    void closePort();
    void setMode(Mode mode);
    void watcherLoop(int fd, int wakeFd, std::uint64_t generation);
    // Loop side.
    void onLine(const std::string& line);
    // "NO CARRIER" came in the call's data; `waits` counts the 50 ms waits for the program to
    // read what came before it.
    void onFarEndHangUp(int waits);
    static constexpr int kFarEndReadWaits = 40;
    void onPortLost();
    void send(const std::string& command);
    void nextCommand();
    void armTimeout(Milliseconds delay);
    void endCall();  // DISCONNECTED
    void escapeAndHangUp();
    void hangUpInCommandMode();
    void finishDrop();
    void deliver(std::uint32_t state);
    // Runs fn on the loop after `delay`, unless the port or the call step has moved on.
    void later(Milliseconds delay, std::function<void()> fn);
    void postToLoop(std::uint64_t generation, std::function<void()> fn);

    EventLoop& loop_;
    AtModemOptions options_;
    std::string lockName_;
    LineCallbackFunction callback_;
    PosixSerialLink link_;

    int fd_ = -1;
    bool locked_ = false;
    bool lineOpen_ = false;
    bool portGone_ = false;
    bool canDriveDtr_ = false;
    int wake_[2] = {-1, -1};
    std::thread watcher_;
    std::atomic<int> mode_{kCommand};
    std::atomic<bool> dialling_{false};  // the watcher stops reading at CONNECT
    std::atomic<bool> watchCarrier_{false};
    std::atomic<bool> carrierSeen_{false};  // DCD was high during this call
    std::uint64_t portGeneration_ = 0;      // posts of an earlier port are dropped
    std::uint64_t step_ = 0;                // timers of an earlier step are dropped

    Phase phase_ = Phase::Idle;
    std::size_t initIndex_ = 0;
    std::vector<std::string> callInit_;
    std::optional<ModemConfig> devConfig_;
    DeviceDialogs* dialogs_ = nullptr;
    Settings* settings_ = nullptr;
    bool hangupSent_ = false;
    std::string dialCommand_;
    std::uint32_t callHandle_ = 0;
    std::int32_t requestId_ = 0;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace parlane
