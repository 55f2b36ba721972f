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

// The calls that put text before the user, also through the dialogues' hooks.
constexpr const char* kSinks[] = {"ShowStatus", "ShowMessageBox", "setStatusRaw", "Status",
                                  "Box",        "Report"};
// File names are the same in every language.
constexpr const char* kFileNames[] = {"smsc.dat",  "phones.dat", "group.dat",
                                      "queue.dat", "phones.bak", "phones.csv"};

bool IsName(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// The literals, escapes taken out, in the arguments of the call whose "(" is at `open`.
std::vector<std::string> LiteralsOfCall(const std::string& code, std::size_t open) {
    std::vector<std::string> literals;
    int depth = 0;
    for (std::size_t i = open; i < code.size(); ++i) {
        if (code[i] == '"' && code[i - 1] != '\'') {
            literals.emplace_back();
            for (++i; i < code.size() && code[i] != '"'; ++i) {
                if (code[i] == '\\')
                    ++i;
                else
                    literals.back() += code[i];
            }
        } else if (code[i] == '(') {
            ++depth;
        } else if (code[i] == ')' && --depth == 0) {
            break;
        }
    }
    return literals;
}

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
        const auto relative = entry.path().lexically_relative(src);
        const auto extension = entry.path().extension();
        // The views of src/qt show what the core hands them.
        if ((extension != ".cpp" && extension != ".h") || *relative.begin() == "qt") continue;
        std::ostringstream read;
        read << std::ifstream(entry.path()).rdbuf();
        const std::string code = read.str();
        for (const std::string sink : kSinks) {
            for (auto at = code.find(sink); at != std::string::npos; at = code.find(sink, at + 1)) {
                std::size_t open = at + sink.size();
                while (open < code.size() && std::isspace(static_cast<unsigned char>(code[open])))
                    ++open;
                if ((at > 0 && IsName(code[at - 1])) || code[open] != '(') continue;
                ++calls;
                for (const std::string& literal : LiteralsOfCall(code, open))
                    if (HasWord(literal)) offenders.push_back(relative.string() + ": " + literal);
            }
        }
    }
    EXPECT_GT(calls, 100) << "the scan no longer finds the calls";
    EXPECT_TRUE(offenders.empty()) << ::testing::PrintToString(offenders);
}

}  // namespace
}  // namespace parlane
