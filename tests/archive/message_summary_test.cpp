#include "archive/message_summary.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "archive/archive_listing.h"
#include "archive/message_file.h"
#include "support/temp_files.h"

namespace parlane {
namespace {

const FixedRegionalFormats kFormats;
const WallClockMs kWhen = FromCivil(2026, 1, 2, 10, 0, 0);

struct Written {
    std::string recipient, status, label, text;
};

std::string File(const Written& w) {
    return BuildMessageFile({kFormats.longDate(kWhen), kFormats.longTime(kWhen), w.status,
                             w.recipient, "Vodafone", w.label, w.text});
}

TEST(MessageSummary, WrittenFieldsComeBackWhateverTheMessageHolds) {
    const Written cases[] = {
        {"+447802123456", "Message Sent Successfully", "Message:", "See you at 8"},
        {"Anna Berg", "Aborted - Bob is not in Telephone Directory", "Message:", ""},
        // The header stands first, so labels inside the message text are never taken.
        {"Bob", "Message Rejected By SMSC", "Message:",
         "Date: \tMonday, 1 June 1999\r\nTime: \t00:00:00\r\nStatus: \tfake\r\nSent To: \tX"},
        {"+4930123", "Message Sending Timed Out", "Nachricht:", "Status:\r\nDate:\t"},
    };
    for (const auto& f : cases) {
        const auto s = ReadMessageSummary(File(f), "260102 100000-2.msg", kFormats);
        EXPECT_EQ(s.dateColumn, "02/01/2026 10:00:00") << f.text;
        EXPECT_EQ(s.recipient, f.recipient);
        EXPECT_EQ(s.status, f.status);
        EXPECT_EQ(s.sortKey, "260102 100000");
    }
}

TEST(MessageSummary, FilesOutsideTheFormatGiveWhatTheScanLeaves) {
    struct Case {
        std::string text, dateColumn, recipient, status;
    };
    const Case cases[] = {
        {"", " ", "", ""},
        {"hello\r\nworld", "hello hello", "hello", "hello"},
        // Another machine's date format cannot be read back and is shown as written.
        {"Date: \t2026-01-02\r\nTime: \t10:00\r\n", "2026-01-02 10:00", "2026-01-02",
         "Date: \t2026-01-02"},
        // A missing label skips only its own step: the TAB is then the first of the whole text.
        {"Time: \t10:00\r\nSent To: \tBob\r\n", "10:00 10:00", "Bob", "Time: \t10:00"},
        // The status is taken 9 characters behind its label, TAB or not.
        {"Status:ABCDEF\r\n", "Status:ABCDEF Status:ABCDEF", "Status:ABCDEF", "CDEF"},
        {"x Status:", "x Status: x Status:", "x Status:", ""},
        {"x Status: \t", " ", "", ""},
        {std::string("Sent To: \tB\0b\r\n", 15), std::string("B\0b B\0b", 7),
         std::string("B\0b", 3), std::string("Sent To: \tB\0b", 13)},
    };
    for (const auto& c : cases) {
        const auto s = ReadMessageSummary(c.text, "1.msg", kFormats);
        EXPECT_EQ(s.dateColumn, c.dateColumn) << c.text;
        EXPECT_EQ(s.recipient, c.recipient) << c.text;
        EXPECT_EQ(s.status, c.status) << c.text;
        EXPECT_EQ(s.sortKey, "1.msg");
    }
}

TEST(MessageSummary, AnyBytesGiveBoundedFieldsTakenFromTheText) {
    const std::string pieces[] = {
        "Date:", "Time:", "Status:", "Sent To:", "Message:",
        "\r",    "\n",    "\t",      " ",        "Friday, 2 January 2026"};
    std::mt19937 rng(7);
    for (int i = 0; i < 4000; ++i) {
        std::string text, name;
        for (int n = static_cast<int>(rng() % 12); n > 0; --n)
            text += rng() % 3 ? pieces[rng() % std::size(pieces)]
                              : std::string(1, static_cast<char>(rng()));
        for (int n = static_cast<int>(rng() % 20); n > 0; --n) name += static_cast<char>(rng());
        const auto s = ReadMessageSummary(text, name, kFormats);
        EXPECT_LE(s.sortKey.size(), 13u);
        EXPECT_EQ(s.dateColumn.find('\r'), std::string::npos);
        for (const std::string* field : {&s.recipient, &s.status}) {
            EXPECT_EQ(field->find('\r'), std::string::npos);
            EXPECT_NE(text.find(*field), std::string::npos) << *field;
        }
        ASSERT_FALSE(HasFailure()) << "input " << i;
    }
}

TEST(ArchiveListing, ListsMessageFilesInDateOrderAndCountsUnreadableOnes) {
    testing::TempFolder temp;
    const auto& folder = temp.path();
    std::filesystem::create_directories(folder / "x.msg");
    // Each file names itself as recipient, so every row shows it holds its own file's summary.
    for (const char* name : {"260102 100001.msg", "260102 100000.msg", "251231 235959.MSG",
                             "260102 100000-2.msg", "notes.txt"})
        std::ofstream(folder / name, std::ios::binary) << File({name, "Sent", "Message:", "hi"});

    std::size_t unreadable = 99;
    const auto rows = ListArchiveFolder(folder, kFormats, &unreadable);
    std::vector<std::string> got;
    for (const auto& row : rows) {
        EXPECT_EQ(row.summary.recipient, row.fileName);
        got.push_back(row.fileName);
    }
    EXPECT_EQ(got, (std::vector<std::string>{"251231 235959.MSG", "260102 100000-2.msg",
                                             "260102 100000.msg", "260102 100001.msg"}));
    EXPECT_EQ(unreadable, 1u);

    EXPECT_TRUE(ListArchiveFolder(folder / "gone", kFormats, &unreadable).empty());
    EXPECT_EQ(unreadable, 0u);
}

}  // namespace
}  // namespace parlane
