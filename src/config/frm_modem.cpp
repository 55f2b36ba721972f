#include "config/frm_modem.h"

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmModem::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmModem);
    Label1.Caption = main_.LoadResString(sid::PleaseSelectModem);
    Label2.Caption = main_.LoadResString(sid::LabelModem);
    main_.tapi.FillDeviceList(cboTapiDevice);
    // Only a serial modem is proposed; the simulated modem and the internet line must be picked.
    cboTapiDevice.select(main_.tapi.FirstModemRow());
    if (cboTapiDevice.ListCount() == 0) {
        main_.ShowMessageBox(main_.LoadResString(sid::NoModemsInstalled) + "\r\n\r\n" +
                                 main_.LoadResString(sid::PleaseInstallModem),
                             MbCritical);
        unloaded = true;
    }
}

void frmModem::cmdProviderItemOk_Click() {
    if (cboTapiDevice.Text.empty() ||
        cboTapiDevice.Text == main_.LoadResString(sid::NotAvailable)) {
        main_.ShowMessageBox(main_.LoadResString(sid::SelectModemToUse), MbInformation);
        focusedControl = "cboTapiDevice";
        return;
    }
    BusyCursor busy(main_);
    DefModem(main_.Providers, cboTapiDevice.ListIndex);
    main_.SaveProviders();
    auto& settings = main_.settings();
    settings.Save(key::FirstRunModem, "4");
    settings.Save(key::ModemIndex, std::to_string(cboTapiDevice.ListIndex));
    settings.Save(key::ModemName, cboTapiDevice.Text);
    unloaded = true;
}

}  // namespace parlane
