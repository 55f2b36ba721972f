#pragma once
// The telephone directory as comma-separated text: a header line, then one line per entry, every
// field in double quotes, fields divided by a comma alone, lines ending in CR LF.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/directory.h"

namespace parlane {

inline constexpr std::string_view kCsvHeaderLine =
    "\"Name\",\"CountryCode\",\"AreaCode\",\"PhoneNumber\"\r\n";

// One entry as a line of phones.csv, CR LF included. The fields go out as they stand (the
// country code behind a "+"); the centre is not exported.
std::string ExportCsvLine(const DirectoryEntry& entry);

struct ImportFields {
    std::string Name;
    std::string CountryCode;
    std::string AreaCode;
    std::string Number;
};

// Splits a line by position only: the first character is taken for the opening quote, each of
// the first three fields runs to the next quote and is followed by 3 characters (quote, comma,
// quote), and the number is the rest less its last character. False when a quote is missing or
// nothing is left for the number; `fields` is then left as it was.
bool ParseImportLine(std::string_view line, ImportFields& fields);

// The rule for one character code of a number field: a digit stays, other codes up to 127 give
// 32 (to be removed), higher or negative codes keep their low seven bits (32 when that is below).
std::int16_t SubstituteNumber(std::int16_t code);

// Cleans a number field in place: characters that map to 32 go, the others become their
// substitute, so a character above 127 turns into a seven-bit one.
void FindNonNumber(std::string& text);

// The lines of a text file. A line ends at CR LF, CR or LF; a last line without an end counts,
// and an end at the very end of the file makes no further empty line.
std::vector<std::string> SplitFileLines(std::string_view bytes);

}  // namespace parlane
