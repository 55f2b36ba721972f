#include "line/device_list.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace parlane {
namespace {

namespace fs = std::filesystem;

// "usb-Acme_USB_Modem_1234-if00-port0" -> "Acme USB Modem 1234".
std::string ReadableById(std::string id) {
    if (id.rfind("usb-", 0) == 0) id.erase(0, 4);
    const auto interfacePart = id.rfind("-if");
    if (interfacePart != std::string::npos && interfacePart > 0) id.erase(interfacePart);
    std::replace(id.begin(), id.end(), '_', ' ');
    return id;
}

// Empty entries are kept: they are numbers whose line was lost and must stay taken.
std::vector<std::string> SplitLinesSetting(const std::string& text) {
    std::vector<std::string> keys;
    std::size_t start = 0;
    for (;;) {
        const auto end = text.find(';', start);
        keys.push_back(text.substr(start, end == std::string::npos ? end : end - start));
        if (end == std::string::npos) return keys;
        start = end + 1;
    }
}

std::string Canonical(const std::string& path) {
    std::error_code ec;
    const auto real = fs::canonical(path, ec);
    return ec ? path : real.string();
}

}  // namespace

std::vector<SerialPortEntry> DetectSerialPorts(const std::string& devDir) {
    std::vector<SerialPortEntry> found;
    std::set<std::string> covered;
    std::error_code ec;
    std::vector<fs::path> byId;
    for (const auto& e : fs::directory_iterator(fs::path(devDir) / "serial" / "by-id", ec))
        byId.push_back(e.path());
    std::sort(byId.begin(), byId.end());
    for (const auto& p : byId) {
        const std::string node = Canonical(p.string());
        if (!covered.insert(node).second) continue;
        found.push_back({p.string(), ReadableById(p.filename().string()) + " (" +
                                         fs::path(node).filename().string() + ")"});
    }
    std::vector<fs::path> nodes;
    for (const auto& e : fs::directory_iterator(devDir, ec)) {
        const std::string name = e.path().filename().string();
        if (name.rfind("ttyUSB", 0) == 0 || name.rfind("ttyACM", 0) == 0) nodes.push_back(e.path());
    }
    std::sort(nodes.begin(), nodes.end());
    for (const auto& p : nodes) {
        if (!covered.insert(Canonical(p.string())).second) continue;
        const std::string name = p.filename().string();
        found.push_back(
            {p.string(), (name.rfind("ttyACM", 0) == 0 ? "USB modem " : "USB serial ") + name});
    }
    return found;
}

std::vector<std::string> NumberLines(const std::vector<std::string>& remembered,
                                     const std::vector<std::string>& present) {
    std::vector<std::string> keys{SimulatedModem::kLineKey, TcpLine::kLineKey};
    std::set<std::string> numbered(keys.begin(), keys.end());
    for (std::size_t i = keys.size(); i < remembered.size(); ++i) {
        // A duplicated entry stays a gap, so that the numbers after it hold.
        const bool first = !remembered[i].empty() && numbered.insert(remembered[i]).second;
        keys.push_back(first ? remembered[i] : std::string());
    }
    for (const auto& key : present)
        if (numbered.insert(key).second) keys.push_back(key);
    return keys;
}

DeviceList::DeviceList(EventLoop& loop, SimulatedModem& simulated, const std::string& portsSetting,
                       const std::string& linesSetting, const AtModemOptions& modemDefaults,
                       std::vector<SerialPortEntry> detected)
    : loop_(loop),
      simulated_(simulated),
      tcp_(loop),
      portsSetting_(portsSetting),
      detected_(std::move(detected)),
      modemDefaults_(modemDefaults),
      location_(modemDefaults.location) {
    takeInPorts(linesSetting.empty() ? std::vector<std::string>()
                                     : SplitLinesSetting(linesSetting));
    applyLocation();
}

std::vector<std::uint32_t> DeviceList::takeInPorts(const std::vector<std::string>& remembered) {
    std::set<std::string> listed;
    std::vector<SerialPortEntry> ports;
    for (const auto& path : SplitPortsSetting(portsSetting_))
        if (listed.insert(Canonical(path)).second) ports.push_back({path, path});
    // A detected port that the settings already name is not listed twice.
    for (const auto& port : detected_)
        if (listed.insert(Canonical(port.path)).second) ports.push_back(port);
    std::vector<std::string> present;
    for (const auto& port : ports) present.push_back(port.path);

    const auto keys = NumberLines(remembered, present);
    devices_.resize(std::max(devices_.size(), keys.size()));
    std::vector<std::uint32_t> made;
    for (std::size_t number = 0; number < keys.size(); ++number) {
        auto& device = devices_[number];
        // A line in the list stays as it is: its call may be up.
        if (device.provider) continue;
        const auto& key = keys[number];
        device.key = key;
        if (key == SimulatedModem::kLineKey) {
            device.provider = &simulated_;
            device.link = &simulated_;
        } else if (key == TcpLine::kLineKey) {
            device.provider = &tcp_;
            device.link = &tcp_;
        } else {
            const auto port = std::find_if(ports.begin(), ports.end(),
                                           [&](const SerialPortEntry& p) { return p.path == key; });
            if (port == ports.end()) continue;  // a gap until the line comes back
            AtModemOptions options = modemDefaults_;
            options.devicePath = port->path;
            options.lineName = port->name;
            options.location = location_;
            device.owned = std::make_unique<AtModem>(loop_, options);
            device.provider = device.owned.get();
            device.link = &device.owned->serialLink();
        }
        made.push_back(static_cast<std::uint32_t>(number));
    }
    return made;
}

void DeviceList::applyLocation() {
    simulated_.setLocation(location_);
    for (auto& d : devices_)
        if (d.owned) d.owned->setLocation(location_);
}

void DeviceList::setDeviceDialogs(DeviceDialogs* dialogs, Settings* settings) {
    dialogs_ = dialogs;
    settings_ = settings;
    simulated_.setDeviceDialogs(dialogs, settings);
    tcp_.setDeviceDialogs(dialogs);
    for (auto& d : devices_)
        if (d.owned) d.owned->setDeviceDialogs(dialogs, settings);
}

AtModem* DeviceList::modem(std::uint32_t device) {
    auto* d = find(device);
    return d ? d->owned.get() : nullptr;
}

DeviceList::Device* DeviceList::find(std::uint32_t device) {
    return device < devices_.size() && devices_[device].provider ? &devices_[device] : nullptr;
}

DeviceList::Device* DeviceList::active() {
    return activeDevice_ < 0 ? nullptr : &devices_[static_cast<std::size_t>(activeDevice_)];
}

std::int32_t DeviceList::lineInitialize(LineCallbackFunction callback, const std::string& appName,
                                        std::uint32_t& deviceCount) {
    callback_ = callback;
    appName_ = appName;
    for (auto& d : devices_) {
        std::uint32_t ignored = 0;
        if (d.provider) d.provider->lineInitialize(callback, appName, ignored);
    }
    deviceCount = static_cast<std::uint32_t>(devices_.size());
    return 0;
}

std::int32_t DeviceList::lineShutdown() {
    CloseCommunicationsPort();
    for (auto& d : devices_)
        if (d.provider) d.provider->lineShutdown();
    activeDevice_ = -1;
    return 0;
}

std::int32_t DeviceList::lineNegotiateAPIVersion(std::uint32_t device, std::uint32_t low,
                                                 std::uint32_t high, std::uint32_t& version) {
    auto* d = find(device);
    return d ? d->provider->lineNegotiateAPIVersion(0, low, high, version) : LINEERR_BADDEVICEID;
}

std::int32_t DeviceList::lineGetDevCaps(std::uint32_t device, LineDevCaps& caps) {
    if (device >= devices_.size()) return LINEERR_BADDEVICEID;
    caps.lineKey = devices_[device].key;
    auto* d = find(device);
    if (!d) return LINEERR_NODEVICE;
    const auto result = d->provider->lineGetDevCaps(0, caps);
    caps.lineKey = d->key;
    return result;
}

std::int32_t DeviceList::lineOpen(std::uint32_t device, std::uint32_t& lineHandle) {
    auto* d = find(device);
    if (!d) return LINEERR_BADDEVICEID;
    if (activeDevice_ >= 0 && activeDevice_ != static_cast<int>(device)) {
        CloseCommunicationsPort();
        active()->provider->lineClose(0);
    }
    const auto result = d->provider->lineOpen(0, lineHandle);
    activeDevice_ = result == 0 ? static_cast<int>(device) : -1;
    return result;
}

std::int32_t DeviceList::lineMakeCall(std::uint32_t lineHandle, std::uint32_t& callHandle,
                                      const std::string& dialable, std::uint32_t mediaMode) {
    auto* d = active();
    return d ? d->provider->lineMakeCall(lineHandle, callHandle, dialable, mediaMode)
             : LINEERR_INVALLINEHANDLE;
}

std::int32_t DeviceList::lineDrop(std::uint32_t callHandle) {
    auto* d = active();
    return d ? d->provider->lineDrop(callHandle) : LINEERR_INVALCALLHANDLE;
}

std::int32_t DeviceList::lineDeallocateCall(std::uint32_t callHandle) {
    auto* d = active();
    return d ? d->provider->lineDeallocateCall(callHandle) : LINEERR_INVALCALLHANDLE;
}

std::int32_t DeviceList::lineClose(std::uint32_t lineHandle) {
    auto* d = active();
    if (!d) return LINEERR_INVALLINEHANDLE;
    activeDevice_ = -1;
    return d->provider->lineClose(lineHandle);
}

std::int32_t DeviceList::lineGetID(std::uint32_t lineHandle, std::intptr_t& portHandle) {
    auto* d = active();
    return d ? d->provider->lineGetID(lineHandle, portHandle) : LINEERR_INVALLINEHANDLE;
}

std::int32_t DeviceList::lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                              std::string& dialable) {
    auto* d = find(device);
    return d ? d->provider->lineTranslateAddress(0, canonical, dialable) : LINEERR_BADDEVICEID;
}

std::int32_t DeviceList::tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) {
    return simulated_.tapiGetLocationInfo(countryCode, cityCode);
}

std::int32_t DeviceList::lineSetDevConfig(std::uint32_t device,
                                          const std::vector<std::uint8_t>& config,
                                          const std::string& deviceClass) {
    auto* d = find(device);
    return d ? d->provider->lineSetDevConfig(0, config, deviceClass) : LINEERR_BADDEVICEID;
}

std::int32_t DeviceList::lineGetDevConfig(std::uint32_t device,
                                          std::vector<std::uint8_t>& varString,
                                          const std::string& deviceClass) {
    auto* d = find(device);
    return d ? d->provider->lineGetDevConfig(0, varString, deviceClass) : LINEERR_BADDEVICEID;
}

std::int32_t DeviceList::lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                              const std::string& deviceClass,
                                              const std::vector<std::uint8_t>& blockIn,
                                              std::vector<std::uint8_t>& varStringOut) {
    auto* d = find(device);
    return d ? d->provider->lineConfigDialogEdit(0, owner, deviceClass, blockIn, varStringOut)
             : LINEERR_BADDEVICEID;
}

std::int32_t DeviceList::lineTranslateDialog(std::uint32_t device, std::uintptr_t) {
    if (!find(device)) return LINEERR_BADDEVICEID;
    if (!EditLocation(dialogs_, settings_, location_)) return LINEERR_OPERATIONFAILED;
    applyLocation();
    return 0;
}

std::int32_t DeviceList::lineConfigProvider(std::uintptr_t, std::uint32_t) {
    PortsForm form(settings_ ? settings_->Get(key::ModemPorts, portsSetting_) : portsSetting_,
                   detected_);
    if (!dialogs_ || !dialogs_->EditSerialPorts(form) || form.FirstFault())
        return LINEERR_OPERATIONFAILED;
    portsSetting_ = form.txtPorts.Text;
    if (settings_) settings_->Save(key::ModemPorts, portsSetting_);
    // A port added here is a new line at once; one taken out stays until the next start.
    std::vector<std::string> keys;
    for (const auto& d : devices_) keys.push_back(d.key);
    for (const auto number : takeInPorts(keys)) {
        auto& device = devices_[number];
        if (device.owned) device.owned->setDeviceDialogs(dialogs_, settings_);
        if (!callback_) continue;
        std::uint32_t ignored = 0;
        device.provider->lineInitialize(callback_, appName_, ignored);
        callback_(0, LINE_CREATE, 0, number, 0, 0);
    }
    if (settings_) {
        std::string lines = devices_.front().key;
        for (std::size_t number = 1; number < devices_.size(); ++number)
            lines += ";" + devices_[number].key;
        settings_->Save(key::ModemLines, lines);
    }
    return 0;
}

bool DeviceList::OpenCommunicationsPort(std::intptr_t handle,
                                        std::function<void(std::int32_t)> onCommEvent) {
    CloseCommunicationsPort();
    auto* d = active();
    if (!d || !d->link->OpenCommunicationsPort(handle, std::move(onCommEvent))) return false;
    openLink_ = d->link;
    return true;
}

bool DeviceList::CloseCommunicationsPort() {
    if (!openLink_) return false;
    auto* link = openLink_;
    openLink_ = nullptr;
    return link->CloseCommunicationsPort();
}

int DeviceList::GetRxCharacters(RxBufferArray& buffer) {
    return openLink_ ? openLink_->GetRxCharacters(buffer) : 0;
}

bool DeviceList::TxChars(const std::string& bytes) {
    return openLink_ && openLink_->TxChars(bytes);
}

}  // namespace parlane
