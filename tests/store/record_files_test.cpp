#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "store/message_queue.h"
#include "store/provider.h"
#include "store/queue_journal.h"

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

Provider TestCentre() {
    Provider p;
    p.ProviderName = "Test";
    p.TapiDevice = "0";
    p.CountryCode = "44";
    p.AreaCode = "07";
    p.Number = "1234";
    p.MaxChars = "160";
    p.Protocol = ProtocolTap;
    p.MultiMessage = 1;
    p.AllowASCII = "0";
    p.DevConfig = {0xAA, 0xBB};
    p.MaxMessages = "3";
    p.UCPOperation = "01";
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

}  // namespace
}  // namespace parlane
