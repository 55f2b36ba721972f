#include "qt/dialogs/debug_window.h"

#include <QColor>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QToolButton>

#include "automation/frm_debug.h"
#include "qt/artwork.h"
#include "qt/qt_text.h"

namespace parlane {

QString LinePaneText(const std::string& bytes) {
    QString text = ToQt(bytes);
    for (QChar& c : text) {
        const char16_t u = c.unicode();
        if (u < 0x20)
            c = QChar(char16_t(0x2400 + u));
        else if (u == 0x7F)
            c = QChar(char16_t(0x2421));
    }
    return text;
}

namespace {

bool IsControlPicture(QChar c) {
    return c.unicode() >= 0x2400 && c.unicode() <= 0x2421;
}

// Inserts at the cursor, the control pictures marked out: in a small font they read as boxes.
void InsertMarked(QTextCursor& cursor, const QString& text) {
    QTextCharFormat plain, marked;
    marked.setForeground(QColor(0x9c, 0x1c, 0x1c));
    marked.setBackground(QColor(0xff, 0xec, 0xb3));
    for (qsizetype start = 0; start < text.size();) {
        const bool control = IsControlPicture(text[start]);
        qsizetype end = start + 1;
        while (end < text.size() && IsControlPicture(text[end]) == control) ++end;
        cursor.insertText(text.mid(start, end - start), control ? marked : plain);
        start = end;
    }
}

}  // namespace

DebugWindow::DebugWindow(QWidget* owner, frmDebug& model) : QDialog(owner), model_(model) {
    setObjectName("frmDebug");
    setModal(false);
    auto* grid = new QGridLayout(this);
    Text1_ = addPane("Text1", lblText1_);
    ToServer_ = addPane("ToServer", lblToServer_);
    FromServer_ = addPane("FromServer", lblFromServer_);
    // Equal widths, and a wrap after any character, give both line panes the same rows.
    for (QPlainTextEdit* pane : {ToServer_, FromServer_})
        pane->setWordWrapMode(QTextOption::WrapAnywhere);
    grid->addWidget(lblText1_, 0, 0, 1, 2);
    grid->addWidget(Text1_, 1, 0, 1, 2);
    grid->addWidget(lblToServer_, 2, 0);
    grid->addWidget(lblFromServer_, 2, 1);
    grid->addWidget(ToServer_, 3, 0);
    grid->addWidget(FromServer_, 3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 2);
    grid->setRowStretch(3, 3);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto button = [this, buttons](const char* name, const QIcon& icon, void (frmDebug::*click)()) {
        auto* b = new QToolButton(this);
        b->setObjectName(name);
        b->setIcon(icon);
        b->setIconSize(QSize(32, 32));
        b->setAutoRaise(true);
        buttons->addWidget(b);
        connect(b, &QToolButton::clicked, this, [this, click] { (model_.*click)(); });
        return b;
    };
    cmdSave_ = button("cmdSave", style()->standardIcon(QStyle::SP_DialogSaveButton),
                      &frmDebug::cmdSave_Click);
    cmdSystem_ = button("cmdSystem", style()->standardIcon(QStyle::SP_ComputerIcon),
                        &frmDebug::cmdSystem_Click);
    cmdExit_ = button("cmdExit", ArtworkIcon("exit"), &frmDebug::cmdExit_Click);
    grid->addLayout(buttons, 4, 0, 1, 2);
    resize(760, 560);

    // What the panes hold already, then every insert as it comes.
    for (auto [box, pane] :
         {std::pair{&model_.ToServer, ToServer_}, {&model_.FromServer, FromServer_}}) {
        QTextCursor caret = pane->textCursor();
        InsertMarked(caret, LinePaneText(box->Text()));
        caret.setPosition(static_cast<int>(box->SelStart()));
        pane->setTextCursor(caret);
        follow(*box, pane);
    }
    model_.changed = [this] { mirror(); };
    model_.logChanged = [this] {
        if (isVisible()) showLog();
    };
    mirror();
}

DebugWindow::~DebugWindow() {
    model_.changed = nullptr;
    model_.logChanged = nullptr;
    for (CaretTextBox* box : {&model_.ToServer, &model_.FromServer}) {
        box->inserted = nullptr;
        box->cleared = nullptr;
    }
}

QPlainTextEdit* DebugWindow::addPane(const char* name, QLabel*& caption) {
    auto* pane = new QPlainTextEdit(this);
    pane->setObjectName(name);
    pane->setReadOnly(true);
    // The caret shows: in the line panes it is where the next text goes in.
    pane->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    caption = new QLabel(this);
    caption->setObjectName(QString("lbl") + name);
    caption->setBuddy(pane);
    return pane;
}

void DebugWindow::follow(CaretTextBox& box, QPlainTextEdit* pane) {
    box.inserted = [this, pane](std::size_t at, const std::string& text) {
        mirroring_ = true;
        QTextCursor caret = pane->textCursor();
        caret.setPosition(static_cast<int>(at));
        InsertMarked(caret, LinePaneText(text));
        pane->setTextCursor(caret);
        mirroring_ = false;
    };
    box.cleared = [this, pane] {
        mirroring_ = true;
        pane->clear();
        mirroring_ = false;
    };
    // A click or a key moves the caret, and with it the place of the next insert.
    connect(pane, &QPlainTextEdit::cursorPositionChanged, this, [this, pane, &box] {
        if (!mirroring_) box.SetSelStart(static_cast<std::size_t>(pane->textCursor().position()));
    });
}

void DebugWindow::showLog() {
    // The newest line is on top; the log is short, so it is shown whole.
    Text1_->setPlainText(ToQt(model_.Text1()).replace("\r\n", "\n"));
}

void DebugWindow::mirror() {
    setWindowTitle(ToQt(model_.Caption));
    for (auto [label, name] : {std::pair{lblText1_, "Text1"},
                               {lblToServer_, "ToServer"},
                               {lblFromServer_, "FromServer"}})
        label->setText(ToQt(model_.Captions[name]));
    for (auto [button, name] :
         {std::pair{cmdExit_, "cmdExit"}, {cmdSave_, "cmdSave"}, {cmdSystem_, "cmdSystem"}}) {
        button->setToolTip(ToQt(model_.ToolTips[name]));
        button->setAccessibleName(button->toolTip());
    }
    if (model_.Visible && !isVisible()) {
        show();
        raise();
        activateWindow();
    } else if (!model_.Visible && isVisible()) {
        hide();
    }
}

void DebugWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    showLog();
}

void DebugWindow::reject() {
    model_.Visible = false;
    hide();
}

}  // namespace parlane
