#pragma once
// frmTimeout: the seconds without an answer from the centre before the user is asked.

#include <string>

#include "config/field_rules.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmTimeout {
  public:
    explicit frmTimeout(frmMain& main) : main_(main) {}

    void Form_Load();
    int txtResponseSecs_KeyPress(int keyAscii) const { return NumberFieldKey(keyAscii); }
    void txtResponseSecs_GotFocus() { SelectAll(txtResponseSecs); }
    // OK: stores a value of 30 or more in Settings/Timeout and ResponseTimeoutSecs.
    void cmdOK_Click();

    std::string Caption;
    Label Label1;
    TextBox txtResponseSecs;
    std::string focusedControl;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
