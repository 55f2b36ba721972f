#include "qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/string_ids.h"
#include "qt/qt_text.h"

namespace parlane {
namespace {
constexpr int kTwipsPerPixel = 15;
}

MainWindow::MainWindow(frmMain& form) : form_(form) {
    setObjectName("frmMain");
    buildMenus();
    buildPanels();
    move(form_.MainLeft / kTwipsPerPixel, form_.MainTop / kTwipsPerPixel);
    form_.setObserver(this);
    controlsChanged();
}

std::string MainWindow::caption(int id) const {
    return form_.LoadResString(id);
}

void MainWindow::run(void (frmMain::*handler)()) {
    (form_.*handler)();
    controlsChanged();
}

void MainWindow::buildMenus() {
    auto* file = menuBar()->addMenu(ToQt(caption(sid::MenuFile)));
    file->setObjectName("mnuFile");
    const auto add = [&](QMenu* menu, const char* name, int id, void (frmMain::*handler)(),
                         QKeySequence key = {}) {
        auto* action = menu->addAction(ToQt(caption(id)));
        action->setObjectName(name);
        if (!key.isEmpty()) action->setShortcut(key);
        connect(action, &QAction::triggered, this, [this, handler] { run(handler); });
        return action;
    };
    mnuQueue_ =
        add(file, "mnuQueue", sid::MenuQueue, &frmMain::mnuQueue_Click, QKeySequence("Ctrl+Q"));
    file->addSeparator();
    mnuSend_ = add(file, "mnuSend", sid::MenuSend, &frmMain::mnuSend_Click, QKeySequence("F5"));
    file->addSeparator();
    mnuSendSingle_ = add(file, "mnuSendSingle", sid::MenuSendSingle, &frmMain::mnuSendSingle_Click,
                         QKeySequence("Shift+F5"));
    mnuHangUp_ =
        add(file, "mnuHangUp", sid::MenuHangUp, &frmMain::mnuHangUp_Click, QKeySequence("Esc"));
    file->addSeparator();
    auto* exit = file->addAction(ToQt(caption(sid::MenuExit)));
    exit->setObjectName("mnuExit");
    connect(exit, &QAction::triggered, this, &QWidget::close);

    auto* view = menuBar()->addMenu(ToQt(caption(sid::MenuView)));
    view->setObjectName("mnuView");
    mnuViewQueue_ = add(view, "mnuViewQueue", sid::MenuViewQueue, &frmMain::mnuViewQueue_Click);
    mnuViewQueue_->setCheckable(true);
}

QLineEdit* MainWindow::addLine(const char* name, TextBox& box) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    connect(edit, &QLineEdit::textEdited, this,
            [this, &box](const QString& text) { box.Text = FromQt(text); });
    return edit;
}

void MainWindow::buildPanels() {
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);

    auto* fraMessage = new QGroupBox(ToQt(caption(sid::FrameMessageToSend)));
    fraMessage->setObjectName("fraMessage");
    auto* messageLayout = new QVBoxLayout(fraMessage);
    txtMessage_ = new QPlainTextEdit;
    txtMessage_->setObjectName("txtMessage");
    txtMessage_->setTabChangesFocus(true);
    connect(txtMessage_, &QPlainTextEdit::textChanged, this, [this] {
        if (refreshing_) return;
        form_.txtMessage.Text = FromQt(txtMessage_->toPlainText());
        lblTotal_->setText(QString::number(txtMessage_->toPlainText().size()) +
                           ToQt(form_.lblTotal.Caption));
    });
    lblTotal_ = new QLabel;
    lblTotal_->setObjectName("lblTotal");
    lblTotal_->setAlignment(Qt::AlignRight);
    messageLayout->addWidget(txtMessage_);
    messageLayout->addWidget(lblTotal_);

    auto* fraMobile = new QGroupBox(ToQt(caption(sid::FrameMobileToSendTo)));
    fraMobile->setObjectName("fraMobile");
    auto* mobile = new QFormLayout(fraMobile);
    Names_ = new QComboBox;
    Names_->setObjectName("Names");
    Names_->setEditable(true);
    txtCountryCode_ = addLine("txtCountryCode", form_.txtCountryCode);
    txtAreaCode_ = addLine("txtAreaCode", form_.txtAreaCode);
    txtNumber_ = addLine("txtNumber", form_.txtNumber);
    Services_ = new QComboBox;
    Services_->setObjectName("Services");
    connect(Services_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!refreshing_) form_.Services.select(index);
    });
    mobile->addRow(Names_);
    auto* number = new QHBoxLayout;
    number->addWidget(txtCountryCode_, 1);
    number->addWidget(txtAreaCode_, 1);
    number->addWidget(txtNumber_, 3);
    mobile->addRow(number);
    mobile->addRow(Services_);

    auto* top = new QHBoxLayout;
    top->addWidget(fraMessage, 3);
    top->addWidget(fraMobile, 2);
    layout->addLayout(top);

    fraQueue_ = new QGroupBox(ToQt(caption(sid::FrameMessageQueue)));
    fraQueue_->setObjectName("fraQueue");
    auto* queueLayout = new QHBoxLayout(fraQueue_);
    MessageQueue_ = new QListWidget;
    MessageQueue_->setObjectName("MessageQueue");
    txtMessageQueue_ = new QPlainTextEdit;
    txtMessageQueue_->setObjectName("txtMessageQueue");
    txtMessageQueue_->setReadOnly(true);
    connect(MessageQueue_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (refreshing_ || row < 0) return;
        form_.MessageQueue.ListIndex = row;
        form_.txtMessageQueue.Text = form_.QueueBuffer[static_cast<std::size_t>(row) + 1].Text;
        controlsChanged();
    });
    queueLayout->addWidget(MessageQueue_, 1);
    queueLayout->addWidget(txtMessageQueue_, 1);
    layout->addWidget(fraQueue_);

    lblInfo_ = new QLabel;
    lblInfo_->setObjectName("lblInfo");
    lblOnline_ = new QLabel("Online");
    lblOnline_->setObjectName("lblOnline");
    statusBar()->addWidget(lblInfo_, 1);
    statusBar()->addPermanentWidget(lblOnline_);
    setCentralWidget(central);
    setWindowTitle(ToQt(caption(sid::ProductName)));
    resize(640, 320);
}

void MainWindow::statusChanged(const std::string& status) {
    lblInfo_->setText(ToQt(status));
    lblInfo_->repaint();
    if (onStatus) onStatus(status);
}

void MainWindow::controlsChanged() {
    refreshing_ = true;
    const auto setLine = [](QLineEdit* edit, const TextBox& box) {
        if (edit->text() != ToQt(box.Text)) edit->setText(ToQt(box.Text));
    };
    setLine(txtCountryCode_, form_.txtCountryCode);
    setLine(txtAreaCode_, form_.txtAreaCode);
    setLine(txtNumber_, form_.txtNumber);
    if (txtMessage_->toPlainText() != ToQt(form_.txtMessage.Text))
        txtMessage_->setPlainText(ToQt(form_.txtMessage.Text));
    txtMessageQueue_->setPlainText(ToQt(form_.txtMessageQueue.Text));
    lblTotal_->setText(QString::number(txtMessage_->toPlainText().size()) +
                       ToQt(form_.lblTotal.Caption));

    Services_->clear();
    for (const auto& row : form_.Services.rows) Services_->addItem(ToQt(row));
    Services_->setCurrentIndex(form_.Services.ListIndex);
    Names_->setEditText(ToQt(form_.Names.Text));

    MessageQueue_->clear();
    for (const auto& row : form_.MessageQueue.rows) MessageQueue_->addItem(ToQt(row));
    MessageQueue_->setCurrentRow(form_.MessageQueue.ListIndex);
    fraQueue_->setVisible(form_.mnuViewQueue.Checked);
    mnuViewQueue_->setChecked(form_.mnuViewQueue.Checked);

    mnuQueue_->setEnabled(form_.mnuQueue.Enabled);
    mnuSend_->setEnabled(form_.mnuSend.Enabled);
    mnuSendSingle_->setEnabled(form_.mnuSendSingle.Enabled);
    mnuHangUp_->setEnabled(form_.mnuHangUp.Enabled);
    lblInfo_->setText(ToQt(form_.lblInfo.Caption));
    lblOnline_->setVisible(form_.state.CallActive);
    if (form_.busyDepth > 0 && !QApplication::overrideCursor())
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (form_.busyDepth == 0 && QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();

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
    closed_ = true;
    form_.setObserver(nullptr);
    close();
    if (onClosed) onClosed();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!closed_) {
        closed_ = true;
        // Twips survive unchanged unless the window really moved.
        if (x() != form_.MainLeft / kTwipsPerPixel) form_.MainLeft = x() * kTwipsPerPixel;
        if (y() != form_.MainTop / kTwipsPerPixel) form_.MainTop = y() * kTwipsPerPixel;
        form_.minimised = isMinimized();
        form_.mnuExit_Click();
        form_.setObserver(nullptr);
        if (onClosed) onClosed();
    }
    event->accept();
}

}  // namespace parlane
