#pragma once
// The modem-settings, dialling-location and serial-ports dialogs: a form layout of line edits
// over a FieldForm, OK and Cancel. The edits take only the keys the form lets through; OK runs
// the form's Check and stays open on the field it names. With no screen (the offscreen
// platform) every dialog is cancelled.

#include <QDialog>
#include <memory>

#include "core/dialogue_host.h"
#include "core/strings.h"
#include "line/device_dialogs.h"

namespace parlane {

// The dialog over `form`, not yet shown; its objectName is `name`.
std::unique_ptr<QDialog> MakeFieldDialog(FieldForm& form, DialogueHost& host,
                                         const Strings& strings, QWidget* owner, const char* name);

class QtDeviceDialogs : public DeviceDialogs {
  public:
    QtDeviceDialogs(DialogueHost& host, const Strings& strings) : host_(host), strings_(strings) {}
    void setOwner(QWidget* owner) { owner_ = owner; }

    bool EditModemSettings(ModemSettingsForm& form) override;
    bool EditDiallingLocation(LocationForm& form) override;
    bool EditSerialPorts(PortsForm& form) override;
    bool EditTcpSettings(TcpSettingsForm& form) override;

  private:
    bool run(FieldForm& form, const char* name);

    DialogueHost& host_;
    const Strings& strings_;
    QWidget* owner_ = nullptr;
};

}  // namespace parlane
