#include "core/strings.h"

#include <cerrno>
#include <cstring>
#include <new>
#include <system_error>

#include "core/cp1252.h"
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

std::string FailureStatus(int errorNumber, const std::string& action) {
    return std::to_string(errorNumber) + " " + action + " " + std::strerror(errorNumber);
}

std::string LostCharactersQuestion(const Strings& strings, const std::vector<char32_t>& lost) {
    return strings.LoadResString(sid::FileCharactersNotKept) + "\r\n" + CodePointNames(lost) +
           "\r\n\r\n" + strings.LoadResString(sid::EachBecomesQuestionMark);
}

int ErrorNumberOf(const std::exception& e) {
    if (const auto* system = dynamic_cast<const std::system_error*>(&e)) {
        if (system->code().category() == std::generic_category() ||
            system->code().category() == std::system_category())
            return system->code().value();
    }
    if (dynamic_cast<const std::bad_alloc*>(&e)) return ENOMEM;
    return EIO;
}

}  // namespace parlane
