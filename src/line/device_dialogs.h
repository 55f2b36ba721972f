#pragma once
// The dialogs a modem provider shows: its settings (lineConfigDialogEdit), the dialling location
// (lineTranslateDialog) and the serial ports (lineConfigProvider). Each edits a form model and
// returns true on OK, after the form's own Check has passed; false is cancel.

#include <cstdint>
#include <vector>

#include "core/settings_store.h"
#include "line/at/location_form.h"
#include "line/at/modem_settings_form.h"
#include "line/at/ports_form.h"

namespace parlane {

class DeviceDialogs {
  public:
    virtual ~DeviceDialogs() = default;
    virtual bool EditModemSettings(ModemSettingsForm& form) = 0;
    virtual bool EditDiallingLocation(LocationForm& form) = 0;
    virtual bool EditSerialPorts(PortsForm& form) = 0;
};

// No screen to show a dialog on: every dialog is cancelled.
class NoDeviceDialogs : public DeviceDialogs {
  public:
    bool EditModemSettings(ModemSettingsForm&) override { return false; }
    bool EditDiallingLocation(LocationForm&) override { return false; }
    bool EditSerialPorts(PortsForm&) override { return false; }
};

// lineConfigDialogEdit for a modem whose settings are `current`: a block that is not one of
// ours (empty, damaged, another device's) opens the dialog on the current settings. Null
// dialogs count as cancel.
std::int32_t EditModemBlock(DeviceDialogs* dialogs, const ModemConfig& current,
                            const std::vector<std::uint8_t>& blockIn,
                            std::vector<std::uint8_t>& varStringOut);

// lineTranslateDialog: true on OK, when `location` holds the new place and, given settings, it
// is saved there.
bool EditLocation(DeviceDialogs* dialogs, Settings* settings, DiallingLocation& location);

}  // namespace parlane
