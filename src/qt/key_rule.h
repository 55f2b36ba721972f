#pragma once
// Typed keys go through the model's key rules: each rule takes a character code and gives it
// back, or 0 to drop the key, or another character to type in its place.

#include <QKeyEvent>
#include <QObject>
#include <QWidget>
#include <functional>

namespace parlane {

// The character code a key press gives a model's rule: 8 for Backspace, 13 for Return in a
// multi-line box, the cp1252 code of a typed character; 0 for keys that are not typing (arrows,
// Delete, shortcuts, Escape, Tab, Return in a one-line field, where it belongs to the dialogue).
int KeyAscii(const QKeyEvent& key, bool multiLine = false);

// Puts each typed character of `widget` through `rule`; a line edit may also select its whole
// text when it gets the focus.
class KeyRule : public QObject {
  public:
    KeyRule(QWidget* widget, std::function<int(int)> rule, bool selectOnFocus = false);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<int(int)> rule_;
    bool selectOnFocus_;
    bool multiLine_;
};

}  // namespace parlane
