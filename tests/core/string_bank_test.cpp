// The English bank: the shape FindBankString relies on, and texts that window data and the
// engine's status comparisons depend on.
#include "core/string_bank.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "core/string_ids.h"

namespace parlane {
namespace {

bool InUse(int id) {
    constexpr std::pair<int, int> kRanges[] = {
        {1000, 1014}, {1020, 1024}, {1028, 1149}, {1151, 1160}, {1163, 1181},
        {1183, 1192}, {1196, 1223}, {1225, 1228}, {1232, 1232}, {1234, 1240},
        {1242, 1365}, {1929, 1932}, {1943, 1943}, {1948, 1963}};
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

// Texts that no other test shows through the windows or the engine.
TEST(Bank1, FixedIdsAndNamedIdsCarryTheirTexts) {
    const std::pair<int, const char*> cases[] = {
        {1225, "in Queue"},
        {1243, "Unknown"},
        {1324, "Message:"},
        {1029, "&Modems"},
        {1125, "Default Modem"},
        {1365, "Monitor SMSC"},
        {1931, "Originator Identification"},
        {sid::MenuModems, "&Properties"},
        {sid::AbortedUnableToOpenLine, "Aborted - Unable to Open Line, Re-Starting Tapi"},
        {sid::DisclaimerCallingDevices,
         "This software controls external calling devices such as modems.  No liability is "
         "admitted for any failure to set up or clear such calls"},
    };
    for (const auto& [id, text] : cases) EXPECT_EQ(Text(id), text) << id;
}

TEST(Bank1, QueueStatusLinesContainTheWordsQueueByNameLooksFor) {
    // Queuing by name starts a run only when the status line holds string 1225.
    const std::string inQueue = Text(sid::InQueue);
    EXPECT_NE(Text(sid::MessageInQueue).find(inQueue), std::string::npos);
    EXPECT_NE(Text(sid::MessagesInQueue).find(inQueue), std::string::npos);
}

TEST(Bank1, AccentedTextIsWindows1252) {
    const std::string french = Text(sid::MenuFrench);
    ASSERT_EQ(french.size(), 8u);
    EXPECT_EQ(static_cast<unsigned char>(french[4]), 0xE7);
}

}  // namespace
}  // namespace parlane
