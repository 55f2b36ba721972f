#include "config/frm_dial.h"

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmDial::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmDial);
    Label1.Caption = main_.LoadResString(sid::LabelMaximumDiallingAttempts);
    txtDialAttempts.Text = main_.settings().Get(key::MaxDial);
}

void frmDial::cmdProvidersClose_Click() {
    const auto value = CheckedNumber(main_, txtDialAttempts.Text, 1, sid::MustEnterAtLeastOne);
    if (!value) {
        focusedControl = "txtDialAttempts";
        return;
    }
    main_.settings().Save(key::MaxDial, std::to_string(*value));
    main_.state.MaxDialAttempts = *value;
    unloaded = true;
}

}  // namespace parlane
