#pragma once
// The main window: a Qt view over frmMain. It mirrors the model's fields and hands every user
// action to the model's handler of the same name.

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <functional>

#include "ui/frm_main.h"

namespace parlane {

class MainWindow : public QMainWindow, public FormObserver {
  public:
    explicit MainWindow(frmMain& form);
    void statusChanged(const std::string& status) override;
    void controlsChanged() override;
    // The model has unloaded itself: close without running its handlers again.
    void modelClosed();
    // Called once the model's close handlers have run.
    std::function<void()> onClosed;
    // Each status line as it is shown.
    std::function<void(const std::string&)> onStatus;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildMenus();
    void buildPanels();
    void mirrorNoResponse();
    QLineEdit* addLine(const char* name, TextBox& box);
    void run(void (frmMain::*handler)());
    std::string caption(int id) const;

    frmMain& form_;
    bool refreshing_ = false;
    bool closed_ = false;
    QLineEdit *txtCountryCode_ = nullptr, *txtAreaCode_ = nullptr, *txtNumber_ = nullptr;
    QPlainTextEdit* txtMessage_ = nullptr;
    QPlainTextEdit* txtMessageQueue_ = nullptr;
    QComboBox *Services_ = nullptr, *Names_ = nullptr;
    QListWidget* MessageQueue_ = nullptr;
    QGroupBox* fraQueue_ = nullptr;
    QLabel *lblInfo_ = nullptr, *lblTotal_ = nullptr, *lblOnline_ = nullptr;
    QPointer<QMessageBox> frmNoResponse_;
    QAction *mnuQueue_ = nullptr, *mnuSend_ = nullptr, *mnuSendSingle_ = nullptr,
            *mnuHangUp_ = nullptr, *mnuViewQueue_ = nullptr;
};

}  // namespace parlane
