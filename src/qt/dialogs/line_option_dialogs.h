#pragma once
// The dialogues of the line options as Qt views over their models, and the calls that open
// them as blocking dialogues.

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>

#include "config/frm_dial.h"
#include "config/frm_modem.h"
#include "config/frm_modem_info.h"
#include "config/frm_originator.h"
#include "config/frm_timeout.h"
#include "qt/dialogs/field_dialog.h"

namespace parlane {

class frmMain;

// mnuRetries. True when a value was stored.
bool ShowDialDialog(QWidget* owner, frmMain& main);
// mnuTimeOut. True when a value was stored.
bool ShowTimeoutDialog(QWidget* owner, frmMain& main);
// mnuOriginatorID. True when it was closed with OK.
bool ShowOriginatorDialog(QWidget* owner, frmMain& main);
// The notice before the modem panel; the model asks for it only while the user wants it.
void ShowModemInfoDialog(QWidget* owner, frmMain& main);
// The choice of a loaded frmModem: frmMain::showModemDialog at start-up.
void ShowModemDialog(QWidget* owner, frmModem& model);

class DialDialog : public OneFieldDialog {
  public:
    DialDialog(QWidget* owner, frmMain& main);
    frmDial& model() { return model_; }

  private:
    frmDial model_;
};

class TimeoutDialog : public OneFieldDialog {
  public:
    TimeoutDialog(QWidget* owner, frmMain& main);
    frmTimeout& model() { return model_; }

  private:
    frmTimeout model_;
};

class OriginatorDialog : public OneFieldDialog {
  public:
    OriginatorDialog(QWidget* owner, frmMain& main);
    frmOriginator& model() { return model_; }

  private:
    frmOriginator model_;
};

class ModemInfoDialog : public QDialog {
  public:
    ModemInfoDialog(QWidget* owner, frmMain& main);
    frmModemInfo& model() { return model_; }

  private:
    frmModemInfo model_;
};

class ModemDialog : public QDialog {
  public:
    ModemDialog(QWidget* owner, frmModem& model);

  private:
    void okClicked();

    frmModem& model_;
    QComboBox* cboTapiDevice_ = nullptr;
};

}  // namespace parlane
