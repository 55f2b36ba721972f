// The command as support staff run it: exit codes, messages and files left alone on refusal.
#include "parlane-data/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "core/file_io.h"
#include "support/temp_files.h"

namespace parlane::data {
namespace {

namespace fs = std::filesystem;

class DataToolCommand : public ::testing::Test {
  protected:
    int Run(const std::vector<std::string>& args, const std::string& input = "") {
        std::istringstream in(input);
        out_.str("");
        err_.str("");
        return RunDataTool(args, in, out_, err_);
    }
    std::string Path(const char* name) const { return (dir_.path() / name).string(); }

    parlane::testing::TempFolder dir_;
    std::ostringstream out_, err_;
};

TEST_F(DataToolCommand, ShowPrintsWhatItCouldReadThenTheDamage) {
    ASSERT_EQ(WriteFileAtomically(Path("friends.dat"), std::string("\x01\0A\x05\0B", 6)), "");
    EXPECT_EQ(Run({"show", Path("friends.dat")}), kExitBadData);
    EXPECT_EQ(out_.str(), "{\"GroupMember\":\"A\"}\n");
    EXPECT_EQ(err_.str(), Path("friends.dat") + ": damaged after record 1 (byte 3 of 6)\n");

    ASSERT_EQ(WriteFileAtomically(Path("smsc.dat"), ""), "");
    EXPECT_EQ(Run({"show", Path("smsc.dat")}), 0);
    EXPECT_EQ(out_.str() + err_.str(), "");
    EXPECT_EQ(Run({"show", Path("missing.dat")}), kExitBadData);
}

TEST_F(DataToolCommand, WriteReplacesTheFileOnlyWhenEveryLineIsGood) {
    const std::string file = Path("phones.dat");
    ASSERT_EQ(WriteFileAtomically(file, "old"), "");
    EXPECT_EQ(Run({"write", "directory", file}, "{\"Name\":\"A\"}\n{\"Name\":7}\n"), kExitBadData);
    EXPECT_NE(err_.str().find("line 2"), std::string::npos) << err_.str();
    EXPECT_EQ(ReadWholeFile(file), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_.path()), fs::directory_iterator()), 1);

    EXPECT_EQ(Run({"write", "directory", file}, "{\"Number\":\"5\"}\n"), 0);
    EXPECT_EQ(ReadWholeFile(file), std::string("\0\0\0\0\0\0\x01\0"
                                               "5\0\0",
                                               11));
}

// queue.dat's first record is skipped by the program: a message given first gets an empty
// record in front of it, said on standard error; input that starts with one is kept as it is.
TEST_F(DataToolCommand, AQueueNeverStartsWithAMessage) {
    const std::string file = Path("queue.dat");
    const std::string empty = R"({"Text":""})", message = R"({"Text":"hi","MessageNumber":1})";
    for (const auto& [input, note] :
         {std::pair{message + "\n", true}, {"\n" + empty + "\n" + message + "\n", false}}) {
        EXPECT_EQ(Run({"write", "queue", file}, input), 0);
        EXPECT_EQ(err_.str().find("line " + std::string(note ? "1" : "2") + " is a message") !=
                      std::string::npos,
                  note)
            << err_.str();
        EXPECT_EQ(Run({"show", file}), 0);
        const std::string shown = out_.str();
        const auto firstEnd = shown.find('\n');
        EXPECT_NE(shown.substr(0, firstEnd).find(R"("Text":"",)"), std::string::npos) << shown;
        EXPECT_NE(shown.substr(firstEnd).find(R"("Text":"hi",)"), std::string::npos) << shown;
        EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 2);
    }
}

TEST_F(DataToolCommand, UsageErrorsExitWithOne) {
    const std::vector<std::vector<std::string>> cases = {{},
                                                         {"frob"},
                                                         {"show"},
                                                         {"show", "notes.txt"},
                                                         {"show", "a.dat", "--kind", "phone"},
                                                         {"show", "a.dat", "--kind"},
                                                         {"show", "a.dat", "b.dat"},
                                                         {"write", "sms", "smsc.dat"}};
    for (const auto& args : cases) {
        EXPECT_EQ(Run(args), kExitUsage) << ::testing::PrintToString(args);
        EXPECT_NE(err_.str().find("usage:"), std::string::npos);
    }
}

}  // namespace
}  // namespace parlane::data
