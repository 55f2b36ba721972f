#pragma once
// A dialog of plain text fields over a model. Each field has a control name, a label from the
// string bank, a rule for its text and a filter for typed keys. The OK check runs the rules in
// the fields' order, stops at the first failure, names the field and puts the focus back on it.

#include <string>
#include <utility>
#include <vector>

#include "core/dialogue_host.h"
#include "core/strings.h"
#include "ui/controls.h"

namespace parlane {

class FieldForm {
  public:
    struct Field {
        const char* control;  // the view's objectName
        int labelId;
        TextBox* box;
        bool (*valid)(const std::string& text);
        char (*key)(char typed);  // the character the field takes, 0 to swallow it
    };

    explicit FieldForm(int titleId) : titleId(titleId) {}
    FieldForm(const FieldForm&) = delete;
    FieldForm& operator=(const FieldForm&) = delete;
    virtual ~FieldForm() = default;

    const std::vector<Field>& fields() const { return fields_; }
    // The first field, in order, whose text breaks its rule; null when all hold.
    const Field* FirstFault() const;
    // The OK button's check: on a fault "Please Enter A Valid <label>" in a box titled with the
    // product's name, the focus on that field, and false.
    bool Check(DialogueHost& host, const Strings& strings);
    // What typing `typed` into `control` inserts; 0 swallows the key. Control characters
    // (backspace and the like) always pass.
    char KeyPress(const std::string& control, char typed) const;

    // A value a field may take from a list, and its caption in the bank (0: the value itself).
    struct Choice {
        std::string value;
        int captionId = 0;
    };
    // The list a field is chosen from instead of typed into; null for a typed field.
    const std::vector<Choice>* Choices(const std::string& control) const;

    const int titleId;  // bank id of the dialog's caption (an "&" in it marks no key)
    std::string focusedControl;
    // A note shown above the fields: the bank's text, a blank and `noteDetail`. 0: none.
    int noteId = 0;
    std::string noteDetail;

  protected:
    void add(const Field& field) { fields_.push_back(field); }
    void addChoices(const std::string& control, std::vector<Choice> choices) {
        choices_.emplace_back(control, std::move(choices));
    }

  private:
    std::vector<Field> fields_;
    std::vector<std::pair<std::string, std::vector<Choice>>> choices_;
};

// Rules and key filters shared by the forms.
bool AllDigits(const std::string& text);   // "" passes
bool SomeDigits(const std::string& text);  // at least one, nothing else
char DigitKey(char typed);
char AnyPrintableKey(char typed);
// Upper-cases a letter that is one of `allowed`; anything else is swallowed.
char LetterKey(char typed, const char* allowed);

}  // namespace parlane
