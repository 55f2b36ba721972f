#include "core/strings.h"

#include "core/string_bank.h"
#include "core/string_ids.h"

namespace parlane {

std::optional<std::string> Strings::TryLoad(int id) const {
    return FindBankString(id + LanguageOffset);
}

// A bank that lacks a text (a partial translation, or a bank not shipped) shows the English one.
std::string Strings::LoadResString(int id) const {
    if (auto text = TryLoad(id)) return *text;
    return FindBankString(id).value_or(std::string());
}

std::string Strings::ProductName() const {
    return LoadResString(sid::ProductName);
}

}  // namespace parlane
