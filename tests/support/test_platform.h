#pragma once
// A main window on fakes: virtual time, settings in memory, a scripted dialogue host, a
// telephony whose calls the test drives, and a temporary home.

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/regional_formats.h"
#include "core/settings_store.h"
#include "core/virtual_event_loop.h"
#include "line/serial_link.h"
#include "line/sim/simulated_modem.h"
#include "line/telephony.h"
#include "support/temp_files.h"
#include "ui/frm_main.h"

namespace parlane::testing {

class ScriptedDialogues : public DialogueHost {
  public:
    struct Shown {
        std::string prompt;
        int flags;
        std::string title;
    };
    int messageBox(const std::string& prompt, int flags, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;
    std::deque<int> answers;  // used in order; OK (or No for a question) when empty
    // Answers of input boxes, in order; "" (cancel) when empty. Each prompt is kept in `shown`
    // with flags 0 and its default in `inputDefaults`.
    std::deque<std::string> inputs;
    std::vector<std::string> inputDefaults;
    std::vector<Shown> shown;
};

// A line whose events the test sends; it records what the engine asked of it.
class FakeLine : public TapiProvider, public SerialLink {
  public:
    explicit FakeLine(EventLoop& loop) : loop_(loop) {}
    std::int32_t lineInitialize(LineCallbackFunction cb, const std::string&,
                                std::uint32_t& count) override;
    std::int32_t lineShutdown() override;
    std::int32_t lineNegotiateAPIVersion(std::uint32_t, std::uint32_t, std::uint32_t high,
                                         std::uint32_t& version) override {
        version = high;
        return 0;
    }
    std::int32_t lineGetDevCaps(std::uint32_t, LineDevCaps& caps) override;
    std::int32_t lineOpen(std::uint32_t device, std::uint32_t& line) override;
    std::int32_t lineMakeCall(std::uint32_t, std::uint32_t& call, const std::string& dialable,
                              std::uint32_t) override;
    std::int32_t lineDrop(std::uint32_t) override;
    std::int32_t lineDeallocateCall(std::uint32_t) override;
    std::int32_t lineClose(std::uint32_t) override;
    std::int32_t lineGetID(std::uint32_t, std::intptr_t& handle) override {
        handle = 7;
        return 0;
    }
    std::int32_t lineTranslateAddress(std::uint32_t, const std::string& canonical,
                                      std::string& dialable) override;
    std::int32_t tapiGetLocationInfo(std::string& country, std::string& city) override;
    std::int32_t lineSetDevConfig(std::uint32_t, const std::vector<std::uint8_t>& config,
                                  const std::string&) override;
    std::int32_t lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                  const std::string&) override;
    std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t, const std::string&,
                                      const std::vector<std::uint8_t>& blockIn,
                                      std::vector<std::uint8_t>& varStringOut) override;
    std::int32_t lineTranslateDialog(std::uint32_t device, std::uintptr_t) override;
    std::int32_t lineConfigProvider(std::uintptr_t, std::uint32_t providerId) override;
    bool OpenCommunicationsPort(std::intptr_t, std::function<void(std::int32_t)>) override;
    bool CloseCommunicationsPort() override;
    int GetRxCharacters(RxBufferArray& buffer) override;
    bool TxChars(const std::string& bytes) override;

    // Bytes from the far end: stored and announced as the serial library would.
    void receive(const std::string& bytes);
    std::string incoming;
    std::string written;                              // every byte the program wrote, in order
    std::function<void(const std::string&)> onWrite;  // told of each write, after it
    std::function<void(std::int32_t)> onCommEvent;

    // Delivers a call state now, as the provider's callback would.
    void sendState(std::uint32_t state) {
        if (callback) callback(1, LINE_CALLSTATE, 0, state, 0, 0);
    }

    LineCallbackFunction callback;
    // The devices' names; an empty name is a device whose capabilities cannot be read.
    std::vector<std::string> deviceNames{"Simulated modem"};
    std::vector<LineKind> deviceKinds;  // by device; a modem where none is given
    std::string locationCity;           // the dialling location's area code; its country is 44
    std::vector<std::string> log;       // operations in order
    std::vector<std::string> dialled;   // dialable strings of placed calls
    std::deque<PlaceCallResult> placeResults;  // Placed when empty
    bool openLineSucceeds = true;
    std::int32_t translateResult = 0;
    // The device block: what lineGetDevConfig answers (results in order, 0 when none are left),
    // what a successful lineConfigDialogEdit gives back and the block it was last given.
    std::vector<std::uint8_t> devConfig;
    std::deque<std::int32_t> getDevConfigResults;
    std::int32_t configDialogEditResult = 0;
    std::vector<std::uint8_t> editedDevConfig;
    std::vector<std::uint8_t> editInput;
    bool portOpen = false;
    // When set, every placed call connects after this delay and hangs up at the far end after
    // `farEndHangUpAfter` (0: never).
    int autoConnectMs = 0;
    int farEndHangUpAfterMs = 0;
    // The provider's own drop: IDLE this long after lineDrop; never when negative.
    int idleAfterDropMs = -1;

  private:
    EventLoop& loop_;
};

struct TestPlatform {
    TestPlatform();
    ~TestPlatform();
    // Builds (once) and loads the main window.
    frmMain& load();
    // Call before load(): the window then dials through the simulated modem and its centres.
    void useSimulatedModem();

    // Write smsc.dat and phones.dat into the home.
    void writeProviders(const std::vector<Provider>& providers);
    void writeDirectory(const std::vector<DirectoryEntry>& entries);
    // Names of the files in SMS/Outbox, sorted.
    std::vector<std::string> archiveFiles() const;
    std::string archiveFile(const std::string& name) const;
    // The status written in each archive file, in file order.
    std::vector<std::string> archiveStatuses() const;
    bool saw(const std::string& status) const;  // shown on the status line at some time

    TempFolder homeFolder;
    std::filesystem::path home = homeFolder.path();
    VirtualEventLoop loop;
    MemorySettingsStore settings;
    ScriptedDialogues dialogues;
    FixedRegionalFormats formats;
    FakeLine line{loop};
    ProgramGlobals globals;
    std::unique_ptr<SimulatedModem> modem;
    std::unique_ptr<frmMain> main;
    std::vector<std::string> statusLines;  // every status line shown, in order

  private:
    struct Recorder;
    std::unique_ptr<Recorder> recorder_;
};

// A centre with the fields the engine reads.
Provider MakeProvider(const std::string& name, int protocol = ProtocolTap,
                      const std::string& maxMessages = "3");

// Fills the compose panel.
void Compose(frmMain& form, const std::string& text, const std::string& country = "44",
             const std::string& area = "07", const std::string& number = "1234");
// The texts of a queue or send buffer, without the placeholder at 0.
std::vector<std::string> Texts(const MessageTable& table);

// Composes and queues each text in turn, all to one number.
void QueueTexts(frmMain& form, const std::vector<std::string>& texts,
                const std::string& country = "44", const std::string& area = "07",
                const std::string& number = "1234");

}  // namespace parlane::testing
