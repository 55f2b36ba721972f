#pragma once
// frmDial: how often a message is dialled and offered before it is given up.

#include <string>

#include "config/field_rules.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmDial {
  public:
    explicit frmDial(frmMain& main) : main_(main) {}

    void Form_Load();
    int txtDialAttempts_KeyPress(int keyAscii) const { return NumberFieldKey(keyAscii); }
    void txtDialAttempts_GotFocus() { SelectAll(txtDialAttempts); }
    // OK: stores a value of 1 or more in Settings/MaxDial and MaxDialAttempts.
    void cmdProvidersClose_Click();

    std::string Caption;
    Label Label1;
    TextBox txtDialAttempts;
    std::string focusedControl;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
