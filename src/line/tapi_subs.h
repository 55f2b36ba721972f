#pragma once
// TAPISubs: the program's one contact with the telephony service. Each procedure does one call,
// writes its outcome to the debug log, and hands a simple result back.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/strings.h"
#include "line/debug_log.h"
#include "line/tapi_text.h"
#include "line/telephony.h"
#include "ui/controls.h"

namespace parlane {

enum class PlaceCallResult { Placed = 0, Failed = -1, LineInUse = 1 };

class TAPISubs {
  public:
    TAPISubs(TapiProvider& provider, DebugLog& log) : provider_(provider), log_(log) {}

    // Writes the call state into the window's lblEvent (which dispatches on a change).
    std::function<void(const std::string& text)> setLblEvent;
    // The product's name, for lineInitialize.
    std::string appName = "Parlane";
    // The bank in use, for the log's words; the window points it at its own.
    const Strings* strings = &Strings::English();

    void InitTelephony();
    void ShutdownTelephony();
    void FillDeviceList(ListControl& list);
    // False when the device cannot be read; `caps.dwUsedSize` is 0 then.
    void GetLineCaps(std::uint32_t device, LineDevCaps& caps);
    // The device's capabilities, quietly (for the compose panel and the run's checks); false
    // when it cannot be read. A line that is gone still names itself in `caps.lineKey`.
    bool DescribeLine(std::uint32_t device, LineDevCaps& caps);
    // The first device that is a serial modem and can be read, -1 when there is none: the one
    // to propose where a modem must be proposed, never the simulated modem.
    int FirstModemRow();
    bool OpenLine(std::uint32_t device);
    PlaceCallResult PlaceCall(const std::string& address, std::uint32_t mediaMode);
    void DropCall();
    void DeallocateCall();
    void CloseLine();
    std::intptr_t GetCommHandle();
    std::int32_t tapiGetLocationInfo(std::string& countryCode);
    std::int32_t tapiGetLocationInfo(std::string& countryCode, std::string& cityCode);
    std::int32_t lineSetDevConfig(std::uint32_t device, const std::vector<std::uint8_t>& config);
    std::int32_t lineTranslateAddress(std::uint32_t device, const std::string& canonical,
                                      std::string& dialable);
    // The device block's two calls, class "comm/datamodem"; the callers log their results.
    std::int32_t lineGetDevConfig(std::uint32_t device, std::vector<std::uint8_t>& varString);
    std::int32_t lineConfigDialogEdit(std::uint32_t device, std::uintptr_t owner,
                                      const std::vector<std::uint8_t>& blockIn,
                                      std::vector<std::uint8_t>& varStringOut);
    // The dialling-location dialog; a failure is logged.
    void EditDialingLocation(std::uintptr_t ownerWindow);
    // The provider's own set-up dialog; true when it succeeded.
    bool ConfigureProvider(std::uintptr_t ownerWindow);

    void LineCallback(std::uint32_t hDevice, std::uint32_t dwMessage, std::uint32_t dwInstance,
                      std::uint32_t dwParam1, std::uint32_t dwParam2, std::uint32_t dwParam3);

    std::uint32_t LineDeviceCount() const { return lineDeviceCount_; }
    std::uint32_t CallHandle() const { return callHandle_; }
    // A call was placed and the provider has not yet said IDLE for it.
    bool CallPlaced() const { return callPlaced_ && !idleSeen_; }
    // lineDrop has been accepted for that call.
    bool DropAsked() const { return dropAsked_; }
    // Between OpenLine and CloseLine; the end of a call closes the line by itself.
    bool LineOpen() const { return lineOpen_; }
    DebugLog& debugLog() { return log_; }
    // A result's name for the log, "LINEERR_INUSE [8000000F]".
    std::string ErrorText(std::int32_t code) const { return TapiErrorText(code, *strings); }

  private:
    void log(const std::string& text) { log_.AppendLog(text); }

    TapiProvider& provider_;
    DebugLog& log_;
    std::uint32_t lineDeviceCount_ = 0;
    std::uint32_t negotiatedVersion_ = 0;
    std::uint32_t lineHandle_ = 0;
    std::uint32_t callHandle_ = 0;
    bool callPlaced_ = false;
    bool dropAsked_ = false;
    bool lineOpen_ = false;
    // Seen even when lblEvent ignores it (it already read "1": no state came during the dial).
    bool idleSeen_ = false;
};

}  // namespace parlane
