// SortSendBuffer alone, on the table PrepareNextBatch hands it.

#include <benchmark/benchmark.h>

#include <algorithm>

#include "bench_data.h"
#include "store/message_queue.h"

namespace parlane::bench {
namespace {

bool SortedByCentre(const MessageTable& table) {
    return std::is_sorted(table.begin() + 1, table.end(),
                          [](const QueuedMessage& a, const QueuedMessage& b) {
                              return a.ProviderIndex < b.ProviderIndex;
                          });
}

void BM_SortSendBuffer(benchmark::State& state) {
    const int centres = static_cast<int>(state.range(0));
    const MessageTable unsorted = MakeMessages(kRecords, centres);
    MessageTable table;
    for (auto _ : state) {
        state.PauseTiming();
        table = unsorted;
        state.ResumeTiming();
        int lo = 0, hi = 0;
        SortSendBuffer(table, lo, hi);
        benchmark::DoNotOptimize(table.data());
    }
    // A sort that did nothing would be fast too.
    if (!SortedByCentre(table)) state.SkipWithError("the table came back unsorted");
}
BENCHMARK(BM_SortSendBuffer)->ArgName("centres")->Arg(20)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlane::bench
