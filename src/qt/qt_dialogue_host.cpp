#include "qt/qt_dialogue_host.h"

#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>

#include "core/string_ids.h"
#include "qt/qt_text.h"

namespace parlane {

int QtDialogueHost::messageBox(const std::string& prompt, int flags, const std::string& title) {
    const bool question = flags == MbQuestionYesNo;
    const bool retry = flags == MbRetryCancelCritical;
    // With nobody to answer, the safe button: No, Cancel.
    if (QGuiApplication::platformName() == "offscreen") {
        std::fprintf(stderr, "%s: %s\n", Cp1252ToUtf8(title).c_str(), Cp1252ToUtf8(prompt).c_str());
        return question ? AnswerNo : retry ? AnswerCancel : AnswerOk;
    }
    QMessageBox box(owner_);
    box.setWindowTitle(ToQt(title));
    box.setText(ToQt(prompt));
    box.setIcon(flags == MbCritical || retry ? QMessageBox::Critical
                : question                   ? QMessageBox::Question
                : flags == MbExclamation     ? QMessageBox::Warning
                                             : QMessageBox::Information);
    if (question) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        if (strings_) {
            box.button(QMessageBox::Yes)->setText(ToQt(strings_->LoadResString(sid::ButtonYes)));
            box.button(QMessageBox::No)->setText(ToQt(strings_->LoadResString(sid::ButtonNo)));
        }
        return box.exec() == QMessageBox::Yes ? AnswerYes : AnswerNo;
    }
    if (retry) {
        box.setStandardButtons(QMessageBox::Retry | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Retry);
        if (strings_) {
            box.button(QMessageBox::Retry)
                ->setText(ToQt(strings_->LoadResString(sid::ButtonRetry)));
            box.button(QMessageBox::Cancel)
                ->setText(ToQt(strings_->LoadResString(sid::ButtonCancel)));
        }
        return box.exec() == QMessageBox::Retry ? AnswerRetry : AnswerCancel;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return AnswerOk;
}

std::string QtDialogueHost::inputBox(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) {
    if (QGuiApplication::platformName() == "offscreen") {
        std::fprintf(stderr, "%s: %s\n", Cp1252ToUtf8(title).c_str(), Cp1252ToUtf8(prompt).c_str());
        return {};
    }
    QInputDialog dialog(owner_);
    dialog.setWindowTitle(ToQt(title));
    dialog.setLabelText(ToQt(prompt));
    dialog.setTextValue(ToQt(defaultText));
    if (strings_) dialog.setCancelButtonText(ToQt(strings_->LoadResString(sid::ButtonCancel)));
    return dialog.exec() == QDialog::Accepted ? FromQt(dialog.textValue()) : std::string{};
}

}  // namespace parlane
