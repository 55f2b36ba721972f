#pragma once
// The main window: a Qt view over frmMain. It mirrors the model's fields, places the frames
// where the model's layout says, builds its menus from the model's menu tree, and hands every
// user action to the model's handler of the same name.

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMap>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QToolButton>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "qt/dialogs/debug_window.h"
#include "qt/dialogs/tool_window.h"
#include "qt/qt_file_choosers.h"
#include "qt/toolbar_widget.h"
#include "ui/frm_main.h"

namespace parlane {

class MainWindow : public QMainWindow, public FormObserver {
  public:
    explicit MainWindow(frmMain& form);
    void statusChanged(const std::string& status) override;
    void controlsChanged() override;
    void busyChanged(bool busy) override;
    // The model has unloaded itself: close without running its handlers again.
    void modelClosed();
    // Called once the model's close handlers have run.
    std::function<void()> onClosed;
    // Each status line as it is shown.
    std::function<void(const std::string&)> onStatus;

    // Twips to pixels and back, at 96 dots per inch.
    static constexpr int kTwipsPerPixel = 15;
    QAction* action(const char* name) const { return actions_.value(name); }
    // Runs a handler of the model, then mirrors what it changed.
    void run(const std::function<void()>& handler);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildMenus();
    void buildToolbar();
    void buildFrames();
    void buildCompose();
    void buildMobile();
    void buildGroup();
    void buildQueue();
    void buildStatus();
    void applyLayout();
    void syncPosition();
    void mirrorMenus();
    void mirrorLists();
    void mirrorNoResponse();
    void mirrorOnline();
    QLineEdit* addNumberField(QWidget* parent, const char* name, TextBox& box);
    void wireCompose();
    void wireLists();
    void wireHooks();
    void showForm(const std::string& form);
    void showToolWindow(bool show);
    void showContextMenu(const char* menu, QWidget* over, const QPoint& at);
    // The message text changed: counter and the Insert command follow at once.
    void messageEdited();
    // The model changed the text of Names: show it without completing again.
    void namesTextChanged();
    std::string caption(int id) const;

    frmMain& form_;
    bool refreshing_ = false;
    bool closed_ = false;
    QMap<QString, QAction*> actions_;
    QMap<QString, QMenu*> menus_;
    ToolbarWidget* toolbar_ = nullptr;
    QPointer<ToolWindow> toolWindow_;
    QPointer<DebugWindow> debugWindow_;
    QtOpenFileChooser fileChooser_;
    MainLayout shownLayout_;
    std::map<QWidget*, std::vector<std::string>> shownRows_;
    QString shownPicture_;  // the artwork Picture1_ shows
    QGroupBox *fraLogo_ = nullptr, *fraMobile_ = nullptr, *fraDirectory_ = nullptr,
              *fraGroup_ = nullptr, *fraQueue_ = nullptr;
    QLineEdit *txtCountryCode_ = nullptr, *txtAreaCode_ = nullptr, *txtNumber_ = nullptr;
    QPlainTextEdit* txtMessage_ = nullptr;
    QPlainTextEdit* txtMessageQueue_ = nullptr;
    QComboBox *Services_ = nullptr, *Names_ = nullptr, *Country_ = nullptr,
              *cmbGroupName_ = nullptr;
    QListWidget *MessageQueue_ = nullptr, *lstGroup_ = nullptr;
    QLabel *lblInfo_ = nullptr, *lblOnline_ = nullptr, *Picture1_ = nullptr, *lblmLable_ = nullptr,
           *lblTextCounter_ = nullptr, *lblTotal_ = nullptr, *lblLine_ = nullptr;
    QPointer<QMessageBox> frmNoResponse_;
    QProgressBar* progBar_ = nullptr;
};

}  // namespace parlane
