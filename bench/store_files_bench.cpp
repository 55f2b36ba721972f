// Loading and saving smsc.dat and queue.dat of 10,000 records: the read, the parse, the
// serialization and the atomic write are timed apart, so each figure says where its time goes.

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "bench_data.h"
#include "core/file_io.h"
#include "store/message_queue.h"
#include "store/provider.h"

namespace parlane::bench {
namespace {

struct SmscDat {
    static constexpr const char* kFile = "smsc.dat";
    static std::vector<Provider> Table() { return MakeProviders(kRecords); }
    static std::size_t Parse(std::string_view bytes) {
        const auto table = ParseProviderFile(bytes);
        return table.damaged ? 0 : table.records.size();
    }
    static std::string Serialize(const std::vector<Provider>& table, std::string& error) {
        return SerializeProviderFile(table, error);
    }
};

struct QueueDat {
    static constexpr const char* kFile = "queue.dat";
    static MessageTable Table() { return MakeMessages(kRecords, 20); }
    static std::size_t Parse(std::string_view bytes) {
        const auto table = ParseQueueFile(bytes);
        return table.damaged ? 0 : table.records.size();
    }
    static std::string Serialize(const MessageTable& table, std::string& error) {
        return SerializeQueueFile(table, error);
    }
};

// The file's bytes, or empty after reporting the failure.
template <typename File>
std::string FileBytes(benchmark::State& state) {
    std::string error;
    std::string bytes = File::Serialize(File::Table(), error);
    if (!error.empty()) state.SkipWithError(error.c_str());
    return bytes;
}

template <typename File>
void BM_Serialize(benchmark::State& state) {
    const auto table = File::Table();
    std::string error;
    std::size_t size = 0;
    for (auto _ : state) {
        const std::string bytes = File::Serialize(table, error);
        size = bytes.size();
        benchmark::DoNotOptimize(bytes.data());
    }
    if (!error.empty()) state.SkipWithError(error.c_str());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}

template <typename File>
void BM_Parse(benchmark::State& state) {
    const std::string bytes = FileBytes<File>(state);
    const std::size_t expected = File::Table().size();
    for (auto _ : state) {
        // A parse that stops early would be fast too.
        if (File::Parse(bytes) != expected) {
            state.SkipWithError("the file did not read back whole");
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

template <typename File>
void BM_ReadFile(benchmark::State& state) {
    ScratchFolder folder;
    const auto path = folder.path() / File::kFile;
    const std::string bytes = FileBytes<File>(state);
    if (const auto error = WriteFileAtomically(path, bytes); !error.empty()) {
        state.SkipWithError(error.c_str());
        return;
    }
    for (auto _ : state) {
        const auto read = ReadWholeFile(path);
        if (!read || read->size() != bytes.size()) {
            state.SkipWithError("the file did not read back whole");
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

// Mostly the wait for fsync, so wall time is what counts.
template <typename File>
void BM_WriteAtomically(benchmark::State& state) {
    ScratchFolder folder;
    const auto path = folder.path() / File::kFile;
    const std::string bytes = FileBytes<File>(state);
    for (auto _ : state) {
        if (const auto error = WriteFileAtomically(path, bytes); !error.empty()) {
            state.SkipWithError(error.c_str());
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

BENCHMARK_TEMPLATE(BM_ReadFile, SmscDat)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Parse, SmscDat)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Serialize, SmscDat)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_WriteAtomically, SmscDat)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_TEMPLATE(BM_ReadFile, QueueDat)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Parse, QueueDat)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Serialize, QueueDat)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_WriteAtomically, QueueDat)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace parlane::bench
