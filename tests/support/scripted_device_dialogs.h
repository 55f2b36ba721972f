#pragma once
// Device dialogs whose user the test plays: each dialog runs the test's edit on its form, then
// presses OK as a view does (the form's Check, its messages going to `host`) or cancels.

#include <functional>

#include "core/strings.h"
#include "line/device_dialogs.h"
#include "support/test_platform.h"

namespace parlane::testing {

class ScriptedDeviceDialogs : public DeviceDialogs {
  public:
    bool EditModemSettings(ModemSettingsForm& form) override { return run(form, onModem); }
    bool EditDiallingLocation(LocationForm& form) override { return run(form, onLocation); }
    bool EditSerialPorts(PortsForm& form) override { return run(form, onPorts); }
    bool EditTcpSettings(TcpSettingsForm& form) override { return run(form, onTcp); }

    std::function<void(ModemSettingsForm&)> onModem;
    std::function<void(LocationForm&)> onLocation;
    std::function<void(PortsForm&)> onPorts;
    std::function<void(TcpSettingsForm&)> onTcp;
    bool pressOk = true;
    int shown = 0;
    ScriptedDialogues host;
    Strings strings;

  private:
    template <class Form>
    bool run(Form& form, const std::function<void(Form&)>& edit) {
        ++shown;
        if (edit) edit(form);
        return pressOk && form.Check(host, strings);
    }
};

}  // namespace parlane::testing
