#include "ui/frm_group_add.h"

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmGroupAdd::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmGroupAdd);
    cmdProviderItemOk.Caption = main_.LoadResString(sid::ButtonSave);
    cmdProviderItemCancel.Caption = main_.LoadResString(sid::ButtonCancel);
    focusedControl = "txtName";
}

void frmGroupAdd::cmdProviderItemOk_Click() {
    // AddGroup tells the user why a name is refused.
    if (!main_.AddGroup(txtName.Text)) {
        txtName.Text.clear();
        focusedControl = "txtName";
        return;
    }
    NewGroupName = txtName.Text;
    unloaded = true;
}

void frmGroupAdd::cmdProviderItemCancel_Click() {
    NewGroupName.clear();
    unloaded = true;
}

}  // namespace parlane
