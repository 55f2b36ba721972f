#pragma once
// Tells the desktop how a run ended when nobody watches the window (minimised, hidden or not the
// active one: a run from the command line or the bus, or one left to itself), through the
// freedesktop notification service on the session bus. Settings/Notify = 0 turns it off.

#include <QWidget>
#include <string>

#include "ui/frm_main.h"

namespace parlane {

class DesktopNotifier {
  public:
    DesktopNotifier(frmMain& form, QWidget& window);
    // "2 sent, 1 not sent", with the simulated mark when a call was on the simulated modem.
    static std::string Summary(const frmMain::RunTally& tally, const Strings& strings);

  private:
    void runEnded(const frmMain::RunTally& tally);

    frmMain& form_;
    QWidget& window_;
};

}  // namespace parlane
