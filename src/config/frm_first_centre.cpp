#include "config/frm_first_centre.h"

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmFirstCentre::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmSmscEdit);
    lblInfo.Caption = main_.LoadResString(sid::FirstCentreInfo);
    cmdNewCentre.Caption = main_.LoadResString(sid::ButtonNewCentre);
    cmdDemoCentres.Caption = main_.LoadResString(sid::ButtonDemoCentres);
    cmdLater.Caption = main_.LoadResString(sid::ButtonLater);
}

}  // namespace parlane
