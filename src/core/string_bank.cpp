#include "core/string_bank.h"

#include <algorithm>

namespace parlane {

std::optional<std::string> FindBankString(int fullId) {
    const int bank = fullId / 1000;
    const int bank1Id = fullId - (bank - 1) * 1000;
    if (bank < 1 || bank > 5) return std::nullopt;
    const auto strings = Bank1Strings();
    auto it = std::lower_bound(strings.begin(), strings.end(), bank1Id,
                               [](const BankString& s, int id) { return s.id < id; });
    if (it == strings.end() || it->id != bank1Id) return std::nullopt;
    // The US-English bank is bank 1 under another brand name; the other translations are not
    // written yet, so they read as English rather than failing.
    if (bank == 2 && bank1Id == 1052) return std::string("Tonebridge");
    return std::string(it->text);
}

}  // namespace parlane
