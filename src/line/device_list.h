#pragma once
// The devices the program can dial on: device 0 is the simulated modem, device 1 the internet
// line (centres reached over TCP), then the serial ports named in the settings (Modem/Ports,
// separated by ";", each listed under its path as written) and the ports found on the machine.
// Nothing is opened or probed until a line is opened.
//
// Centres store a device's number, so numbers never move: the Modem/Lines setting remembers the
// line behind each number (its key: "simulated", "internet" or the port's path). A line keeps
// its number for good, a new one takes the next free number, and a line that is gone leaves a
// gap that answers LINEERR_NODEVICE, naming the line it was, until it comes back.
//
// The list is a TapiProvider that forwards each call to the device's own provider, and a
// SerialLink that forwards to the link of the device whose line is open: one line and one call
// are used at a time, so handles pass through unchanged. Opening a line on another device first
// closes the line left open on the previous one.
//
// The list also holds what belongs to all its devices: the dialling location (lineTranslateDialog
// changes it for every modem at once) and the ports setting (lineConfigProvider). A port added to
// the setting becomes a device at once, told with LINE_CREATE; one taken out stays a device
// until the next start, since its line may be in use.

#include <memory>
#include <string>
#include <vector>

#include "core/event_loop.h"
#include "line/at/at_modem.h"
#include "line/device_dialogs.h"
#include "line/serial_link.h"
#include "line/sim/simulated_modem.h"
#include "line/tcp/tcp_line.h"
#include "line/telephony.h"

namespace parlane {

// Ports found under /dev: by-id names first (readable), then ttyUSB and ttyACM nodes that no
// by-id name points at. Only the directory is read.
std::vector<SerialPortEntry> DetectSerialPorts(const std::string& devDir = "/dev");

// The line key behind each device number. `remembered`: the keys by number as last saved (empty
// before the first save: then the order of `present`). Numbers 0 and 1 are always the simulated
// modem and the internet line; every remembered key keeps its number; a present key not yet
// numbered takes the next free number.
std::vector<std::string> NumberLines(const std::vector<std::string>& remembered,
                                     const std::vector<std::string>& present);

class DeviceList : public TapiProvider, public SerialLink {
  public:
    // `portsSetting`: the Modem/Ports setting. `linesSetting`: the Modem/Lines setting.
    // `modemDefaults`: options for every AT modem (lock folder, init strings, the location); path
    // and name are filled in per port.
    DeviceList(EventLoop& loop, SimulatedModem& simulated, const std::string& portsSetting,
               const std::string& linesSetting, const AtModemOptions& modemDefaults,
               std::vector<SerialPortEntry> detected);

    std::size_t deviceCount() const { return devices_.size(); }
    // The AT modem behind a device, null for the simulated modem and the internet line.
    AtModem* modem(std::uint32_t device);
    TcpLine& tcp() { return tcp_; }
    const DiallingLocation& location() const { return location_; }
    // The dialogs of every device; the location and the ports are saved in `settings`.
    void setDeviceDialogs(DeviceDialogs* dialogs, Settings* settings);

    std::int32_t lineInitialize(LineCallbackFunction callback, const std::string& appName,
                                std::uint32_t& deviceCount) override;
    std::int32_t lineShutdown() override;
    std::int32_t lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t low,
                                         std::uint32_t high, std::uint32_t& version) override;
    std::int32_t lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) override;
    std::int32_t lineOpen(std::uint32_t device, std::uint32_t& lineHandle) override;
    std::int32_t lineMakeCall(std::uint32_t lineHandle, std::uint32_t& callHandle,
                              const std::string& dialable, std::uint32_t mediaMode) override;
    std::int32_t lineDrop(std::uint32_t callHandle) override;
    std::int32_t lineDeallocateCall(std::uint32_t callHandle) override;
    std::int32_t lineClose(std::uint32_t lineHandle) override;
    std::int32_t lineGetID(std::uint32_t lineHandle, std::intptr_t& portHandle) override;
    std::int32_t lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                      std::string& dialable) override;
    // The simulated modem's location stands for the machine's.
    std::int32_t tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) override;
    std::int32_t lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& config,
                                  const std::string& deviceClass) override;
    std::int32_t lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString,
                                  const std::string& deviceClass) override;
    std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                      const std::string& deviceClass,
                                      const std::vector<std::uint8_t>& blockIn,
                                      std::vector<std::uint8_t>& varStringOut) override;
    // One location for all devices: the AT modems dial by it, the simulated one takes its
    // country code.
    std::int32_t lineTranslateDialog(std::uint32_t device, std::uintptr_t owner) override;
    // Edits Modem/Ports; new ports become devices at once (and Modem/Lines remembers them).
    std::int32_t lineConfigProvider(std::uintptr_t owner, std::uint32_t providerId) override;

    bool OpenCommunicationsPort(std::intptr_t handle,
                                std::function<void(std::int32_t)> onCommEvent) override;
    bool CloseCommunicationsPort() override;
    int GetRxCharacters(RxBufferArray& buffer) override;
    bool TxChars(const std::string& bytes) override;

  private:
    struct Device {
        TapiProvider* provider;  // null: the line is not on this machine now
        SerialLink* link;
        std::unique_ptr<AtModem> owned;
        std::string key;
    };
    Device* find(std::uint32_t device);
    Device* active();

    void applyLocation();
    // Makes the devices of the ports setting and the detected ports that have none yet,
    // numbered after `remembered`; answers the numbers made.
    std::vector<std::uint32_t> takeInPorts(const std::vector<std::string>& remembered);

    EventLoop& loop_;
    SimulatedModem& simulated_;
    TcpLine tcp_;
    std::string portsSetting_;
    std::vector<SerialPortEntry> detected_;
    AtModemOptions modemDefaults_;
    DiallingLocation location_;
    // What lineInitialize was given, for the devices that come later.
    LineCallbackFunction callback_;
    std::string appName_;
    DeviceDialogs* dialogs_ = nullptr;
    Settings* settings_ = nullptr;
    std::vector<Device> devices_;
    int activeDevice_ = -1;  // the device whose line is open
    SerialLink* openLink_ = nullptr;
};

}  // namespace parlane
