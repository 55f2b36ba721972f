#pragma once
// Message boxes as Qt dialogues; with no screen to show them on, the prompt goes to standard
// error and the safe answer (OK, or No to a question) is taken.

#include <QWidget>

#include "core/dialogue_host.h"
#include "core/strings.h"

namespace parlane {

class QtDialogueHost : public DialogueHost {
  public:
    void setOwner(QWidget* owner) { owner_ = owner; }
    // The bank the buttons take their texts from; Qt's own English ones without it.
    void setStrings(const Strings* strings) { strings_ = strings; }
    int messageBox(const std::string& prompt, int flags, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;

  private:
    QWidget* owner_ = nullptr;
    const Strings* strings_ = nullptr;
};

}  // namespace parlane
