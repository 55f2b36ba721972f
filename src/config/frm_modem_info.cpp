#include "config/frm_modem_info.h"

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

bool frmModemInfo::Wanted(const Settings& settings) {
    const auto tip = settings.GetInt(key::ModemTip);
    return !(tip && *tip == 1);
}

void frmModemInfo::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmModemInfo);
    lblInfo.Caption = main_.LoadResString(sid::ModemInfoConfigureDefaults) + "\r\n\r\n" +
                      main_.LoadResString(sid::ModemInfoSameAsControlPanel) + "\r\n\r\n" +
                      main_.LoadResString(sid::ModemInfoModemPerCentre) + "\r\n\r\n" +
                      main_.LoadResString(sid::ModemInfoNotThePlace);
    chkShowModemInfo.Caption = main_.LoadResString(sid::CheckDoNotDisplayAgain);
    chkShowModemInfo.Value = !Wanted(main_.settings());
}

void frmModemInfo::chkShowModemInfo_Click() {
    main_.settings().Save(key::ModemTip, chkShowModemInfo.Value ? "1" : "0");
}

}  // namespace parlane
