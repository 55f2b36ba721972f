// What the user reads comes from the banks: no literal with a word in it reaches the status line
// or a message box from the core's code.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace parlane {
namespace {

// The calls that put text before the user: the status line and message boxes, also through the
// dialogues' hooks.
constexpr const char* kSinks[] = {"ShowStatus", "ShowMessageBox", "setStatusRaw", "Status",
                                  "Box",        "Report"};

bool IsNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// Where each call of `name` opens its arguments: the name standing alone, then "(".
std::vector<std::size_t> CallsOf(const std::string& code, const std::string& name) {
    std::vector<std::size_t> opens;
    for (std::size_t at = code.find(name); at != std::string::npos; at = code.find(name, at + 1)) {
        if (at > 0 && IsNameCharacter(code[at - 1])) continue;
        std::size_t i = at + name.size();
        while (i < code.size() && (code[i] == ' ' || code[i] == '\n')) ++i;
        if (i < code.size() && code[i] == '(') opens.push_back(i + 1);
    }
    return opens;
}

std::string ReadSource(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The argument list from just behind "(" to its ")", skipping parentheses in literals.
std::string Arguments(const std::string& code, std::size_t from) {
    int depth = 1;
    bool quoted = false;
    std::size_t i = from;
    for (; i < code.size() && depth > 0; ++i) {
        const char c = code[i];
        if (quoted) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == '(') {
            ++depth;
        } else if (c == ')') {
            --depth;
        }
    }
    return code.substr(from, i - from);
}

// String literals with their escapes taken out, so "\r\n" holds no letter.
std::vector<std::string> Literals(const std::string& arguments) {
    std::vector<std::string> found;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != '"' || (i > 0 && arguments[i - 1] == '\'')) continue;
        std::string text;
        for (++i; i < arguments.size() && arguments[i] != '"'; ++i) {
            if (arguments[i] == '\\')
                ++i;
            else
                text += arguments[i];
        }
        found.push_back(text);
    }
    return found;
}

// File names are the same in every language; each is named here.
constexpr const char* kFileNames[] = {"smsc.dat",  "phones.dat", "group.dat",
                                      "queue.dat", "phones.bak", "phones.csv"};

bool HasWord(std::string text) {
    for (const std::string name : kFileNames)
        for (auto at = text.find(name); at != std::string::npos; at = text.find(name))
            text.erase(at, name.size());
    for (unsigned char c : text)
        if (std::isalpha(c)) return true;
    return false;
}

TEST(BankTexts, NoWordOnTheStatusLineOrInABoxIsALiteral) {
    const std::filesystem::path src = std::filesystem::path(PARLANE_SOURCE_DIR) / "src";
    int calls = 0;
    std::vector<std::string> offenders;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(src)) {
        const auto& path = entry.path();
        if (path.extension() != ".cpp" && path.extension() != ".h") continue;
        // The views: the calls that show texts are the core's.
        if (*path.lexically_relative(src).begin() == "qt") continue;
        const std::string code = ReadSource(path);
        for (const char* sink : kSinks) {
            for (const std::size_t open : CallsOf(code, sink)) {
                ++calls;
                for (const std::string& literal : Literals(Arguments(code, open)))
                    if (HasWord(literal))
                        offenders.push_back(path.lexically_relative(src).string() + ": \"" +
                                            literal + "\"");
            }
        }
    }
    EXPECT_GT(calls, 100) << "the scan no longer finds the calls";
    EXPECT_TRUE(offenders.empty()) << ::testing::PrintToString(offenders);
}

}  // namespace
}  // namespace parlane
