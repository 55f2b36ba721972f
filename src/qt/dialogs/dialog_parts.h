#pragma once
// What the views of the multi-field dialogues share: widgets named as their controls, lists and
// texts mirrored from the model, the focus the model asks for, and the Save/Cancel wiring.

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <string>

#include "qt/qt_text.h"
#include "ui/controls.h"

namespace parlane {

inline QLineEdit* LineEdit(const char* name, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    return edit;
}

// A field that says what it holds until something is typed; it is never narrower than that
// saying, which runs longer in some languages.
inline void SetHint(QLineEdit* edit, const std::string& hint) {
    edit->setPlaceholderText(ToQt(hint));
    edit->setToolTip(ToQt(hint));
    const QMargins margins = edit->textMargins();
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(edit->placeholderText()) +
                          margins.left() + margins.right() + 12);
}

inline QComboBox* ListBox(const char* name, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    return box;
}

inline QPushButton* Button(const char* name, const std::string& caption, QWidget* parent) {
    auto* button = new QPushButton(ToQt(caption), parent);
    button->setObjectName(name);
    return button;
}

inline void FillList(QComboBox* box, const ListControl& list) {
    const QSignalBlocker block(box);
    box->clear();
    for (const auto& row : list.rows) box->addItem(ToQt(row));
    box->setCurrentIndex(list.ListIndex);
    box->setEnabled(list.Enabled);
}

// Compared as the model's bytes, so that characters the code page lacks stay as typed.
inline void SetText(QLineEdit* edit, const TextBox& box) {
    if (FromQt(edit->text()) != box.Text) edit->setText(ToQt(box.Text));
    edit->setEnabled(box.Enabled);
}

// Puts the focus where the model asked for it.
inline void MoveFocus(QDialog& dialog, std::string& focusedControl) {
    if (focusedControl.empty()) return;
    if (auto* widget = dialog.findChild<QWidget*>(QString::fromStdString(focusedControl)))
        widget->setFocus();
    focusedControl.clear();
}

// Save and Cancel go to the model's handlers, then the view follows it; closing by the
// window's frame or Escape is Cancel. Runs the dialogue unless the model is already done.
template <typename Model, typename Pull>
void RunWithButtons(QDialog& dialog, QPushButton* ok, QPushButton* cancel, Model& model,
                    const Pull& pull) {
    QObject::connect(ok, &QPushButton::clicked, [&] {
        model.cmdProviderItemOk_Click();
        pull();
    });
    QObject::connect(cancel, &QPushButton::clicked, [&] {
        model.cmdProviderItemCancel_Click();
        pull();
    });
    QObject::connect(&dialog, &QDialog::rejected, [&] {
        if (!model.unloaded) model.cmdProviderItemCancel_Click();
    });
    if (!model.unloaded) dialog.exec();
}

}  // namespace parlane
