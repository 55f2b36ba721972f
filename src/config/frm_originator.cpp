#include "config/frm_originator.h"

#include "config/field_rules.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmOriginator::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmOriginator);
    Label1.Caption = main_.LoadResString(sid::OriginatorExplained);
    Label2.Caption = main_.LoadResString(sid::OriginatorAreaCodeNote);
    Label3.Caption = main_.LoadResString(sid::OriginatorMaxDigits);
    txtID.Text = main_.settings().Get(key::Originator);
}

int frmOriginator::txtID_KeyPress(int keyAscii) const {
    if (keyAscii == KeyBackspace) return keyAscii;
    if (txtID.Text.size() >= kMaxDigits) return 0;
    return IsDigitKey(keyAscii) ? keyAscii : 0;
}

void frmOriginator::txtID_GotFocus() {
    SelectAll(txtID);
}

void frmOriginator::txtID_Change() {
    std::string digits;
    for (char c : txtID.Text)
        if (IsDigitKey(static_cast<unsigned char>(c)) && digits.size() < kMaxDigits) digits += c;
    if (digits == txtID.Text) return;
    txtID.Text = std::move(digits);
    txtID.SelStart = static_cast<int>(txtID.Text.size());
    txtID.SelLength = 0;
}

void frmOriginator::cmdOK_Click() {
    if (!txtID.Text.empty()) {
        main_.settings().Save(key::Originator, txtID.Text);
        main_.state.OriginatorId = txtID.Text;
    }
    unloaded = true;
}

}  // namespace parlane
