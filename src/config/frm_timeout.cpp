#include "config/frm_timeout.h"

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmTimeout::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmTimeout);
    Label1.Caption = main_.LoadResString(sid::LabelSecondsToWait);
    txtResponseSecs.Text = main_.settings().Get(key::Timeout);
}

void frmTimeout::cmdOK_Click() {
    const auto value = CheckedNumber(main_, txtResponseSecs.Text, 30, sid::MustEnterAtLeast30);
    if (!value) {
        focusedControl = "txtResponseSecs";
        return;
    }
    main_.settings().Save(key::Timeout, std::to_string(*value));
    main_.ResponseTimeoutSecs = *value;
    unloaded = true;
}

}  // namespace parlane
