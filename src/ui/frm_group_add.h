#pragma once
// frmGroupAdd: the name of a new broadcast group. Save adds it through the main window, which
// writes the group list and selects the new group.

#include <string>

#include "exchange/exchange_controls.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmGroupAdd {
  public:
    explicit frmGroupAdd(frmMain& main) : main_(main) {}

    void Form_Load();
    void cmdProviderItemOk_Click();
    void cmdProviderItemCancel_Click();

    // The group just added; empty after Cancel.
    std::string NewGroupName;

    // ----- Controls -----
    std::string Caption;
    TextBox txtName;
    ExchangeButton cmdProviderItemOk, cmdProviderItemCancel;
    std::string focusedControl;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
