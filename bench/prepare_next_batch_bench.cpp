// PrepareNextBatch on the main window, with 10,000 queued messages.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench_data.h"
#include "support/test_platform.h"

namespace parlane::bench {
namespace {

// What the run needs: every message moved over, none left behind, the batch in centre order.
bool BatchIsWhole(const frmMain& form) {
    if (UpperBound(form.SendBuffer) != kRecords || UpperBound(form.QueueBuffer) != 0 ||
        !form.MessageQueue.rows.empty())
        return false;
    return std::is_sorted(form.SendBuffer.begin() + 1, form.SendBuffer.end(),
                          [](const QueuedMessage& a, const QueuedMessage& b) {
                              return a.ProviderIndex < b.ProviderIndex;
                          });
}

void BM_PrepareNextBatch(benchmark::State& state) {
    const int centres = static_cast<int>(state.range(0));
    parlane::testing::TestPlatform platform;
    platform.writeProviders(MakeProviders(centres));
    frmMain& form = platform.load();
    if (static_cast<int>(form.Providers.size()) != centres) {
        state.SkipWithError("smsc.dat did not load");
        return;
    }

    MessageTable messages = MakeMessages(kRecords, centres);
    std::vector<std::string> rows;
    rows.reserve(messages.size());
    for (auto& m : messages) {
        // The lookup sets the index; a stale one must not help the sort.
        m.ProviderIndex = 0;
        rows.push_back(m.ProviderName + " " + m.CountryCode + " " + m.AreaCode + " " + m.Number);
    }
    rows.erase(rows.begin());  // element 0 has no row

    for (auto _ : state) {
        state.PauseTiming();
        form.QueueBuffer = messages;
        form.MessageQueue.rows = rows;
        form.SendBuffer = EmptyMessageTable();
        state.ResumeTiming();
        const bool prepared = form.PrepareNextBatch();
        state.PauseTiming();
        // A batch cut short by an unknown centre returns early and would look fast.
        if (!prepared || !BatchIsWhole(form)) {
            state.SkipWithError("the batch was not prepared whole");
            break;
        }
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PrepareNextBatch)->ArgName("centres")->Arg(20)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlane::bench
