#pragma once
// frmModemInfo: what the modem panel is for, shown before it until the user declines it.

#include <string>

#include "ui/controls.h"

namespace parlane {

class frmMain;
class Settings;

class frmModemInfo {
  public:
    explicit frmModemInfo(frmMain& main) : main_(main) {}

    // False once the user ticked "Do Not Display This Message Again" (Options/ModemTip is 1).
    static bool Wanted(const Settings& settings);

    void Form_Load();
    // The view has set chkShowModemInfo.Value; every click stores it.
    void chkShowModemInfo_Click();
    void cmdOK_Click() { unloaded = true; }

    std::string Caption;
    Label lblInfo;
    CheckBox chkShowModemInfo;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
