#include "exchange/csv_line.h"

#include <gtest/gtest.h>

#include <random>

namespace parlane {
namespace {

std::string Joined(const ImportFields& f) {
    return f.Name + "|" + f.CountryCode + "|" + f.AreaCode + "|" + f.Number;
}

TEST(CsvLine, ParseImportLineGoesByPositionOnly) {
    const std::pair<std::string, std::string> cases[] = {
        {"\"Ann\",\"+44\",\"07\",\"1234\"", "Ann|+44|07|1234"},
        {"\"Smith, John\",\"44\",\"07\",\"1\"", "Smith, John|44|07|1"},
        {"\"\",\"\",\"\",\"\"", "|||"},
        // The first and last characters are dropped unseen.
        {"XAnn\",\"44\",\"07\",\"1234X", "Ann|44|07|1234"},
        {"\"Ann\",\"44\",\"07\",\"1234", "Ann|44|07|123"},
        // A blank after a comma shifts every later field.
        {"\"Ann\", \"44\",\"07\",\"1234\"", "Ann|||07\",\"1234"},
        // Failures leave the fields as they were.
        {"\"Ann\",\"44\",\"07\"", "keep|||"},
        {"Ann,44,07,1234", "keep|||"},
        {"\"", "keep|||"},
        {"", "keep|||"},
    };
    for (const auto& [line, joined] : cases) {
        ImportFields f{"keep", "", "", ""};
        EXPECT_EQ(ParseImportLine(line, f), joined != "keep|||") << line;
        EXPECT_EQ(Joined(f), joined) << line;
    }
}

TEST(CsvLine, NumbersKeepDigitsAndFoldHighCharacters) {
    const std::pair<int, int> codes[] = {
        {0, 32},   {47, 32},   {48, 48},   {57, 57},     {58, 32},     {127, 32}, {128, 32},
        {161, 33}, {233, 105}, {8364, 44}, {-32768, 32}, {32767, 127}, {-200, 56}};
    for (const auto& [code, result] : codes)
        EXPECT_EQ(SubstituteNumber(static_cast<std::int16_t>(code)), result) << code;

    // é is 233 and gives 'i'; the euro sign is 8364 and gives ','; U+0081 and U+00A0 go.
    const std::pair<std::string, std::string> numbers[] = {
        {"+44 (0)7802", "4407802"},
        {"0044", "0044"},
        {"\xE9\x80", "i,"},
        {"\x81\xA0", ""},
        {"1\xB9"
         "2",
         "192"},
        {"", ""},
    };
    for (auto [text, cleaned] : numbers) {
        FindNonNumber(text);
        EXPECT_EQ(text, cleaned);
    }
}

TEST(CsvLine, FileLinesEndAtCrLfCrOrLf) {
    const std::pair<std::string, std::vector<std::string>> files[] = {
        {"a\r\nb\r\n", {"a", "b"}},     {"a\nb", {"a", "b"}},       {"a\rb\r", {"a", "b"}},
        {"a\r\n\r\nb", {"a", "", "b"}}, {"a\n\rb", {"a", "", "b"}}, {"", {}},
    };
    for (const auto& [bytes, lines] : files) EXPECT_EQ(SplitFileLines(bytes), lines);
}

// Thousands of odd lines, some of 100,000 bytes: nothing crashes or hangs, four quoted fields
// without quotes inside come back whole, and a cleaned number holds only what it may.
TEST(CsvLine, ParseImportLineFuzz) {
    std::mt19937 random(20241122);
    const std::string alphabet = std::string("\",\" ,a1+\xE9\x80\x9D\xFF\r", 13) + '\0';
    auto text = [&](std::size_t maxLength, bool quotes) {
        std::string t(random() % (maxLength + 1), ' ');
        for (auto& c : t) do
                c = alphabet[random() % alphabet.size()];
            while (!quotes && c == '"');
        return t;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::size_t maxLength = i % 500 == 0 ? 100000 : 40;
        ImportFields f;
        const std::string line = text(maxLength, true);
        if (ParseImportLine(line, f)) {
            EXPECT_LE(Joined(f).size(), line.size() + 3);
            for (auto* number : {&f.CountryCode, &f.AreaCode, &f.Number}) {
                FindNonNumber(*number);
                for (unsigned char c : *number) EXPECT_TRUE(c > 32 && c < 128) << int(c);
            }
        }
        const ImportFields want{text(20, false), text(5, false), text(5, false),
                                text(maxLength / 4, false)};
        ASSERT_TRUE(ParseImportLine("\"" + want.Name + "\",\"" + want.CountryCode + "\",\"" +
                                        want.AreaCode + "\",\"" + want.Number + "\"",
                                    f));
        EXPECT_EQ(Joined(f), Joined(want));
    }
}

}  // namespace
}  // namespace parlane
