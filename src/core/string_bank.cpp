#include "core/string_bank.h"

#include <algorithm>

namespace parlane {

std::optional<std::string> FindBankString(int fullId) {
    const int bank = fullId / 1000;
    if (fullId < 1000 || bank > 5) return std::nullopt;
    const int bank1Id = fullId - (bank - 1) * 1000;
    const auto strings = bank == 1 ? Bank1Strings() : TranslatedBank(bank);
    auto it = std::lower_bound(strings.begin(), strings.end(), bank1Id,
                               [](const BankString& s, int id) { return s.id < id; });
    if (it == strings.end() || it->id != bank1Id) return std::nullopt;
    return std::string(it->text);
}

}  // namespace parlane
