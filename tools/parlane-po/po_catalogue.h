#pragma once
// Translators' catalogues (gettext .po) against bank 1: reading, the checks the build insists on,
// the template and the compiled-in banks.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/string_bank.h"

namespace parlane::po {

struct Entry {
    std::string context;  // the bank-1 id in decimal
    std::string id;       // the English text, UTF-8
    std::string text;     // the translation, UTF-8
    bool fuzzy = false;
    int line = 0;
};

// The entries of a catalogue, header excluded. Syntax faults go to `errors`.
std::vector<Entry> ReadCatalogue(std::string_view po, const std::string& fileName,
                                 std::vector<std::string>& errors);

// Where a translation must agree with the English text: the same blanks at both ends, the same
// line breaks, the same %-placeholders and file patterns, and at most one accelerator ("&"),
// present when the English has one. Empty when it agrees, else what differs.
std::string ShapeMismatch(std::string_view english, std::string_view translation);

// Number of accelerator marks: "&" not doubled.
int AcceleratorCount(std::string_view text);

// Every fault of a catalogue against bank 1, one line each, naming the file.
std::vector<std::string> CheckCatalogue(std::span<const BankString> bank1,
                                        const std::vector<Entry>& entries,
                                        const std::string& fileName);

std::string TemplateText(std::span<const BankString> bank1);

struct CompiledBank {
    int bank;  // 2 to 5
    std::vector<Entry> entries;
};
// C++ source defining TranslatedBank(bank) over cp1252 texts, sorted by bank-1 id.
std::string BanksSource(const std::vector<CompiledBank>& banks);

}  // namespace parlane::po
