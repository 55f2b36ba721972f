#pragma once
// frmSplash: the logo, the version, and two pictures that open the support web page and mail.
// At start it shows while the main window loads; as the About window a click or a key closes it.

#include <QDialog>

namespace parlane {

class frmMain;
struct ProgramGlobals;

class SplashWindow : public QDialog {
  public:
    // `main` null: the start-up splash, whose links do nothing yet.
    SplashWindow(QWidget* owner, const ProgramGlobals& globals, frmMain* main);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

void ShowAboutWindow(QWidget* owner, frmMain& main);

}  // namespace parlane
