#include "qt/key_rule.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <string>
#include <utility>

#include "qt/qt_text.h"

namespace parlane {

int KeyAscii(const QKeyEvent& key, bool multiLine) {
    if (key.key() == Qt::Key_Backspace) return 8;
    if (multiLine && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) return 13;
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return 0;
    const std::string typed = FromQt(key.text());
    if (typed.size() != 1) return 0;
    const int code = static_cast<unsigned char>(typed[0]);
    return code < 32 ? 0 : code;
}

KeyRule::KeyRule(QWidget* widget, std::function<int(int)> rule, bool selectOnFocus)
    : QObject(widget),
      rule_(std::move(rule)),
      selectOnFocus_(selectOnFocus),
      multiLine_(qobject_cast<QPlainTextEdit*>(widget) != nullptr) {
    widget->installEventFilter(this);
}

bool KeyRule::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && selectOnFocus_) {
        // After the edit's own handling of the click that brought the focus.
        if (auto* edit = qobject_cast<QLineEdit*>(watched))
            QTimer::singleShot(0, edit, &QLineEdit::selectAll);
    }
    if (event->type() != QEvent::KeyPress || !rule_) return false;
    const int code = KeyAscii(*static_cast<QKeyEvent*>(event), multiLine_);
    if (code == 0) return false;
    const int given = rule_(code);
    if (given == code) return false;
    // A rule may also type another character in the key's place (a letter in upper case).
    if (given >= 32) {
        const QString text = ToQt(std::string(1, static_cast<char>(given)));
        if (auto* edit = qobject_cast<QLineEdit*>(watched)) edit->insert(text);
        if (auto* box = qobject_cast<QPlainTextEdit*>(watched)) box->insertPlainText(text);
    }
    return true;
}

}  // namespace parlane
