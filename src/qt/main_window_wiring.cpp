// The main window's events handed to the model: the compose panel's keys and changes, the lists
// and their context menus, and the windows the model asks for.
#include <QApplication>
#include <QDesktopServices>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QUrl>
#include <QWhatsThis>

#include "core/string_ids.h"
#include "qt/artwork.h"
#include "qt/dialogs/archive_windows.h"
#include "qt/dialogs/centre_dialog.h"
#include "qt/dialogs/debug_window.h"
#include "qt/dialogs/directory_dialogs.h"
#include "qt/dialogs/exchange_dialogs.h"
#include "qt/dialogs/line_option_dialogs.h"
#include "qt/dialogs/splash_window.h"
#include "qt/key_rule.h"
#include "qt/main_window.h"
#include "qt/qt_text.h"

namespace parlane {

void MainWindow::wireCompose() {
    QLineEdit* names = Names_->lineEdit();
    names->installEventFilter(this);
    Names_->installEventFilter(this);
    connect(names, &QLineEdit::textEdited, this, [this, names](const QString& text) {
        if (refreshing_) return;
        form_.Names.Text = FromQt(text);
        form_.Names.SelStart = names->cursorPosition();
        form_.Names.SelLength = 0;
        form_.Names_Change();
        namesTextChanged();
    });
    connect(Names_, &QComboBox::activated, this, [this](int index) {
        run([this, index] {
            form_.Names.select(index);
            form_.Names_Click();
        });
    });

    new KeyRule(Country_, [this](int key) { return form_.Country_KeyPress(key); });
    connect(Country_, &QComboBox::activated, this, [this](int index) {
        run([this, index] {
            form_.Country.select(index);
            form_.Country_Click();
        });
    });
    new KeyRule(Services_, [this](int key) { return form_.Services_KeyPress(key); });
    connect(Services_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (refreshing_ || index < 0) return;
        run([this, index] {
            form_.Services.select(index);
            form_.Services_Click();
        });
    });

    new KeyRule(txtMessage_, [this](int key) { return form_.txtMessage_KeyPress(key); });
    connect(txtMessage_, &QPlainTextEdit::textChanged, this, [this] {
        if (refreshing_) return;
        form_.txtMessage.Text = FromQt(txtMessage_->toPlainText());
        messageEdited();
    });
    new KeyRule(txtMessageQueue_, [this](int key) { return form_.txtMessageQueue_KeyPress(key); });

    // The order a user fills the panel in: who, then what, then through which centre.
    QWidget* order[] = {Names_,     Country_,      txtCountryCode_, txtAreaCode_,
                        txtNumber_, txtMessage_,   Services_,       cmbGroupName_,
                        lstGroup_,  MessageQueue_, txtMessageQueue_};
    for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

void MainWindow::messageEdited() {
    form_.txtMessage_Change();
    lblTextCounter_->setText(ToQt(form_.lblTextCounter.Caption));
    action("mnuInsert")->setEnabled(form_.mnuInsert.Enabled);
}

void MainWindow::namesTextChanged() {
    const bool was = refreshing_;
    refreshing_ = true;
    QLineEdit* names = Names_->lineEdit();
    if (names->text() != ToQt(form_.Names.Text)) names->setText(ToQt(form_.Names.Text));
    if (form_.Names.SelLength > 0) names->setSelection(form_.Names.SelStart, form_.Names.SelLength);
    refreshing_ = was;
}

void MainWindow::wireLists() {
    new KeyRule(cmbGroupName_, [](int) { return 0; });  // the group box takes no typing
    connect(cmbGroupName_, &QComboBox::activated, this, [this](int index) {
        run([this, index] {
            form_.cmbGroupName.select(index);
            form_.cmbGroupName_Click();
        });
    });
    connect(lstGroup_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!refreshing_) form_.lstGroup.ListIndex = row;
    });
    connect(lstGroup_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        form_.lstGroup_MouseUp();
        showContextMenu("mnuPopUp2", lstGroup_, at);
    });
    connect(MessageQueue_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (refreshing_ || row < 0) return;
        run([this, row] {
            form_.MessageQueue.ListIndex = row;
            form_.MessageQueue_Click();
        });
    });
    connect(MessageQueue_, &QListWidget::itemDoubleClicked, this,
            [this] { run([this] { form_.MessageQueue_DblClick(); }); });
    connect(MessageQueue_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        form_.MessageQueue_MouseUp();
        showContextMenu("mnuPopUp", MessageQueue_, at);
    });
}

void MainWindow::showContextMenu(const char* menu, QWidget* over, const QPoint& at) {
    controlsChanged();
    if (QMenu* popup = menus_.value(menu)) popup->exec(over->mapToGlobal(at));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (Names_ && (watched == Names_->lineEdit() || watched == Names_)) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Delete) form_.Names_KeyDown(46);
            if (key == Qt::Key_Backspace) form_.Names_KeyDown(8);
        } else if (event->type() == QEvent::FocusOut && !refreshing_ &&
                   static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
            run([this] { form_.Names_LostFocus(); });
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::showToolWindow(bool show) {
    delete toolWindow_;  // a new one loads its texts afresh
    if (!show) return;
    toolWindow_ = new ToolWindow(this, form_);
    std::vector<QIcon> icons;
    for (const char* name : kStandardTextArtwork) icons.push_back(ArtworkIcon(name));
    toolWindow_->setIcons(icons);
    toolWindow_->show();
}

// The windows the model asks for by name.
void MainWindow::showForm(const std::string& form) {
    if (form == "frmToolWindow") {
        if (isVisible()) showToolWindow(true);
    } else if (form == "frmDial") {
        ShowDialDialog(this, form_);
    } else if (form == "frmTimeout") {
        ShowTimeoutDialog(this, form_);
    } else if (form == "frmOriginator") {
        ShowOriginatorDialog(this, form_);
    } else if (form == "frmModemInfo") {
        ShowModemInfoDialog(this, form_);
    } else if (form == "frmSplash") {
        ShowAboutWindow(this, form_);
    } else if (form == "frmImport") {
        ShowImportDialog(this, form_);
    } else if (form == "frmBackup") {
        ShowBackupDialog(this, form_);
    } else if (form == "frmRestore") {
        ShowRestoreDialog(this, form_);
    } else if (form == "frmFolders") {
        ShowFoldersWindow(this, form_);
    } else if (form == "frmSMSCEdit") {
        if (form_.SMSCEditForm) ShowCentreEditDialog(this, *form_.SMSCEditForm);
    } else if (form == "frmFirstCentre") {
        if (form_.FirstCentreForm) ShowFirstCentreDialog(this, *form_.FirstCentreForm);
    } else if (form == "frmDebug") {
        // Made once and kept: it follows the line panes from then on, shown or hidden.
        if (!debugWindow_) debugWindow_ = new DebugWindow(this, form_.DebugForm);
        form_.DebugForm.Show();
    }
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The standard texts stand beside the window, so they come once it is placed.
    if (form_.mnuTools.Checked && !toolWindow_) showToolWindow(true);
}

void MainWindow::wireHooks() {
    form_.showForm = [this](const std::string& form) { showForm(form); };
    form_.unloadForm = [this](const std::string& form) {
        if (form == "frmToolWindow") showToolWindow(false);
    };
    form_.showDirectoryAdd = [this](frmDirectoryAdd& d) { ShowDirectoryAddDialog(this, d); };
    form_.showGroupAdd = [this](frmGroupAdd& d) { ShowGroupAddDialog(this, d); };
    form_.DebugForm.startProgram = [](const std::filesystem::path& program) {
        return QProcess::startDetached(PathToQt(program), {});
    };
    form_.showModemDialog = [this](frmModem& m) { ShowModemDialog(this, m); };
    form_.enterWhatsThis = [] { QWhatsThis::enterWhatsThisMode(); };
    form_.openDocument = [this](const std::string& target, std::string& error) {
        const QString text = ToQt(target);
        const QUrl url = text.contains("://") || text.startsWith("mailto:")
                             ? QUrl(text)
                             : QUrl::fromLocalFile(text);
        if (QDesktopServices::openUrl(url)) return true;
        error = form_.LoadResString(sid::NoProgramOpens) + " " + FromQt(url.toString());
        return false;
    };
    // Chosen at start, in the language in use then.
    form_.HelpFile = FromQt(ManualUrl(form_.globals().strings.LanguageOffset).toString());
    fileChooser_.setOwner(this);
    form_.openFileChooser = &fileChooser_;
}

}  // namespace parlane
