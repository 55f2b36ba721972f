#pragma once
// frmDebug as a Qt window owned by the main window, not blocking it: the telephony log on top,
// the bytes sent and received side by side beneath, in one fixed-pitch font and one width, so
// that a row of one pane stands beside the same row of the other.

#include <QDialog>
#include <QString>
#include <string>

class QLabel;
class QPlainTextEdit;
class QToolButton;

namespace parlane {

class CaretTextBox;
class frmDebug;

// A line pane's bytes as shown: one character for each byte, control bytes as their control
// pictures, so that every byte keeps its place beside the other pane's dots.
QString LinePaneText(const std::string& bytes);

class DebugWindow : public QDialog {
  public:
    DebugWindow(QWidget* owner, frmDebug& model);
    ~DebugWindow() override;
    // Shown or hidden as the model says, with its captions.
    void mirror();

  protected:
    void showEvent(QShowEvent* event) override;
    // The window's own close and Escape only hide it; the panes keep their text.
    void reject() override;

  private:
    // A line pane when `box` is given, else the log's pane.
    QPlainTextEdit* addPane(const char* name, QLabel*& caption, CaretTextBox* box = nullptr);
    void showLog();

    frmDebug& model_;
    QPlainTextEdit *Text1_ = nullptr, *ToServer_ = nullptr, *FromServer_ = nullptr;
    QLabel *lblText1_ = nullptr, *lblToServer_ = nullptr, *lblFromServer_ = nullptr;
    QToolButton *cmdExit_ = nullptr, *cmdSave_ = nullptr, *cmdSystem_ = nullptr;
};

}  // namespace parlane
