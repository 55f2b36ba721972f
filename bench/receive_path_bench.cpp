// One megabyte of centre text through each dialogue's receive path, in reads of 1000 bytes.
// Text that matches nothing is the worst case: the appending dialogues keep all of it.

#include <benchmark/benchmark.h>

#include <string>

#include "support/test_platform.h"

namespace parlane::bench {
namespace {

constexpr std::size_t kTotal = 1'000'000;
constexpr std::size_t kChunk = 1000;

std::string Filler() {
    // Words that are no prompt and no word a dialogue gives up on.
    std::string text;
    while (text.size() < kChunk) text += "lorem ipsum dolor amet, consectetur adipiscing \r\n";
    text.resize(kChunk);
    return text;
}

void BM_ReceivePath(benchmark::State& state) {
    const int protocol = static_cast<int>(state.range(0));
    const std::string chunk = Filler();
    for (auto _ : state) {
        state.PauseTiming();
        parlane::testing::TestPlatform p;
        p.writeProviders({parlane::testing::MakeProvider("Centre", protocol)});
        frmMain& f = p.load();
        parlane::testing::Compose(f, "text");
        f.mnuSend_Click();
        p.loop.advance(Milliseconds(4000));
        p.line.sendState(LINECALLSTATE_CONNECTED);
        p.loop.advance(Milliseconds(10));
        state.ResumeTiming();
        for (std::size_t sent = 0; sent < kTotal; sent += kChunk) {
            p.line.receive(chunk);
            p.loop.advance(Milliseconds(1));
        }
        state.PauseTiming();
        const bool stillUp = f.state.CallActive;
        const std::size_t kept =
            f.state.UcpDialogue ? f.state.UcpReceiveBuffer.size() : f.state.ReceiveBuffer.size();
        state.ResumeTiming();
        if (!stillUp) state.SkipWithError("the call ended: the filler matched something");
        benchmark::DoNotOptimize(kept);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kTotal));
}

BENCHMARK(BM_ReceivePath)
    ->ArgName("protocol")
    ->DenseRange(0, 5)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace
}  // namespace parlane::bench
