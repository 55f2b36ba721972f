#pragma once
// What the one-field dialogues' views share: the typed keys go through the model's KeyPress, the
// focus through its GotFocus, and OK through its handler; the dialogue closes when the model
// has unloaded itself.

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "ui/controls.h"

namespace parlane {

// Line ends of the core's texts ("\r\n") as Qt's labels want them.
QString LabelText(const std::string& text);
// A word-wrapped label and a default OK button, named as their controls, added to `layout`.
QLabel* AddLabel(QBoxLayout* layout, const QString& name, const Label& label);
QPushButton* AddOk(QBoxLayout* layout, const char* name);

// An event filter on one line edit that keeps a TextBox and the edit in step.
class FieldHooks : public QObject {
  public:
    struct Handlers {
        std::function<int(int)> keyPress;  // the key's character code in, the code or 0 out
        std::function<void()> gotFocus;
        std::function<void()> change;  // after every edit by the user; may be empty
    };
    FieldHooks(QLineEdit* edit, TextBox& box, Handlers handlers);
    // Shows the box's text and selection in the edit.
    void mirror();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLineEdit* edit_;
    TextBox& box_;
    Handlers handlers_;
};

class OneFieldDialog : public QDialog {
  public:
    QLineEdit* field() const { return field_; }

  protected:
    explicit OneFieldDialog(QWidget* owner) : QDialog(owner) {}

    struct Parts {
        const std::string* caption;
        std::vector<const Label*> labels;
        const char* fieldName;
        TextBox* box;
        FieldHooks::Handlers handlers;
        const char* okName;
        std::function<void()> ok;
        std::string* focusedControl;  // may be null: the dialogue never refuses
        const bool* unloaded;
    };
    // Called by the dialogue's constructor once its model has loaded.
    void build(Parts parts);

  private:
    void okClicked();

    Parts parts_{};
    QLineEdit* field_ = nullptr;
    FieldHooks* hooks_ = nullptr;
};

}  // namespace parlane
