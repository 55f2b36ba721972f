// The banks: the shape FindBankString relies on, texts that window data and the engine's status
// comparisons depend on, and no literal with a word in it reaching the status line or a message
// box from the core's code.
#include "core/string_bank.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/string_ids.h"

namespace parlane {
namespace {

std::string Text(int id) {
    return FindBankString(id).value_or("<missing>");
}

// Bank n holds each text at its English id + (n - 1) * 1000, found by a binary search.
TEST(Bank1, IdsAscendUniquelyBelowTheNextBank) {
    const auto strings = Bank1Strings();
    ASSERT_FALSE(strings.empty());
    for (std::size_t i = 0; i < strings.size(); ++i) {
        EXPECT_TRUE(strings[i].id >= 1000 && strings[i].id < 2000) << strings[i].id;
        EXPECT_FALSE(strings[i].text.empty()) << strings[i].id;
        if (i > 0) {
            EXPECT_LT(strings[i - 1].id, strings[i].id) << "out of order at " << i;
        }
    }
}

int Accelerators(std::string_view text) {
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '&') (i + 1 < text.size() && text[i + 1] == '&') ? void(++i) : void(++count);
    return count;
}

std::string_view Ends(std::string_view text, bool front) {
    std::size_t n = 0;
    while (n < text.size() && text[front ? n : text.size() - 1 - n] == ' ') ++n;
    return front ? text.substr(0, n) : text.substr(text.size() - n);
}

// Code joins texts with names and numbers, splits file filters at '|' and gives menus their
// keys, so each translation must keep the English shape.
TEST(Banks, EveryTranslationHasEveryIdInTheEnglishShape) {
    for (int bank = 2; bank <= 5; ++bank) {
        for (const BankString& english : Bank1Strings()) {
            const auto text = FindBankString(english.id + (bank - 1) * 1000);
            ASSERT_TRUE(text && !text->empty()) << "bank " << bank << " lacks " << english.id;
            const auto bar = english.text.find('|');
            SCOPED_TRACE(::testing::Message() << "bank " << bank << " id " << english.id);
            EXPECT_EQ(Accelerators(*text), Accelerators(english.text));
            EXPECT_LE(Accelerators(*text), 1);
            EXPECT_EQ(Ends(*text, true), Ends(english.text, true));
            EXPECT_EQ(Ends(*text, false), Ends(english.text, false));
            if (bar != std::string_view::npos) {
                EXPECT_EQ(text->substr(text->find('|')), english.text.substr(bar));
            }
        }
        EXPECT_EQ(TranslatedBank(bank).size(), Bank1Strings().size());
    }
    EXPECT_FALSE(FindBankString(6000));
    EXPECT_FALSE(FindBankString(999));
}

// The settings file is named after the product; only the branded bank has another name.
TEST(Banks, ProductNamePerBankAndTextsInWindows1252) {
    for (int bank = 1; bank <= 5; ++bank)
        EXPECT_EQ(Text(sid::ProductName + (bank - 1) * 1000), bank == 2 ? "Tonebridge" : "Parlane");
    // Catalogues are UTF-8; the banks hold Windows-1252 like bank 1.
    EXPECT_EQ(Text(sid::LabelParity + 3000), "Parit\xE4t");
    EXPECT_EQ(Text(sid::ButtonYes + 2000), "&S\xEC");
    EXPECT_EQ(Text(sid::MenuFrench),
              "Fran\xE7"
              "ais");
}

TEST(Banks, QueueStatusLinesContainTheWordsQueueByNameLooksFor) {
    // Queuing by name starts a run only when the status line holds string 1225.
    for (int offset = 0; offset <= 4000; offset += 1000) {
        const std::string inQueue = Text(sid::InQueue + offset);
        EXPECT_NE(Text(sid::MessageInQueue + offset).find(inQueue), std::string::npos) << offset;
        EXPECT_NE(Text(sid::MessagesInQueue + offset).find(inQueue), std::string::npos) << offset;
    }
}

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
