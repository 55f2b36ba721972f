#include "qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>

#include "core/program.h"
#include "core/string_ids.h"
#include "qt/artwork.h"
#include "qt/qt_text.h"

namespace parlane {

MainWindow::MainWindow(frmMain& form) : form_(form) {
    setObjectName("frmMain");
    buildMenus();
    buildFrames();
    wireCompose();
    wireLists();
    wireHooks();
    move(form_.MainLeft / kTwipsPerPixel, form_.MainTop / kTwipsPerPixel);
    form_.setObserver(this);
    controlsChanged();
}

std::string MainWindow::caption(int id) const {
    return form_.LoadResString(id);
}

// Every handler runs through here: the model knows where the window stands (Exit saves it),
// and a handler that unloaded the model closes the window.
void MainWindow::run(const std::function<void()>& handler) {
    if (form_.unloading()) return;
    syncPosition();
    handler();
    if (!form_.loaded()) {
        modelClosed();
        return;
    }
    controlsChanged();
}

// Twips survive unchanged unless the window really moved.
void MainWindow::syncPosition() {
    if (x() != form_.MainLeft / kTwipsPerPixel) form_.MainLeft = x() * kTwipsPerPixel;
    if (y() != form_.MainTop / kTwipsPerPixel) form_.MainTop = y() * kTwipsPerPixel;
    form_.minimised = isMinimized();
}

void MainWindow::busyChanged(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void MainWindow::statusChanged(const std::string& status) {
    lblInfo_->setText(ToQt(status));
    lblInfo_->repaint();
    if (onStatus) onStatus(status);
}

// The rows are rebuilt only when the model's rows differ from those last shown: the window
// is mirrored every second, and a directory may hold thousands of names.
void MainWindow::mirrorLists() {
    const auto changedRows = [this](QWidget* view, const ListControl& list) {
        auto& shown = shownRows_[view];
        if (shown == list.rows) return false;
        shown = list.rows;
        return true;
    };
    const auto rowsOf = [](const ListControl& list) {
        QStringList rows;
        rows.reserve(static_cast<qsizetype>(list.rows.size()));
        for (const auto& row : list.rows) rows << ToQt(row);
        return rows;
    };
    for (auto [box, list] : {std::pair{Services_, &form_.Services},
                             {Names_, &form_.Names},
                             {cmbGroupName_, &form_.cmbGroupName},
                             {Country_, &form_.Country}}) {
        if (changedRows(box, *list)) {
            box->clear();
            box->addItems(rowsOf(*list));
        }
        if (box->currentIndex() != list->ListIndex) box->setCurrentIndex(list->ListIndex);
    }
    if (Names_->currentText() != ToQt(form_.Names.Text))
        Names_->setEditText(ToQt(form_.Names.Text));
    // The country box says what it holds until one is picked; the narrow number fields have
    // their tips.
    Country_->setPlaceholderText(ToQt(form_.ToolTips["Country"]));
    if (form_.cmbGroupName.ListIndex < 0)
        cmbGroupName_->setPlaceholderText(ToQt(form_.cmbGroupName.Text));

    for (auto [view, list] :
         {std::pair{MessageQueue_, &form_.MessageQueue}, {lstGroup_, &form_.lstGroup}}) {
        if (changedRows(view, *list)) {
            view->clear();
            view->addItems(rowsOf(*list));
        }
        if (view->currentRow() != list->ListIndex) view->setCurrentRow(list->ListIndex);
    }
}

// While a call is up the picture runs through its four frames and "Online" shows; otherwise the
// logo rests there.
void MainWindow::mirrorOnline() {
    const bool online = form_.state.CallActive;
    lblOnline_->setVisible(online);
    const QString picture =
        online ? QString(kOnlineArtwork[static_cast<std::size_t>(form_.onlineFrame % 4)])
               : ToQt(LogoArtwork(form_.globals(), true));
    // Drawn only when it changes: the window is mirrored at every byte a centre sends.
    if (picture == shownPicture_) return;
    shownPicture_ = picture;
    Picture1_->setPixmap(ArtworkIcon(picture).pixmap(online ? QSize(24, 24) : QSize(72, 24)));
}

void MainWindow::controlsChanged() {
    refreshing_ = true;
    setWindowTitle(ToQt(form_.Caption));
    const auto caption = [this](const char* control) { return ToQt(form_.Captions[control]); };
    fraLogo_->setTitle(caption("fraLogo"));
    fraMobile_->setTitle(caption("fraMobile"));
    fraDirectory_->setTitle(caption("fraDirectory"));
    fraGroup_->setTitle(caption("fraGroup"));
    fraQueue_->setTitle(caption("fraQueue"));
    lblmLable_->setText(caption("lblmLable"));
    lblOnline_->setText(caption("lblOnline"));
    // Under the central widget only: the standard-texts window has icons of the same names.
    for (const auto& [control, tip] : form_.ToolTips)
        if (auto* w = centralWidget()->findChild<QWidget*>(QString::fromStdString(control))) {
            w->setToolTip(ToQt(tip));
            w->setWhatsThis(ToQt(tip));  // What's This mode names the control
        }

    const auto setLine = [](QLineEdit* edit, const TextBox& box) {
        if (edit->text() != ToQt(box.Text)) edit->setText(ToQt(box.Text));
    };
    setLine(txtCountryCode_, form_.txtCountryCode);
    setLine(txtAreaCode_, form_.txtAreaCode);
    setLine(txtNumber_, form_.txtNumber);
    if (txtMessage_->toPlainText() != ToQt(form_.txtMessage.Text)) {
        txtMessage_->setPlainText(ToQt(form_.txtMessage.Text));
        txtMessage_->moveCursor(QTextCursor::End);
    }
    txtMessageQueue_->setPlainText(ToQt(form_.txtMessageQueue.Text));
    lblTextCounter_->setText(ToQt(form_.lblTextCounter.Caption));
    lblTotal_->setText(ToQt(form_.lblTotal.Caption));
    lblLine_->setText(ToQt(form_.lblLine.Caption));
    lblLine_->setToolTip(lblLine_->text());
    mirrorLists();
    mirrorMenus();
    for (int i = 0; i < toolbar_->iconCount(); ++i)
        toolbar_->setIconEnabled(i, form_.picToolIconsEnabled[static_cast<std::size_t>(i)]);
    lblInfo_->setText(ToQt(form_.lblInfo.Caption));
    mirrorOnline();
    progBar_->setVisible(form_.progress.Visible);
    progBar_->setValue(form_.progress.Value);
    applyLayout();

    mirrorNoResponse();
    const QString focus = QString::fromStdString(form_.focusedControl);
    if (!focus.isEmpty()) {
        if (auto* w = findChild<QWidget*>(focus)) w->setFocus();
        form_.focusedControl.clear();
    }
    refreshing_ = false;
}

// The prompt stays up while the run goes on underneath; the model decides when it goes away.
void MainWindow::mirrorNoResponse() {
    const auto& prompt = form_.frmNoResponse;
    if (prompt.Visible && !frmNoResponse_) {
        frmNoResponse_ = new QMessageBox(
            QMessageBox::Question, ToQt(caption(sid::TitleFrmNoResponse)),
            ToQt(prompt.Label1 + "\n" + prompt.Label2), QMessageBox::Yes | QMessageBox::No, this);
        frmNoResponse_->setObjectName("frmNoResponse");
        frmNoResponse_->button(QMessageBox::Yes)->setText(ToQt(caption(sid::ButtonYes)));
        frmNoResponse_->button(QMessageBox::No)->setText(ToQt(caption(sid::ButtonNo)));
        frmNoResponse_->setAttribute(Qt::WA_DeleteOnClose);
        connect(frmNoResponse_, &QMessageBox::finished, this, [this](int result) {
            if (!form_.frmNoResponse.Visible) return;
            if (result == QMessageBox::Yes)
                form_.cmdYes_Click();
            else
                form_.cmdNo_Click();
        });
        frmNoResponse_->open();
    } else if (!prompt.Visible && frmNoResponse_) {
        frmNoResponse_->close();
    }
}

void MainWindow::modelClosed() {
    if (closed_) return;
    closed_ = true;
    form_.setObserver(nullptr);
    close();
    if (onClosed) onClosed();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!closed_) {
        closed_ = true;
        syncPosition();
        form_.mnuExit_Click();
        form_.setObserver(nullptr);
        if (onClosed) onClosed();
    }
    event->accept();
}

}  // namespace parlane
