#pragma once
// The standard-texts window: a small tool window owned by the main window, a view over
// frmToolWindow.

#include <QIcon>
#include <QWidget>
#include <array>
#include <vector>

#include "ui/frm_tool_window.h"

class QAction;
class QMenu;
class QToolButton;

namespace parlane {

class ToolWindow : public QWidget {
  public:
    ToolWindow(QWidget* mainWindow, frmMain& main);
    // The nine pictures, in icon order; until then the buttons show their tips as text.
    void setIcons(const std::vector<QIcon>& icons);
    frmToolWindow& model() { return model_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void mirror();
    void iconClicked(int index);
    void run(void (frmToolWindow::*handler)());

    frmToolWindow model_;
    std::array<QToolButton*, frmToolWindow::kIcons> picToolIcons_{};
    QMenu* mnuEdit_ = nullptr;
    QAction* mnuSig_ = nullptr;
    std::array<QAction*, frmToolWindow::kNotes> mnuNote_{};
};

}  // namespace parlane
