#include "support/test_platform.h"

#include <algorithm>
#include <fstream>

#include "core/file_io.h"
#include "line/modem_config.h"

namespace parlane::testing {

int ScriptedDialogues::messageBox(const std::string& prompt, int flags, const std::string& title) {
    shown.push_back({prompt, flags, title});
    if (!answers.empty()) {
        const int a = answers.front();
        answers.pop_front();
        return a;
    }
    return flags == MbQuestionYesNo ? AnswerNo : AnswerOk;
}

std::string ScriptedDialogues::inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) {
    shown.push_back({prompt, 0, title});
    inputDefaults.push_back(defaultText);
    if (inputs.empty()) return {};
    std::string answer = inputs.front();
    inputs.pop_front();
    return answer;
}

std::int32_t FakeLine::lineInitialize(LineCallbackFunction cb, const std::string&,
                                      std::uint32_t& count) {
    log.push_back("init");
    callback = std::move(cb);
    count = static_cast<std::uint32_t>(deviceNames.size());
    return 0;
}
std::int32_t FakeLine::lineShutdown() {
    log.push_back("shutdown");
    return 0;
}
std::int32_t FakeLine::lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) {
    if (device >= deviceNames.size() || deviceNames[device].empty()) return LINEERR_NODEVICE;
    caps.dwUsedSize = 240;
    caps.lineName = deviceNames[device];
    caps.lineKey = deviceNames[device];
    if (device < deviceKinds.size()) caps.kind = deviceKinds[device];
    return 0;
}
std::int32_t FakeLine::lineOpen(std::uint32_t device, std::uint32_t& line) {
    log.push_back("open line " + std::to_string(device));
    line = 3;
    return openLineSucceeds ? 0 : LINEERR_RESOURCEUNAVAIL;
}
std::int32_t FakeLine::lineSetDevConfig(std::uint32_t, const std::vector<std::uint8_t>& config,
                                        const std::string&) {
    log.push_back("set dev config " + std::to_string(config.size()));
    return 0;
}
std::int32_t FakeLine::lineTranslateAddress(std::uint32_t, const std::string& canonical,
                                            std::string& dialable) {
    log.push_back("translate " + canonical);
    dialable = canonical;
    return translateResult;
}
std::int32_t FakeLine::lineMakeCall(std::uint32_t, std::uint32_t& call, const std::string& dialable,
                                    std::uint32_t) {
    log.push_back("place call");
    dialled.push_back(dialable);
    call = 5;
    PlaceCallResult r = PlaceCallResult::Placed;
    if (!placeResults.empty()) {
        r = placeResults.front();
        placeResults.pop_front();
    }
    if (r == PlaceCallResult::LineInUse) return LINEERR_INUSE;
    if (r == PlaceCallResult::Failed) return LINEERR_OPERATIONFAILED;
    if (autoConnectMs > 0) {
        loop_.singleShot(Milliseconds(autoConnectMs), [this] {
            sendState(LINECALLSTATE_CONNECTED);
            if (farEndHangUpAfterMs > 0)
                loop_.singleShot(Milliseconds(farEndHangUpAfterMs), [this] {
                    sendState(LINECALLSTATE_DISCONNECTED);
                    sendState(LINECALLSTATE_IDLE);
                });
        });
    }
    return 1;  // a request id
}
std::int32_t FakeLine::lineDrop(std::uint32_t) {
    log.push_back("drop");
    if (idleAfterDropMs >= 0)
        loop_.singleShot(Milliseconds(idleAfterDropMs), [this] { sendState(LINECALLSTATE_IDLE); });
    return 0;
}
std::int32_t FakeLine::lineDeallocateCall(std::uint32_t) {
    log.push_back("deallocate");
    return 0;
}
std::int32_t FakeLine::lineClose(std::uint32_t) {
    log.push_back("close line");
    return 0;
}
std::int32_t FakeLine::tapiGetLocationInfo(std::string& code, std::string& city) {
    code = "44";
    city = locationCity;
    return 0;
}
std::int32_t FakeLine::lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                        const std::string&) {
    log.push_back("get dev config " + std::to_string(device) + " " +
                  std::to_string(varString.size()));
    std::int32_t result = 0;
    if (!getDevConfigResults.empty()) {
        result = getDevConfigResults.front();
        getDevConfigResults.pop_front();
    }
    return result != 0 ? result : WriteVarString(varString, devConfig);
}
std::int32_t FakeLine::lineConfigDialogEdit(std::uint32_t device, std::uintptr_t,
                                            const std::string&,
                                            const std::vector<std::uint8_t>& blockIn,
                                            std::vector<std::uint8_t>& varStringOut) {
    log.push_back("config dialog edit " + std::to_string(device) + " " +
                  std::to_string(varStringOut.size()));
    editInput = blockIn;
    if (configDialogEditResult != 0) return configDialogEditResult;
    return WriteVarString(varStringOut, editedDevConfig);
}
std::int32_t FakeLine::lineTranslateDialog(std::uint32_t device, std::uintptr_t) {
    log.push_back("translate dialog " + std::to_string(device));
    return 0;
}
std::int32_t FakeLine::lineConfigProvider(std::uintptr_t, std::uint32_t providerId) {
    log.push_back("config provider " + std::to_string(providerId));
    return 0;
}
bool FakeLine::OpenCommunicationsPort(std::intptr_t, std::function<void(std::int32_t)> cb) {
    log.push_back("open port");
    portOpen = true;
    onCommEvent = std::move(cb);
    return true;
}
bool FakeLine::CloseCommunicationsPort() {
    const bool was = portOpen;
    portOpen = false;
    onCommEvent = nullptr;
    return was;
}
bool FakeLine::TxChars(const std::string& bytes) {
    written += bytes;
    if (onWrite && portOpen)
        loop_.post([this, bytes] {
            if (onWrite) onWrite(bytes);
        });
    return portOpen;
}
void FakeLine::receive(const std::string& bytes) {
    incoming += bytes;
    if (onCommEvent) onCommEvent(1);
}
int FakeLine::GetRxCharacters(RxBufferArray& buffer) {
    const std::size_t n = std::min(incoming.size(), buffer.size());
    for (std::size_t i = 0; i < n; ++i) buffer[i] = static_cast<std::uint8_t>(incoming[i]);
    incoming.erase(0, n);
    if (!incoming.empty() && onCommEvent)
        loop_.post([this] {
            if (onCommEvent) onCommEvent(1);
        });
    return static_cast<int>(n);
}

struct TestPlatform::Recorder : FormObserver {
    explicit Recorder(std::vector<std::string>& lines) : lines_(lines) {}
    void statusChanged(const std::string& status) override { lines_.push_back(status); }
    std::vector<std::string>& lines_;
};

TestPlatform::TestPlatform() {
    // A modem has been chosen already; the tests of that choice clear these.
    settings.write("Parlane", "FirstRun", "Modem", "4");
    settings.write("Parlane", "Modem", "Index", "0");
    settings.write("Parlane", "Modem", "Name", "Simulated modem");
}

// The window goes before the recorder it reports to, and both before the home.
TestPlatform::~TestPlatform() {
    main.reset();
}

frmMain& TestPlatform::load() {
    if (!main) {
        main =
            modem ? std::make_unique<frmMain>(
                        Platform{loop, settings, dialogues, formats, *modem, *modem, home}, globals)
                  : std::make_unique<frmMain>(
                        Platform{loop, settings, dialogues, formats, line, line, home}, globals);
        recorder_ = std::make_unique<Recorder>(statusLines);
        main->setObserver(recorder_.get());
        main->Form_Load();
    }
    return *main;
}

void TestPlatform::useSimulatedModem() {
    modem = std::make_unique<SimulatedModem>(loop, 5);
}

void TestPlatform::writeProviders(const std::vector<Provider>& providers) {
    std::string error;
    WriteFileAtomically(home / "smsc.dat", SerializeProviderFile(providers, error));
}

void TestPlatform::writeDirectory(const std::vector<DirectoryEntry>& entries) {
    std::string error;
    WriteFileAtomically(home / "phones.dat", SerializeDirectoryFile(entries, error));
}

std::vector<std::string> TestPlatform::archiveFiles() const {
    std::vector<std::string> names;
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(home / "SMS" / "Outbox", ec))
        names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string TestPlatform::archiveFile(const std::string& name) const {
    return ReadWholeFile(home / "SMS" / "Outbox" / name).value_or("<missing>");
}

std::vector<std::string> TestPlatform::archiveStatuses() const {
    std::vector<std::string> out;
    for (const auto& name : archiveFiles()) {
        const auto text = archiveFile(name);
        const auto at = text.find("Status: \t") + 9;
        out.push_back(text.substr(at, text.find('\r', at) - at));
    }
    return out;
}

bool TestPlatform::saw(const std::string& status) const {
    return std::find(statusLines.begin(), statusLines.end(), status) != statusLines.end();
}

Provider MakeProvider(const std::string& name, int protocol, const std::string& maxMessages) {
    Provider p;
    p.ProviderName = name;
    p.TapiDevice = "0";
    p.CountryCode = "44";
    p.AreaCode = "07";
    p.Number = "1234";
    p.MaxChars = "160";
    p.Protocol = protocol;
    p.MultiMessage = 1;
    p.AllowASCII = "0";
    p.MaxMessages = maxMessages;
    p.UCPOperation = "01";
    return p;
}

void Compose(frmMain& form, const std::string& text, const std::string& country,
             const std::string& area, const std::string& number) {
    form.txtMessage.Text = text;
    form.txtCountryCode.Text = country;
    form.txtAreaCode.Text = area;
    form.txtNumber.Text = number;
}

std::vector<std::string> Texts(const MessageTable& table) {
    std::vector<std::string> texts;
    for (std::size_t i = 1; i < table.size(); ++i) texts.push_back(table[i].Text);
    return texts;
}

void QueueTexts(frmMain& form, const std::vector<std::string>& texts, const std::string& country,
                const std::string& area, const std::string& number) {
    for (const auto& text : texts) {
        Compose(form, text, country, area, number);
        form.mnuQueue_Click();
    }
}

}  // namespace parlane::testing
