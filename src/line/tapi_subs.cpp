#include "line/tapi_subs.h"

#include <algorithm>
#include <cstdio>

#include "line/tapi_text.h"

namespace parlane {
namespace {
constexpr std::uint32_t kLowVersion = 0x00010000, kHighVersion = 0x00010004;
constexpr const char* kDeviceClass = "comm/datamodem";

std::string HexUpper(std::uint32_t v) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%X", v);
    return buf;
}
}  // namespace

void TAPISubs::InitTelephony() {
    if (setLblEvent) setLblEvent("1");
    const auto result = provider_.lineInitialize(
        [this](std::uint32_t h, std::uint32_t m, std::uint32_t i, std::uint32_t p1,
               std::uint32_t p2, std::uint32_t p3) { LineCallback(h, m, i, p1, p2, p3); },
        appName, lineDeviceCount_);
    if (result != 0)
        log(ErrorText(result) + " - lineInitalize");
    else
        log("NumLineDevices: " + std::to_string(lineDeviceCount_) + " - lineInitalize");
}

void TAPISubs::ShutdownTelephony() {
    provider_.lineShutdown();
    lineOpen_ = false;
}

void TAPISubs::GetLineCaps(std::uint32_t device, LineDevCaps& caps) {
    const std::string line = "Line #" + std::to_string(device);
    const auto negotiated =
        provider_.lineNegotiateAPIVersion(device, kLowVersion, kHighVersion, negotiatedVersion_);
    if (negotiated < 0) {
        log(ErrorText(negotiated) + " - LineNegAPI(" + std::to_string(device) + "}");
        caps.dwUsedSize = 0;
        return;
    }
    log(line + " supports ver " + HexUpper(negotiatedVersion_) + " - LineNegAPI");
    const auto result = provider_.lineGetDevCaps(device, caps);
    if (result != 0) {
        log(ErrorText(result) + " - lineGetDevCaps");
        caps.dwUsedSize = 0;
        return;
    }
    if (caps.dwStringFormat != STRINGFORMAT_ASCII) {
        log(line + "LineDevCaps Not ASCII - Stuffed");
        return;
    }
    log("LineDevCaps String Format is ASCII - Ok");
    log(line + " TSP Info:- " + BlankNuls(caps.providerInfo));
    log(line + " Line Name:-" + BlankNuls(caps.lineName));
    log(line + ", " + MediaModesText(caps.dwMediaModes));
    log(line + ", " + DigitModesText(caps.dwMonitorDigitModes));
}

void TAPISubs::FillDeviceList(ListControl& list) {
    if (lineDeviceCount_ == 0) return;
    list.Clear();
    for (std::uint32_t device = 0; device < lineDeviceCount_; ++device) {
        LineDevCaps caps;
        GetLineCaps(device, caps);
        list.AddItem(caps.dwUsedSize == 0 ? "Not Available" : BlankNuls(caps.lineName));
    }
}

bool TAPISubs::DescribeLine(std::uint32_t device, LineDevCaps& caps) {
    if (device >= lineDeviceCount_) return false;
    if (provider_.lineGetDevCaps(device, caps) == 0 && caps.dwUsedSize != 0) return true;
    caps.dwUsedSize = 0;
    return false;
}

int TAPISubs::FirstModemRow() {
    for (std::uint32_t device = 0; device < lineDeviceCount_; ++device) {
        LineDevCaps caps;
        if (DescribeLine(device, caps) && caps.kind == LineKind::Modem)
            return static_cast<int>(device);
    }
    return -1;
}

bool TAPISubs::OpenLine(std::uint32_t device) {
    const auto negotiated =
        provider_.lineNegotiateAPIVersion(device, kLowVersion, kHighVersion, negotiatedVersion_);
    if (negotiated < 0) {
        log(ErrorText(negotiated) + " - LineNegAPI(" + std::to_string(device) + "}");
        return false;
    }
    log("LineNegAPI(" + std::to_string(device) + ") Ver " + std::to_string(negotiatedVersion_));
    const auto result = provider_.lineOpen(device, lineHandle_);
    if (result != 0) {
        log(ErrorText(result) + " - lineOpen");
        return false;
    }
    log("Line #" + std::to_string(device) + " - lineOpen");
    lineOpen_ = true;
    return true;
}

PlaceCallResult TAPISubs::PlaceCall(const std::string& address, std::uint32_t mediaMode) {
    std::uint32_t call = 0;
    const auto result = provider_.lineMakeCall(lineHandle_, call, address, mediaMode);
    if (result >= 0) {
        callHandle_ = call;
        callPlaced_ = true;
        dropAsked_ = idleSeen_ = false;
        log("Call Placed TelNum:- " + address + " - lineMakeCall");
        return PlaceCallResult::Placed;
    }
    log(ErrorText(result) + " - lineMakeCall");
    return result == LINEERR_CALLUNAVAIL || result == LINEERR_INUSE ? PlaceCallResult::LineInUse
                                                                    : PlaceCallResult::Failed;
}

void TAPISubs::DropCall() {
    const auto result = provider_.lineDrop(callHandle_);
    if (result >= 0) dropAsked_ = true;
    log(result < 0 ? ErrorText(result) + " - lineDrop" : "Success! - lineDrop");
}

void TAPISubs::DeallocateCall() {
    const auto result = provider_.lineDeallocateCall(callHandle_);
    log(result != 0 ? ErrorText(result) + " - lineDeallocateCall"
                    : "Success! - lineDeallocateCall");
    callPlaced_ = false;
}

void TAPISubs::CloseLine() {
    const auto result = provider_.lineClose(lineHandle_);
    lineHandle_ = 0;
    lineOpen_ = false;
    log(result != 0 ? ErrorText(result) + " - lineClose" : "Success! - LineClose");
}

std::intptr_t TAPISubs::GetCommHandle() {
    std::intptr_t handle = 0;
    const auto result = provider_.lineGetID(lineHandle_, handle);
    if (result < 0) {
        log(ErrorText(result) + " - LineGetID");
        return 0;
    }
    log("CommLineID " + std::to_string(result) + " - LineGetID");
    return handle;
}

std::int32_t TAPISubs::tapiGetLocationInfo(std::string& countryCode) {
    std::string city;
    return provider_.tapiGetLocationInfo(countryCode, city);
}

std::int32_t TAPISubs::tapiGetLocationInfo(std::string& countryCode, std::string& cityCode) {
    return provider_.tapiGetLocationInfo(countryCode, cityCode);
}

std::int32_t TAPISubs::lineSetDevConfig(std::uint32_t device,
                                        const std::vector<std::uint8_t>& config) {
    return provider_.lineSetDevConfig(device, config, kDeviceClass);
}

std::int32_t TAPISubs::lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                            std::string& dialable) {
    return provider_.lineTranslateAddress(device, canonical, dialable);
}

std::int32_t TAPISubs::lineGetDevConfig(std::uint32_t device,
                                        std::vector<std::uint8_t>& varString) {
    return provider_.lineGetDevConfig(device, varString, kDeviceClass);
}

std::int32_t TAPISubs::lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                            const std::vector<std::uint8_t>& blockIn,
                                            std::vector<std::uint8_t>& varStringOut) {
    return provider_.lineConfigDialogEdit(device, owner, kDeviceClass, blockIn, varStringOut);
}

void TAPISubs::EditDialingLocation(std::uintptr_t ownerWindow) {
    const auto result = provider_.lineTranslateDialog(0, ownerWindow);
    if (result != 0) log(ErrorText(result) + " - lineTranslateDialog");
}

bool TAPISubs::ConfigureProvider(std::uintptr_t ownerWindow) {
    return provider_.lineConfigProvider(ownerWindow, 1) == 0;
}

void TAPISubs::LineCallback(std::uint32_t hDevice, std::uint32_t dwMessage,
                            std::uint32_t dwInstance, std::uint32_t dwParam1,
                            std::uint32_t dwParam2, std::uint32_t dwParam3) {
    const std::string parameters =
        "hDevice=" + std::to_string(hDevice) + ", dwMessage=" + std::to_string(dwMessage) +
        ", dwInstance=" + std::to_string(dwInstance) + ", dwParam1=" + std::to_string(dwParam1) +
        ", dwParam2=" + std::to_string(dwParam2) + ", dwParam3=" + std::to_string(dwParam3);
    if (dwMessage == LINE_CALLSTATE) {
        // A provider that knows why a call ended says so in dwParam2 (the internet line does).
        const bool why = dwParam1 == LINECALLSTATE_DISCONNECTED && dwParam2 != 0;
        log("Line CallState " + CallStateText(dwParam1, *strings) +
            (why ? ", " + DisconnectModeText(dwParam2, *strings) : std::string()));
        // An incoming call must not take the place of the call we placed.
        if (dwParam1 == LINECALLSTATE_OFFERING && !callPlaced_) callHandle_ = hDevice;
        if (dwParam1 == LINECALLSTATE_IDLE) idleSeen_ = true;
        if (setLblEvent) setLblEvent(std::to_string(dwParam1));
    } else if (dwMessage == LINE_CREATE) {
        // A line added while the program runs is listed from the next fill on.
        lineDeviceCount_ = std::max(lineDeviceCount_, dwParam1 + 1);
        log("Line #" + std::to_string(dwParam1) + " - " + TapiMessageText(dwMessage, *strings));
    } else if (dwMessage == LINE_REPLY) {
        log("LineReply " + TapiMessageText(dwMessage, *strings) +
            " ReqID: " + std::to_string(dwParam1));
    } else {
        log(TapiMessageText(dwMessage, *strings) + " " + parameters);
    }
}

}  // namespace parlane
