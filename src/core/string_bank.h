#pragma once
// The string banks: every text the user sees, by id. Bank 1 (English) is ids 1000 on; a language
// offset picks another bank (2000 US English, 3000 Italian, 4000 German, 5000 French).

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace parlane {

struct BankString {
    int id;
    std::string_view text;  // cp1252 bytes
};

// Bank 1, sorted by id.
std::span<const BankString> Bank1Strings();
// Banks 2 to 5, built from po/*.po, by bank-1 id and sorted by it; empty for another bank.
std::span<const BankString> TranslatedBank(int bank);

// The text of a full id (bank id + offset already added); nullopt when the bank has no such id.
std::optional<std::string> FindBankString(int fullId);

}  // namespace parlane
