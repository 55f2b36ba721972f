#include "qt/dialogs/debug_window.h"

#include <QColor>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QStyle>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QToolButton>
#include <algorithm>

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

// A line pane shows its box in rows of one width, each row a paragraph of its own: an insert at
// the end lays out one row, where one long wrapped paragraph would be laid out whole each time.
// Both panes have the same width, so a row of one stands beside the same row of the other.
class LinePane : public QPlainTextEdit {
  public:
    LinePane(QWidget* parent, CaretTextBox& box) : QPlainTextEdit(parent), box_(box) {
        setLineWrapMode(QPlainTextEdit::NoWrap);
        // Always there, so that the rows keep their width as the text grows.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        box_.inserted = [this](std::size_t at, const std::string&) {
            showFrom(static_cast<int>(at / static_cast<std::size_t>(columns_)));
        };
        box_.cleared = [this] {
            const QSignalBlocker quiet(this);
            clear();
        };
        // A click or a key moves the caret, and with it the place of the next insert.
        connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
            const QTextCursor caret = textCursor();
            box_.SetSelStart(static_cast<std::size_t>(caret.blockNumber()) *
                                 static_cast<std::size_t>(columns_) +
                             static_cast<std::size_t>(caret.positionInBlock()));
        });
        showFrom(0);  // what the box holds already
    }
    ~LinePane() override {
        box_.inserted = nullptr;
        box_.cleared = nullptr;
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QPlainTextEdit::resizeEvent(event);
        // Fixed-pitch, so every character is as wide as a dot; the margins and the caret aside.
        const qreal room = viewport()->width() - 2 * document()->documentMargin() - cursorWidth();
        const int columns = std::max(
            8, static_cast<int>(room /
                                std::max<qreal>(1, QFontMetricsF(font()).horizontalAdvance('.'))));
        if (columns == columns_) return;
        columns_ = columns;
        showFrom(0);
    }

  private:
    // Shows the box's text from row `row` on again, and puts the caret where the box has it.
    void showFrom(int row) {
        const QSignalBlocker quiet(this);
        QTextCursor cursor(document());
        const QTextBlock block = document()->findBlockByNumber(row);
        const bool newRow = !block.isValid();
        if (newRow) {
            cursor.movePosition(QTextCursor::End);
        } else {
            cursor.setPosition(block.position());
            cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
        }
        const std::size_t from = static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_);
        const QString rest = LinePaneText(box_.Text().substr(std::min(from, box_.Text().size())));
        for (qsizetype i = 0; i < rest.size(); i += columns_) {
            if (i > 0 || newRow) cursor.insertBlock();
            InsertMarked(cursor, rest.mid(i, columns_));
        }
        const auto caret = static_cast<int>(box_.SelStart());
        const QTextBlock caretRow = document()->findBlockByNumber(caret / columns_);
        cursor.setPosition(caretRow.isValid() ? caretRow.position() + caret % columns_
                                              : document()->characterCount() - 1);
        setTextCursor(cursor);
    }

    CaretTextBox& box_;
    int columns_ = 40;
};

DebugWindow::DebugWindow(QWidget* owner, frmDebug& model) : QDialog(owner), model_(model) {
    setObjectName("frmDebug");
    setModal(false);
    auto* grid = new QGridLayout(this);
    Text1_ = addPane("Text1", lblText1_);
    ToServer_ = addPane("ToServer", lblToServer_, &model_.ToServer);
    FromServer_ = addPane("FromServer", lblFromServer_, &model_.FromServer);
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

    model_.changed = [this] { mirror(); };
    model_.logChanged = [this] {
        if (isVisible()) showLog();
    };
    mirror();
}

DebugWindow::~DebugWindow() {
    model_.changed = nullptr;
    model_.logChanged = nullptr;
}

QPlainTextEdit* DebugWindow::addPane(const char* name, QLabel*& caption, CaretTextBox* box) {
    auto* pane = box ? new LinePane(this, *box) : new QPlainTextEdit(this);
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
