// The table files' records: their stored bytes, damage and noise, and the lookups in the tables.
// The send buffer's sort must give exactly what the procedure with its rescans gives, equal keys
// included; the transcription below keeps those rescans.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/string_ids.h"
#include "store/directory.h"
#include "store/message_queue.h"
#include "store/provider.h"
#include "store/queue_journal.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

std::string Hex(const std::string& hex) {
    std::string out;
    for (std::size_t i = 0; i + 1 < hex.size();) {
        if (hex[i] == ' ' || hex[i] == ',') {
            ++i;
            continue;
        }
        out += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
        i += 2;
    }
    return out;
}

Provider MakeCentre(const std::string& name) {
    Provider p;
    p.ProviderName = name;
    return p;
}

// The test centre with a device block of its own.
Provider TestCentre() {
    Provider p = testing::MakeProvider("Test");
    p.DevConfig = {0xAA, 0xBB};
    return p;
}

TEST(RecordFiles, ProviderAndQueueRecordsAreByteExact) {
    const std::string provider =
        Hex("04 00 54 65 73 74, 00 00, 01 00 30, 02 00 34 34, 02 00 30 37, 04 00 31 32 33 34, "
            "03 00 31 36 30, 00 00 00 00, 01 00 00 00, 01 00 30, "
            "01 00 02 00 00 00 00 00 00 00 AA BB, 01 00 33, 02 00 30 31");
    std::string error;
    EXPECT_EQ(SerializeProviderFile({TestCentre()}, error), provider);
    auto read = ParseProviderFile(provider);
    ASSERT_EQ(read.records.size(), 1u);
    EXPECT_EQ(read.records[0], TestCentre());
    EXPECT_FALSE(read.damaged);

    QueuedMessage m{"44", "07", "1234", "Hi", 1, 0, "Test"};
    MessageTable table = EmptyMessageTable();
    table.push_back(m);
    const std::string queue =
        std::string(18, '\0') + Hex("02 00 34 34, 02 00 30 37, 04 00 31 32 33 34, 02 00 48 69, "
                                    "01 00 00 00, 00 00 00 00, 04 00 54 65 73 74");
    EXPECT_EQ(SerializeQueueFile(table, error), queue);
    EXPECT_EQ(ParseQueueFile(queue).records, table);

    // An empty centre record is 30 bytes; a new smsc.dat reads as one such record.
    EXPECT_EQ(SerializeProviderFile({Provider{}}, error).size(), 30u);
    EXPECT_EQ(ParseProviderFile("").records, std::vector<Provider>{Provider{}});
}

TEST(RecordFiles, DamagedFilesKeepTheWholeRecordsBeforeTheDamage) {
    std::string error;
    MessageTable table = EmptyMessageTable();
    for (int i = 1; i <= 3; ++i)
        table.push_back({"44", "07", std::to_string(i), "text " + std::to_string(i), i, 0, "C"});
    const std::string bytes = SerializeQueueFile(table, error);
    std::vector<std::size_t> boundaries = {0};
    RecordReader probe(bytes);
    for (QueuedMessage skip; ReadQueuedMessage(probe, skip);)
        boundaries.push_back(probe.position());
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        auto read = ReadRecordTable<QueuedMessage>(std::string_view(bytes).substr(0, cut),
                                                   ReadQueuedMessage);
        // A cut exactly between records is a shorter, healthy file.
        const auto whole =
            std::upper_bound(boundaries.begin(), boundaries.end(), cut) - boundaries.begin() - 1;
        EXPECT_EQ(read.damaged, cut != boundaries[static_cast<std::size_t>(whole)]) << cut;
        EXPECT_EQ(read.records.size(), static_cast<std::size_t>(whole)) << cut;
    }
    // A byte array with an impossible dimension count or length is damage, not a crash.
    for (const std::string& array : {Hex("02 00"), Hex("01 00 FF FF FF 7F 00 00 00 00 AA")}) {
        std::vector<std::uint8_t> out;
        RecordReader reader(array);
        EXPECT_FALSE(reader.readByteArray(out));
        EXPECT_TRUE(reader.damaged());
    }
}

TEST(QueueJournal, RoundTripOldFormCutsAndNoise) {
    QueueJournal journal;
    journal.pending.push_back({"44", "07", "1", "waiting", 1, 0, "C"});
    journal.finished.push_back({{"44", "07", "2", "gone", 2, 1, "C"},
                                "261124 101500-2.msg",
                                std::string(70000, 'x') + "\r\n"});
    std::string error;
    const std::string bytes = SerializeQueueJournal(journal, error);
    const auto read = ParseQueueJournal(bytes);
    EXPECT_EQ(read.pending, journal.pending);
    EXPECT_EQ(read.finished, journal.finished);
    EXPECT_FALSE(read.damaged || read.legacy);

    // An earlier version wrote queue.dat's form.
    const auto legacy = ParseQueueJournal(SerializeQueueFile(journal.pending, error));
    EXPECT_TRUE(legacy.legacy);
    EXPECT_EQ(legacy.pending, journal.pending);

    // Every cut keeps what came before it and is damage; noise never crashes.
    const std::size_t pendingEnd =
        SerializeQueueJournal(QueueJournal{journal.pending, {}}, error).size() - 4;
    for (std::size_t cut = 1; cut < bytes.size(); cut += cut < 200 ? 1 : 997) {
        const auto part = ParseQueueJournal(std::string_view(bytes).substr(0, cut));
        EXPECT_TRUE(part.damaged) << cut;
        EXPECT_EQ(UpperBound(part.pending), cut >= pendingEnd ? 1 : 0) << cut;
        EXPECT_TRUE(part.finished.empty()) << cut;
    }
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        std::string noise = bytes.substr(0, 27 + random() % 80);
        for (int flips = 0; flips < 4; ++flips)
            noise[random() % noise.size()] = static_cast<char>(random());
        ParseQueueJournal(noise);
    }
}

// Every byte value in a string: TableJson.EveryByteValueSurvivesInStringsAndByteBlocks.
TEST(RecordFiles, TooLongStringsAreRefused) {
    EXPECT_TRUE(RecordWriter().writeString(std::string(65535, 'x')));
    RecordWriter tooLong;
    EXPECT_FALSE(tooLong.writeString(std::string(65536, 'x')));
    EXPECT_TRUE(tooLong.bytes().empty());
    std::string error;
    MessageTable table = EmptyMessageTable();
    table.push_back({"44", "07", "1", std::string(70000, 'y'), 1, 0, "C"});
    EXPECT_TRUE(SerializeQueueFile(table, error).empty());
    EXPECT_FALSE(error.empty());
}

TEST(Providers, SortLookupAndDefaults) {
    std::vector<Provider> table = {MakeCentre("Gamma"), MakeCentre("Beta"), MakeCentre("alpha")};
    SortProviders(table);
    ASSERT_EQ(table.size(), 3u);
    EXPECT_EQ(table[0].ProviderName, "alpha");
    EXPECT_EQ(table[1].ProviderName, "Beta");
    EXPECT_EQ(table[2].ProviderName, "Gamma");
    EXPECT_EQ(CompareProviders(MakeCentre("\xC9tat"), MakeCentre("\xE9TAT")), 0);

    const std::vector<Provider> centres = {MakeCentre("Test"), MakeCentre("Test 2")};
    EXPECT_EQ(FindCenterByPrefix(centres, "Test 2"), 0);
    EXPECT_EQ(FindCenterByPrefix(centres, "Tes"), -1);
    EXPECT_EQ(FindCenterByPrefix(centres, "test"), -1);
    EXPECT_EQ(FindCenterByPrefix(centres, ""), -1);
    // The empty record of a missing file is a prefix of every name, yet takes no message.
    EXPECT_EQ(FindCenterByPrefix({MakeCentre(""), MakeCentre("X")}, "X"), 1);
    EXPECT_EQ(FindCenterByPrefix({MakeCentre("X"), MakeCentre("")}, ""), -1);

    DefModem(table, 2);
    for (const auto& p : table) EXPECT_EQ(p.TapiDevice, "2");
    EXPECT_EQ(DefaultCentreName(true, true), "Telstra Australia");
    EXPECT_EQ(DefaultCentreName(true, false), "TIM Italy");
    EXPECT_EQ(DefaultCentreName(false, false), "BT Cellnet UK");
}

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
    EXPECT_EQ(CountryDialCode("Georgia"), "995");
    EXPECT_EQ(CountryDialCode("georgia"), "");  // the list's own spelling only

    for (const char* fine : {"Staff", "Family & friends", "A.B", "\xC9quipe"})
        EXPECT_EQ(GroupNameProblem(fine), 0) << fine;
    for (const char* bad :
         {"group", "GROUP", "smsc", "Phones", "queue", "a/b", "a\\b", "..", ".", "tab\there"})
        EXPECT_EQ(GroupNameProblem(bad), sid::GroupNameNotAllowed) << bad;
    EXPECT_EQ(GroupNameProblem(std::string(201, 'x')), sid::GroupNameNotAllowed);
}

void Swap(MessageTable& a, int x, int y) {
    const QueuedMessage t = a[static_cast<std::size_t>(x)];
    a[static_cast<std::size_t>(x)] = a[static_cast<std::size_t>(y)];
    a[static_cast<std::size_t>(y)] = t;
}

void LiteralSort(MessageTable& a, int& lo, int& hi) {
    if (lo == 0 && hi == 0) {
        lo = 0;
        hi = static_cast<int>(a.size()) - 1;
    }
    if (lo > hi) return;
    const auto at = [&](int k) -> QueuedMessage& { return a[static_cast<std::size_t>(k)]; };
    if (hi - lo == 1) {
        if (CompareByProviderIndex(at(lo), at(hi)) > 0) Swap(a, lo, hi);
        return;
    }
    const QueuedMessage pivot = at(hi);
    int i, j;
    do {
        i = lo;
        j = hi;
        while (i < j && CompareByProviderIndex(at(i), pivot) <= 0) ++i;
        while (j > i && CompareByProviderIndex(at(j), pivot) >= 0) --j;
        if (i < j) Swap(a, i, j);
    } while (i < j);
    Swap(a, i, hi);
    int l1 = lo, h1 = i - 1, l2 = i + 1, h2 = hi;
    if (i - lo < hi - i) {
        LiteralSort(a, l1, h1);
        LiteralSort(a, l2, h2);
    } else {
        LiteralSort(a, l2, h2);
        LiteralSort(a, l1, h1);
    }
}

TEST(SortSendBuffer, GivesExactlyTheResultOfTheProcedureAsWritten) {
    std::mt19937 random(20261122);
    for (int round = 0; round < 3000; ++round) {
        const int size = 1 + static_cast<int>(random() % 60);
        const int centres = 1 + static_cast<int>(random() % 6);
        MessageTable table(static_cast<std::size_t>(size));
        for (int k = 0; k < size; ++k) {
            table[static_cast<std::size_t>(k)].MessageNumber = k;
            table[static_cast<std::size_t>(k)].ProviderIndex =
                static_cast<int>(random() % static_cast<unsigned>(centres));
        }
        // Usually with the lowest key at 0, as the run's marker is; sometimes not.
        if (round % 4 != 0) table[0].ProviderIndex = 0;
        MessageTable expected = table;
        int lo = 0, hi = 0, elo = 0, ehi = 0;
        LiteralSort(expected, elo, ehi);
        SortSendBuffer(table, lo, hi);
        ASSERT_EQ(table, expected) << "round " << round;
        for (std::size_t k = 1; k < table.size(); ++k)
            ASSERT_LE(table[k - 1].ProviderIndex, table[k].ProviderIndex);
    }
}

}  // namespace
}  // namespace parlane
