#pragma once
// frmModem: the choice of the default modem, at first start and from its menu command.

#include <string>

#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmModem {
  public:
    explicit frmModem(frmMain& main) : main_(main) {}

    // Fills the device list and proposes the first serial modem, or nothing.
    void Form_Load();
    // Makes the chosen device every centre's modem and remembers the choice.
    void cmdProviderItemOk_Click();

    std::string Caption;
    Label Label1, Label2;
    ListControl cboTapiDevice;
    std::string focusedControl;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
