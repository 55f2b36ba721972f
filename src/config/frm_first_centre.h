#pragma once
// frmFirstCentre: shown once the main window is up while no centre can be dialled. It says so in
// plain words and offers to set up a centre, or to add the demonstration centres.

#include <string>

#include "exchange/exchange_controls.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmFirstCentre {
  public:
    enum class Choice { Later, NewCentre, DemoCentres };

    explicit frmFirstCentre(frmMain& main) : main_(main) {}

    void Form_Load();
    void cmdNewCentre_Click() { close(Choice::NewCentre); }
    void cmdDemoCentres_Click() { close(Choice::DemoCentres); }
    void cmdLater_Click() { close(Choice::Later); }

    Choice choice = Choice::Later;
    std::string Caption;
    Label lblInfo;
    ExchangeButton cmdNewCentre, cmdDemoCentres, cmdLater;
    bool unloaded = false;

  private:
    void close(Choice c) {
        choice = c;
        unloaded = true;
    }
    frmMain& main_;
};

}  // namespace parlane
