#include "qt/dialogs/field_dialog.h"

#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/key_rule.h"
#include "qt/qt_text.h"

namespace parlane {
QString LabelText(const std::string& text) {
    return ToQt(text).replace("\r\n", "\n");
}

QLabel* AddLabel(QBoxLayout* layout, const QString& name, const Label& label) {
    auto* text = new QLabel(LabelText(label.Caption));
    text->setObjectName(name);
    text->setWordWrap(true);
    layout->addWidget(text);
    return text;
}

QPushButton* AddOk(QBoxLayout* layout, const char* name) {
    auto* ok = new QPushButton("OK");
    ok->setObjectName(name);
    ok->setDefault(true);
    layout->addWidget(ok, 0, Qt::AlignRight);
    return ok;
}

FieldHooks::FieldHooks(QLineEdit* edit, TextBox& box, Handlers handlers)
    : QObject(edit), edit_(edit), box_(box), handlers_(std::move(handlers)) {
    edit->installEventFilter(this);
    QObject::connect(edit, &QLineEdit::textEdited, this, [this](const QString& text) {
        box_.Text = FromQt(text);
        box_.SelStart = edit_->cursorPosition();
        box_.SelLength = 0;
        if (handlers_.change) {
            handlers_.change();
            if (FromQt(edit_->text()) != box_.Text) mirror();
        }
    });
    mirror();
}

void FieldHooks::mirror() {
    // Compared as the model's bytes: characters the code page lacks stay as the user typed them.
    if (FromQt(edit_->text()) != box_.Text) edit_->setText(ToQt(box_.Text));
    edit_->setSelection(box_.SelStart, box_.SelLength);
}

bool FieldHooks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int code = KeyAscii(*static_cast<QKeyEvent*>(event));
        if (code != 0 && handlers_.keyPress(code) == 0) return true;  // dropped
    } else if (event->type() == QEvent::FocusIn) {
        handlers_.gotFocus();
        // After the edit's own handling of the click that brought the focus.
        QTimer::singleShot(0, edit_, [this] { mirror(); });
        mirror();
    }
    return QObject::eventFilter(watched, event);
}

void OneFieldDialog::build(Parts parts) {
    parts_ = std::move(parts);
    setWindowTitle(ToQt(*parts_.caption));
    // Wide enough for a one-line prompt to stay on one line.
    setMinimumWidth(320);
    auto* layout = new QVBoxLayout(this);
    int n = 0;
    for (const Label* label : parts_.labels) AddLabel(layout, QString("Label%1").arg(++n), *label);
    field_ = new QLineEdit;
    field_->setObjectName(parts_.fieldName);
    layout->addWidget(field_);
    hooks_ = new FieldHooks(field_, *parts_.box, parts_.handlers);
    connect(AddOk(layout, parts_.okName), &QPushButton::clicked, this, &OneFieldDialog::okClicked);
    // The wrapped prompt's height at the width the dialogue opens with, not at its own guess.
    const int width = std::max(sizeHint().width(), minimumWidth());
    resize(width, heightForWidth(width));
}

void OneFieldDialog::okClicked() {
    parts_.ok();
    if (*parts_.unloaded) {
        accept();
        return;
    }
    if (parts_.focusedControl && !parts_.focusedControl->empty()) {
        parts_.focusedControl->clear();
        field_->setFocus();
        // Already focused: the model still selects the whole text, as on a new focus.
        parts_.handlers.gotFocus();
        hooks_->mirror();
    }
}

}  // namespace parlane
