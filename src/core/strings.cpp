#include "core/strings.h"

#include "core/string_bank.h"
#include "core/string_ids.h"

namespace parlane {

std::optional<std::string> Strings::TryLoad(int id) const {
    return FindBankString(id + LanguageOffset);
}

std::string Strings::LoadResString(int id) const {
    return TryLoad(id).value_or(std::string());
}

std::string Strings::ProductName() const {
    return LoadResString(sid::ProductName);
}

}  // namespace parlane
