#include "po_catalogue.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/cp1252.h"

namespace parlane::po {
namespace {

bool Unquote(std::string_view quoted, std::string& out) {
    if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"') return false;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        char c = quoted[i];
        if (c != '\\') {
            out += c;
            continue;
        }
        if (++i + 1 >= quoted.size()) return false;
        switch (quoted[i]) {
            case 'n':
                out += '\n';
                break;
            case 't':
                out += '\t';
                break;
            case 'r':
                out += '\r';
                break;
            case '"':
                out += '"';
                break;
            case '\\':
                out += '\\';
                break;
            default:
                return false;
        }
    }
    return true;
}

std::string Quote(std::string_view text) {
    std::string out = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else if (c == '\t')
            out += "\\t";
        else
            out += c;
    }
    return out + '"';
}

std::string_view Trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t' || s.front() == '\r'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

// "%s", "%d", "%1", "%%" and "{0}" style markers.
std::multiset<std::string> Placeholders(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::multiset<std::string> found;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char open = text[i];
        if (open != '%' && open != '{') continue;
        std::size_t j = i + 1;
        while (j < text.size() && isDigit(text[j])) ++j;
        const bool digits = j > i + 1;
        bool marker;
        if (open == '{') {
            marker = digits && j < text.size() && text[j] == '}';
        } else if (j < text.size() &&
                   std::string_view("sdiuxXcf%").find(text[j]) != std::string_view::npos) {
            marker = true;
        } else {
            marker = digits;  // "%1" ends at its last digit
            --j;
        }
        if (!marker) continue;
        found.insert(std::string(text.substr(i, j - i + 1)));
        i = j;
    }
    return found;
}

std::string_view Edge(std::string_view text, bool front) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\t'; };
    std::size_t n = 0;
    if (front)
        while (n < text.size() && isBlank(text[n])) ++n;
    else
        while (n < text.size() && isBlank(text[text.size() - 1 - n])) ++n;
    return front ? text.substr(0, n) : text.substr(text.size() - n);
}

// A file filter "Description (*.txt)|*.txt": the part after the bar is a pattern, not words.
std::string_view FilterPattern(std::string_view text) {
    const auto bar = text.find('|');
    return bar == std::string_view::npos ? std::string_view() : text.substr(bar);
}

}  // namespace

std::vector<Entry> ReadCatalogue(std::string_view po, const std::string& fileName,
                                 std::vector<std::string>& errors) {
    std::vector<Entry> entries;
    Entry current;
    std::string* field = nullptr;
    bool pendingFuzzy = false, haveEntry = false;
    const auto flush = [&] {
        if (haveEntry && !(current.context.empty() && current.id.empty()))
            entries.push_back(current);
        current = Entry{};
        haveEntry = false;
        field = nullptr;
    };
    int lineNumber = 0;
    std::size_t pos = 0;
    while (pos <= po.size()) {
        auto end = po.find('\n', pos);
        if (end == std::string_view::npos) end = po.size();
        const std::string_view line = Trim(po.substr(pos, end - pos));
        pos = end + 1;
        ++lineNumber;
        const auto fault = [&](const std::string& what) {
            errors.push_back(fileName + ":" + std::to_string(lineNumber) + ": " + what);
        };
        if (line.empty()) continue;
        if (line.starts_with("#,")) {
            if (line.find("fuzzy") != std::string_view::npos) pendingFuzzy = true;
            continue;
        }
        if (line.starts_with("#")) continue;
        std::string_view rest;
        std::string* target = nullptr;
        if (line.starts_with("msgctxt ")) {
            flush();
            target = &current.context;
            rest = line.substr(8);
        } else if (line.starts_with("msgid ")) {
            if (field != &current.context) flush();
            target = &current.id;
            rest = line.substr(6);
        } else if (line.starts_with("msgstr ")) {
            target = &current.text;
            rest = line.substr(7);
        } else if (line.front() == '"') {
            if (!field || !Unquote(line, *field)) fault("bad continuation line");
            continue;
        } else {
            fault("unexpected line");
            continue;
        }
        if (!haveEntry) {
            haveEntry = true;
            current.line = lineNumber;
            current.fuzzy = pendingFuzzy;
            pendingFuzzy = false;
        }
        field = target;
        if (!Unquote(Trim(rest), *field)) fault("bad string");
        if (pos > po.size()) break;
    }
    flush();
    return entries;
}

int AcceleratorCount(std::string_view text) {
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (i + 1 < text.size() && text[i + 1] == '&') {
            ++i;
            continue;
        }
        ++count;
    }
    return count;
}

std::string ShapeMismatch(std::string_view english, std::string_view translation) {
    if (Edge(english, true) != Edge(translation, true)) return "leading blanks differ";
    if (Edge(english, false) != Edge(translation, false)) return "trailing blanks differ";
    if (std::count(english.begin(), english.end(), '\n') !=
        std::count(translation.begin(), translation.end(), '\n'))
        return "line breaks differ";
    if (Placeholders(english) != Placeholders(translation)) return "placeholders differ";
    if (FilterPattern(english) != FilterPattern(translation)) return "file pattern differs";
    const int accelerators = AcceleratorCount(translation);
    if (accelerators > 1) return "more than one accelerator";
    if (accelerators != AcceleratorCount(english))
        return accelerators ? "accelerator the English lacks" : "accelerator missing";
    return {};
}

std::vector<std::string> CheckCatalogue(std::span<const BankString> bank1,
                                        const std::vector<Entry>& entries,
                                        const std::string& fileName) {
    std::vector<std::string> errors;
    std::map<int, const Entry*> byId;
    for (const Entry& e : entries) {
        const auto where = fileName + ":" + std::to_string(e.line) + ": id " + e.context + ": ";
        int id = 0;
        try {
            std::size_t used = 0;
            id = std::stoi(e.context, &used);
            if (used != e.context.size()) id = 0;
        } catch (...) {
            id = 0;
        }
        const auto english = std::find_if(bank1.begin(), bank1.end(),
                                          [&](const BankString& s) { return s.id == id; });
        if (english == bank1.end()) {
            errors.push_back(where + "not a bank-1 id in use");
            continue;
        }
        if (!byId.emplace(id, &e).second) errors.push_back(where + "given twice");
        if (e.id != Cp1252ToUtf8(english->text))
            errors.push_back(where + "English text differs from bank 1 (update the msgid)");
        if (e.fuzzy) errors.push_back(where + "fuzzy");
        if (e.text.empty()) {
            errors.push_back(where + "empty translation");
            continue;
        }
        if (Cp1252ToUtf8(Utf8ToCp1252(e.text)) != e.text)
            errors.push_back(where + "characters outside Windows-1252");
        if (auto shape = ShapeMismatch(e.id, e.text); !shape.empty())
            errors.push_back(where + shape);
    }
    std::string missing;
    for (const BankString& s : bank1)
        if (!byId.contains(s.id)) missing += (missing.empty() ? "" : ", ") + std::to_string(s.id);
    if (!missing.empty())
        errors.push_back(fileName + ": missing ids (add them from parlane.pot): " + missing);
    return errors;
}

std::string TemplateText(std::span<const BankString> bank1) {
    std::string out =
        "# Parlane's texts. The context is the text's id in the program; keep the \"&\" of an\n"
        "# accelerator unique within its menu or dialogue, and keep blanks at both ends.\n"
        "msgid \"\"\nmsgstr \"\"\n"
        "\"Project-Id-Version: Parlane\\n\"\n"
        "\"MIME-Version: 1.0\\n\"\n"
        "\"Content-Type: text/plain; charset=UTF-8\\n\"\n"
        "\"Content-Transfer-Encoding: 8bit\\n\"\n";
    for (const BankString& s : bank1)
        out += "\nmsgctxt \"" + std::to_string(s.id) + "\"\nmsgid " + Quote(Cp1252ToUtf8(s.text)) +
               "\nmsgstr \"\"\n";
    return out;
}

std::string BanksSource(const std::vector<CompiledBank>& banks) {
    std::string out =
        "// Generated from po/*.po by parlane-po; do not edit.\n"
        "#include \"core/string_bank.h\"\n\n"
        "namespace parlane {\nnamespace {\n";
    const auto cppString = [](const std::string& bytes) {
        std::string s = "\"";
        for (unsigned char c : bytes) {
            if (c == '"' || c == '\\') {
                s += '\\';
                s += static_cast<char>(c);
            } else if (c < 0x20 || c >= 0x7F) {
                // Three octal digits: an escape cannot run into the next character.
                s += '\\';
                s += static_cast<char>('0' + (c >> 6));
                s += static_cast<char>('0' + ((c >> 3) & 7));
                s += static_cast<char>('0' + (c & 7));
            } else {
                s += static_cast<char>(c);
            }
        }
        return s + "\"";
    };
    for (const CompiledBank& bank : banks) {
        auto entries = bank.entries;
        std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
            return std::stoi(a.context) < std::stoi(b.context);
        });
        out += "constexpr BankString kBank" + std::to_string(bank.bank) + "[] = {\n";
        for (const Entry& e : entries)
            out += "    {" + e.context + ", " + cppString(Utf8ToCp1252(e.text)) + "},\n";
        out += "};\n";
    }
    out +=
        "}  // namespace\n\nstd::span<const BankString> TranslatedBank(int bank) {\n"
        "    switch (bank) {\n";
    for (const CompiledBank& bank : banks)
        out += "        case " + std::to_string(bank.bank) + ": return kBank" +
               std::to_string(bank.bank) + ";\n";
    out += "        default: return {};\n    }\n}\n\n}  // namespace parlane\n";
    return out;
}

}  // namespace parlane::po
