#pragma once
// A centre reached over the internet, as a line device: "dialling" connects to the host and port
// of the centre's device block (plain TCP or TLS), and the connection carries the dialogue's
// bytes as a modem's data call would. The call states are the engine's: PROCEEDING at once,
// CONNECTED, or DISCONNECTED with the reason in dwParam2; a connection lost during the dialogue
// is a far-end drop.
//
// Threads: as with the AT modem, one watcher thread per call. It resolves the name (the system's
// resolver blocks), connects and shakes hands on a non-blocking socket with the time-out, then
// only waits for the socket to become readable and posts that to the loop. Every read, write and
// call state happens on the loop; the thread never touches the socket's data once connected.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/event_loop.h"
#include "core/strings.h"
#include "line/device_dialogs.h"
#include "line/serial_link.h"
#include "line/tcp/tcp_config.h"
#include "line/telephony.h"

namespace parlane {

enum class TcpFailure { None, BadAddress, Refused, Unreachable, TimedOut, Reset, Closed, Tls };

// Why a connection failed or ended, kept as a bank id and its parts until it is worded on the
// loop: "Cannot find the address of" "sms.example.net" ": " "Name or service not known". The
// subject is a name or an address; the reason is the system's or the TLS library's own text.
struct TcpProblem {
    int id = 0;  // 0: the reason alone
    std::string subject;
    std::string reason;
};
// The reason a DISCONNECTED carries for each failure.
std::uint32_t DisconnectModeFor(TcpFailure failure);

class TcpLine : public TapiProvider, public SerialLink {
  public:
    static constexpr const char* kLineName = "Internet (TCP)";
    static constexpr const char* kLineKey = "internet";
    explicit TcpLine(EventLoop& loop);
    ~TcpLine() override;
    TcpLine(const TcpLine&) = delete;
    TcpLine& operator=(const TcpLine&) = delete;

    void setDeviceDialogs(DeviceDialogs* dialogs) { dialogs_ = dialogs; }
    // Certificates (PEM) trusted besides the system's, for a carrier with its own authority.
    void setExtraTrustFile(std::string path) { extraTrustFile_ = std::move(path); }
    // A line in plain words for the debug log: where the call goes, why it failed.
    std::function<void(const std::string& text)> onNote;
    // The bank the notes are worded from; the program points it at the one in use.
    const Strings* strings = &Strings::English();
    TcpFailure lastFailure() const { return lastFailure_; }

    // Telephony; this provider has one device, index 0.
    std::int32_t lineInitialize(LineCallbackFunction callback, const std::string& appName,
                                std::uint32_t& deviceCount) override;
    std::int32_t lineShutdown() override;
    std::int32_t lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t low,
                                         std::uint32_t high, std::uint32_t& version) override;
    std::int32_t lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) override;
    std::int32_t lineOpen(std::uint32_t device, std::uint32_t& lineHandle) override;
    // Connects to the block last applied; LINEERR_OPERATIONFAILED when it names no host.
    std::int32_t lineMakeCall(std::uint32_t lineHandle, std::uint32_t& callHandle,
                              const std::string& dialable, std::uint32_t mediaMode) override;
    std::int32_t lineDrop(std::uint32_t callHandle) override;
    std::int32_t lineDeallocateCall(std::uint32_t) override { return 0; }
    std::int32_t lineClose(std::uint32_t lineHandle) override;
    std::int32_t lineGetID(std::uint32_t lineHandle, std::intptr_t& portHandle) override;
    // The address is the centre's host and port; the number is not dialled.
    std::int32_t lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                      std::string& dialable) override;
    std::int32_t tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) override;
    // The block is the centre's address and serves the next call only: a centre without one
    // never reaches the host of the centre dialled before it.
    std::int32_t lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& config,
                                  const std::string& deviceClass) override;
    // A new centre starts from the defaults: no host, port 0, 30 s, no TLS.
    std::int32_t lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                  const std::string& deviceClass) override;
    std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                      const std::string& deviceClass,
                                      const std::vector<std::uint8_t>& blockIn,
                                      std::vector<std::uint8_t>& varStringOut) override;
    std::int32_t lineTranslateDialog(std::uint32_t, std::uintptr_t) override {
        return LINEERR_OPERATIONFAILED;
    }
    std::int32_t lineConfigProvider(std::uintptr_t, std::uint32_t) override {
        return LINEERR_OPERATIONFAILED;
    }

    bool OpenCommunicationsPort(std::intptr_t handle,
                                std::function<void(std::int32_t)> onCommEvent) override;
    bool CloseCommunicationsPort() override;
    int GetRxCharacters(RxBufferArray& buffer) override;
    bool TxChars(const std::string& bytes) override;

    struct Connection;  // shared with the call's watcher thread

  private:
    enum class Phase { Idle, Connecting, Connected, Ended };

    void onConnected(const std::shared_ptr<Connection>& c);
    void onFailed(const std::shared_ptr<Connection>& c, TcpFailure failure,
                  const TcpProblem& problem);
    void onReadable(const std::shared_ptr<Connection>& c);
    // The far end is gone: DISCONNECTED once the program has read what came before.
    void lost(TcpFailure failure, const TcpProblem& problem);
    std::string words(int id) const { return strings->LoadResString(id); }
    std::string words(const TcpProblem& problem) const;
    void announce();
    void abandon();
    void deliver(std::uint32_t state, std::uint32_t mode = 0);
    void note(const std::string& text) {
        if (onNote) onNote(text);
    }

    EventLoop& loop_;
    LineCallbackFunction callback_;
    DeviceDialogs* dialogs_ = nullptr;
    std::string extraTrustFile_;
    std::optional<TcpConfig> next_;  // the block applied for the next call
    std::shared_ptr<Connection> conn_;
    Phase phase_ = Phase::Idle;
    bool lineOpen_ = false;
    std::uint32_t callHandle_ = 0;
    std::int32_t requestId_ = 0;
    TcpFailure lastFailure_ = TcpFailure::None;

    bool linkOpen_ = false;
    std::function<void(std::int32_t)> onCommEvent_;
    std::string pending_;  // read, not yet handed out
    bool eventOutstanding_ = false;
    bool endSeen_ = false;  // the far end closed; DISCONNECTED waits for pending_ to be read
    TcpFailure endFailure_ = TcpFailure::None;
    TcpProblem endProblem_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace parlane
