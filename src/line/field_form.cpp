#include "line/field_form.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "core/string_ids.h"

namespace parlane {

const FieldForm::Field* FieldForm::FirstFault() const {
    for (const auto& f : fields_)
        if (!f.valid(f.box->Text)) return &f;
    return nullptr;
}

const std::vector<FieldForm::Choice>* FieldForm::Choices(const std::string& control) const {
    for (const auto& [name, choices] : choices_)
        if (name == control) return &choices;
    return nullptr;
}

bool FieldForm::Check(DialogueHost& host, const Strings& strings) {
    const Field* fault = FirstFault();
    if (!fault) return true;
    host.messageBox(
        strings.LoadResString(sid::PleaseEnterValid) + " " + strings.LoadResString(fault->labelId),
        MbInformation, strings.ProductName());
    focusedControl = fault->control;
    return false;
}

char FieldForm::KeyPress(const std::string& control, char typed) const {
    if (static_cast<unsigned char>(typed) < 0x20 || typed == 0x7F) return typed;
    for (const auto& f : fields_)
        if (control == f.control) return f.key(typed);
    return typed;
}

bool AllDigits(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return std::isdigit(static_cast<unsigned char>(c)); });
}

bool SomeDigits(const std::string& text) {
    return !text.empty() && AllDigits(text);
}

char DigitKey(char typed) {
    return std::isdigit(static_cast<unsigned char>(typed)) ? typed : 0;
}

char AnyPrintableKey(char typed) {
    return typed >= 0x20 && typed < 0x7F ? typed : 0;
}

char LetterKey(char typed, const char* allowed) {
    const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(typed)));
    return upper != 0 && std::strchr(allowed, upper) ? upper : 0;
}

}  // namespace parlane
