#pragma once
// LoadResString: the text of an id in the bank chosen by LanguageOffset.

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace parlane {

class Strings {
  public:
    std::int16_t LanguageOffset = 0;

    // The text of bank-1 id `id` in the bank in use; nullopt when that bank lacks it.
    std::optional<std::string> TryLoad(int id) const;
    // As TryLoad, falling back to bank 1; an empty text for an id no bank has.
    std::string LoadResString(int id) const;
    // The product's name in the bank in use (string 1052): titles, settings application name.
    std::string ProductName() const;

    // The English bank, for parts that word their texts before the program names its own bank.
    static const Strings& English() {
        static const Strings english;
        return english;
    }
};

// A failure on the status line: the error's number, the action's name and the system's
// description of the error, blank-separated.
std::string FailureStatus(int errorNumber, const std::string& action);

// The question before a file's text is stored with "?" for the characters the code page cannot
// hold, naming them (see DecodeFileText).
std::string LostCharactersQuestion(const Strings& strings, const std::vector<char32_t>& lost);

// The error number a caught exception stands for: a system error's own, ENOMEM for a failed
// allocation, EIO for anything else.
int ErrorNumberOf(const std::exception& e);

}  // namespace parlane
