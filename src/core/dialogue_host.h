#pragma once
// Modal dialogues the core asks the platform for.

#include <string>

namespace parlane {

enum MessageBoxFlags : int {
    MbCritical = 16,
    MbRetryCancelCritical = 21,
    MbQuestionYesNo = 36,
    MbExclamation = 48,
    MbInformation = 64,
};
enum MessageBoxAnswer : int {
    AnswerOk = 1,
    AnswerCancel = 2,
    AnswerRetry = 4,
    AnswerYes = 6,
    AnswerNo = 7
};

class DialogueHost {
  public:
    virtual ~DialogueHost() = default;
    // A modal box; returns the button pressed (1 OK, 2 Cancel, 4 Retry, 6 Yes, 7 No).
    virtual int messageBox(const std::string& prompt, int flags, const std::string& title) = 0;
    // A modal one-line question; the text typed, or "" when cancelled (as an empty answer).
    virtual std::string inputBox(const std::string& prompt, const std::string& title,
                                 const std::string& defaultText) = 0;
};

}  // namespace parlane
