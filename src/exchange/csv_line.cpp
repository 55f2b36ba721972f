#include "exchange/csv_line.h"

#include <algorithm>

#include "core/cp1252.h"

namespace parlane {
namespace {

constexpr std::int16_t kRemoved = 32;

// Takes the text up to the next quote, then drops it with the quote and the two characters after.
bool TakeQuotedField(std::string_view& rest, std::string& field) {
    const auto quote = rest.find('"');
    if (quote == std::string_view::npos) return false;
    field.assign(rest.substr(0, quote));
    rest.remove_prefix(std::min(rest.size(), quote + 3));
    return true;
}

}  // namespace

std::string ExportCsvLine(const DirectoryEntry& entry) {
    std::string line;
    line.reserve(entry.Name.size() + entry.CountryCode.size() + entry.AreaCode.size() +
                 entry.Number.size() + 16);
    line += '"';
    line += entry.Name;
    line += "\",\"+";
    line += entry.CountryCode;
    line += "\",\"";
    line += entry.AreaCode;
    line += "\",\"";
    line += entry.Number;
    line += "\"\r\n";
    return line;
}

bool ParseImportLine(std::string_view line, ImportFields& fields) {
    std::string_view rest = line.substr(std::min<std::size_t>(1, line.size()));
    ImportFields taken;
    if (!TakeQuotedField(rest, taken.Name) || !TakeQuotedField(rest, taken.CountryCode) ||
        !TakeQuotedField(rest, taken.AreaCode) || rest.empty())
        return false;
    taken.Number.assign(rest.substr(0, rest.size() - 1));
    fields = std::move(taken);
    return true;
}

std::int16_t SubstituteNumber(std::int16_t code) {
    if (code >= '0' && code <= '9') return code;
    if (code >= 0 && code <= 127) return kRemoved;
    const auto low = static_cast<std::int16_t>(code & 0x7F);
    return low < 32 ? kRemoved : low;
}

void FindNonNumber(std::string& text) {
    std::string kept;
    kept.reserve(text.size());
    for (const char c : text) {
        // The character's code, not its byte: the euro sign is 8364, whose low bits make ','.
        const auto code = static_cast<std::int16_t>(Cp1252CodePoint(static_cast<unsigned char>(c)));
        const std::int16_t result = SubstituteNumber(code);
        if (result != kRemoved) kept += static_cast<char>(result);
    }
    text = std::move(kept);
}

std::vector<std::string> SplitFileLines(std::string_view bytes) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < bytes.size()) {
        const auto end = bytes.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            lines.emplace_back(bytes.substr(start));
            break;
        }
        lines.emplace_back(bytes.substr(start, end - start));
        start = end + 1;
        if (bytes[end] == '\r' && start < bytes.size() && bytes[start] == '\n') ++start;
    }
    return lines;
}

}  // namespace parlane
