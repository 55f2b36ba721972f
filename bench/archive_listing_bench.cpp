// The message list of an archive folder of 10,000 files: the whole listing (directory scan, one
// read per file, summary, sort), and the summaries alone over texts already in memory, so the
// two figures say how much of the time is the file system's.

#include <benchmark/benchmark.h>

#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "archive/archive_listing.h"
#include "archive/message_file.h"
#include "archive/message_summary.h"
#include "bench_data.h"

namespace parlane::bench {
namespace {

const FixedRegionalFormats kFormats;

struct ArchiveFile {
    std::string name, content;
};

// A busy sender's Outbox: messages a few seconds to two minutes apart, some within the same
// second (named as the writer names them), mostly sent, to names and numbers, texts of 1 to 160
// bytes with the odd line break.
std::vector<ArchiveFile> MakeArchive() {
    static const char* const kStatuses[] = {"Message Sent Successfully",
                                            "Message Sent Successfully",
                                            "Message Sent Successfully",
                                            "Message Rejected By SMSC",
                                            "Message Sending Timed Out",
                                            "Aborted - User Pressed Stop",
                                            "Aborted - Maximum Dial Attempts Exceeded"};
    std::mt19937 random(kSeed);
    const MessageTable messages = MakeMessages(kRecords, 20);
    std::vector<ArchiveFile> files;
    WallClockMs when = FromCivil(2026, 1, 2, 9, 0, 0);
    std::string previousStamp;
    int sameSecond = 1;
    for (std::size_t i = 1; i < messages.size(); ++i) {
        const QueuedMessage& m = messages[i];
        when += static_cast<WallClockMs>(random() % 120) * 1000;
        const std::string stamp = ArchiveTimeStamp(when);
        sameSecond = stamp == previousStamp ? sameSecond + 1 : 1;
        previousStamp = stamp;

        MessageFileFields f;
        f.dateText = kFormats.longDate(when);
        f.timeText = kFormats.longTime(when);
        f.status = kStatuses[random() % std::size(kStatuses)];
        f.recipient = i % 3 == 0 ? "Contact " + std::to_string(i % 500) : RecipientNumberText(m);
        f.centreName = m.ProviderName;
        f.messageLabel = "Message:";
        f.text = m.Text.substr(0, 1 + random() % 160);
        if (f.text.size() > 60 && random() % 4 == 0) f.text.insert(40, "\r\n");
        files.push_back({stamp + (sameSecond == 1 ? "" : "-" + std::to_string(sameSecond)) + ".msg",
                         BuildMessageFile(f)});
    }
    return files;
}

// Written once for all runs: writing 10,000 files takes longer than listing them.
const std::filesystem::path& ArchiveFolder() {
    static ScratchFolder folder;
    static const bool written = [] {
        for (const auto& file : MakeArchive())
            std::ofstream(folder.path() / file.name, std::ios::binary) << file.content;
        return true;
    }();
    (void)written;
    return folder.path();
}

void BM_ArchiveListFolder(benchmark::State& state) {
    const auto& folder = ArchiveFolder();
    for (auto _ : state) {
        std::size_t unreadable = 0;
        const auto rows = ListArchiveFolder(folder, kFormats, &unreadable);
        // A listing that missed files would be fast too.
        if (rows.size() != static_cast<std::size_t>(kRecords) || unreadable != 0) {
            state.SkipWithError("the listing did not hold every file");
            break;
        }
        benchmark::DoNotOptimize(rows.data());
    }
    state.SetItemsProcessed(state.iterations() * kRecords);
}

void BM_ArchiveSummaries(benchmark::State& state) {
    const auto files = MakeArchive();
    for (auto _ : state) {
        for (const auto& file : files) {
            auto summary = ReadMessageSummary(file.content, file.name, kFormats);
            benchmark::DoNotOptimize(summary);
        }
    }
    state.SetItemsProcessed(state.iterations() * kRecords);
}

BENCHMARK(BM_ArchiveListFolder)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ArchiveSummaries)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlane::bench
