#pragma once
// Message boxes as Qt dialogues; with no screen to show them on, the prompt goes to standard
// error and the safe answer (OK, or No to a question) is taken.

#include <QWidget>

#include "core/dialogue_host.h"

namespace parlane {

class QtDialogueHost : public DialogueHost {
  public:
    void setOwner(QWidget* owner) { owner_ = owner; }
    int messageBox(const std::string& prompt, int flags, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;

  private:
    QWidget* owner_ = nullptr;
};

}  // namespace parlane
