#pragma once
// frmOriginator: the originator address that UCP frames carry.

#include <string>

#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmOriginator {
  public:
    static constexpr std::size_t kMaxDigits = 16;

    explicit frmOriginator(frmMain& main) : main_(main) {}

    void Form_Load();
    // Digits and backspace; once the box holds 16 characters, only backspace.
    int txtID_KeyPress(int keyAscii) const;
    void txtID_GotFocus();
    // Text that did not come through the keys (pasted) is held to the same rule: its digits, up
    // to 16. A "/" would otherwise end up inside a UCP frame as a field separator.
    void txtID_Change();
    // OK: a non-empty field becomes the originator; an empty one leaves the old one in force.
    void cmdOK_Click();

    std::string Caption;
    Label Label1, Label2, Label3;
    TextBox txtID;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
