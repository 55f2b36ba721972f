#include "store/directory.h"

#include <gtest/gtest.h>

#include "core/string_ids.h"

namespace parlane {
namespace {

TEST(Directory, FilesAreByteExact) {
    std::string error;
    const DirectoryEntry ann{"Ann", "44", "07", "1234", ""};
    const std::string phones(
        "\x03\x00"
        "Ann\x02\x00"
        "44\x02\x00"
        "07\x04\x00"
        "1234\x00\x00",
        21);
    EXPECT_EQ(SerializeDirectoryFile({ann}, error), phones);
    EXPECT_EQ(ParseDirectoryFile(phones).records, std::vector<DirectoryEntry>{ann});
    EXPECT_TRUE(ParseDirectoryFile("").records.empty());

    EXPECT_EQ(SerializeNameListFile({"Staff"}, error), std::string("\x05\x00Staff", 7));
    const std::string members(
        "\x03\x00"
        "Ann\x03\x00"
        "Bob",
        10);
    EXPECT_EQ(SerializeNameListFile({"Ann", "Bob"}, error), members);
    EXPECT_EQ(ParseNameListFile(members).records, (std::vector<std::string>{"Ann", "Bob"}));
}

TEST(Directory, LookupsByNameAndByNumber) {
    const std::vector<DirectoryEntry> d = {{"Ann", "44", "07", "1234", ""},
                                           {"ANN", "44", "07", "999", ""},
                                           {"\xC9lise", "33", "06", "1", "Orange"}};
    EXPECT_EQ(FindName(d, "ann"), 0);  // the first in table order wins
    EXPECT_EQ(FindName(d, "\xE9LISE"), 2);
    EXPECT_EQ(FindName(d, "An"), -1);
    EXPECT_EQ(FindName({}, "Ann"), -1);
    EXPECT_EQ(FindNameByNumber(d, "44", "07", "999"), "ANN");
    EXPECT_EQ(FindNameByNumber(d, "44", "7", "999"), "");
    EXPECT_EQ(FindNameByNumber({}, "44", "07", "999"), "");
}

TEST(Directory, CountryTableAndGroupNames) {
    EXPECT_EQ(CountryTable().size(), 242u);
    EXPECT_EQ(CountryDialCode("Italy"), "39");
    EXPECT_EQ(CountryDialCode("Vatican City"), "39");
    EXPECT_EQ(CountryDialCode("United Kingdom"), "44");
    EXPECT_EQ(CountryDialCode("Georgia"), "995");
    EXPECT_EQ(CountryDialCode("italy"), "");

    for (const char* fine : {"Staff", "Family & friends", "A.B", "\xC9quipe"})
        EXPECT_EQ(GroupNameProblem(fine), 0) << fine;
    for (const char* bad :
         {"group", "GROUP", "smsc", "Phones", "queue", "a/b", "a\\b", "..", ".", "tab\there"})
        EXPECT_EQ(GroupNameProblem(bad), sid::GroupNameNotAllowed) << bad;
    EXPECT_EQ(GroupNameProblem(std::string(201, 'x')), sid::GroupNameNotAllowed);
}

}  // namespace
}  // namespace parlane
