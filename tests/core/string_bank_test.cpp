// The English bank: the shape FindBankString relies on, and texts that window data and the
// engine's status comparisons depend on.
#include "core/string_bank.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "core/string_ids.h"

namespace parlane {
namespace {

bool InUse(int id) {
    constexpr std::pair<int, int> kRanges[] = {
        {1000, 1014}, {1020, 1024}, {1028, 1149}, {1151, 1160}, {1163, 1181},
        {1183, 1192}, {1196, 1223}, {1225, 1228}, {1232, 1232}, {1234, 1240},
        {1242, 1365}, {1400, 1420}, {1430, 1459}, {1460, 1469}, {1470, 1479},
        {1480, 1489}, {1929, 1932}, {1943, 1943}, {1948, 1963}};
    return std::any_of(std::begin(kRanges), std::end(kRanges),
                       [id](const auto& r) { return r.first <= id && id <= r.second; });
}

std::string Text(int id) {
    return FindBankString(id).value_or("<missing>");
}

TEST(Bank1, IdsAscendUniquelyWithinTheRangesInUse) {
    const auto strings = Bank1Strings();
    ASSERT_FALSE(strings.empty());
    for (std::size_t i = 0; i < strings.size(); ++i) {
        EXPECT_TRUE(InUse(strings[i].id)) << strings[i].id;
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

TEST(Banks, ProductNameAndTheLanguageNamesPerBank) {
    const std::pair<int, const char*> cases[] = {
        {1052, "Parlane"},     {2052, "Tonebridge"}, {3052, "Parlane"},
        {4052, "Parlane"},     {5052, "Parlane"},    {2030, "&Dialing"},
        {3014, "&Visualizza"}, {4014, "&Ansicht"},   {5000, "&Fichier"},
    };
    for (const auto& [id, text] : cases) EXPECT_EQ(Text(id), text) << id;
    for (int bank = 1; bank <= 5; ++bank)
        EXPECT_EQ(Text(sid::MenuGerman + (bank - 1) * 1000), "Deutsch") << bank;
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

}  // namespace
}  // namespace parlane
