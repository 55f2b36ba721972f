// One UCP message in real time, from the tick that dials to the centre's acknowledgement in the
// archive: through the simulated modem (line 0), and over a loopback TCP centre plain (1) and
// with TLS (2). The figure is wall time; the program's own waits in it are listed in
// docs/benchmarks.md.

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>

#include "line/device_list.h"
#include "support/loopback_centre.h"
#include "support/real_time_loop.h"
#include "support/test_platform.h"

namespace parlane::bench {
namespace {

using Clock = std::chrono::steady_clock;

void BM_OneUcpMessageFromDialToAcknowledgement(benchmark::State& state) {
    const int line = static_cast<int>(state.range(0));
    const testing::TestCertificate cert("IP:127.0.0.1");
    for (auto _ : state) {
        testing::TestPlatform p;
        testing::RealTimeLoop loop;
        SimulatedModem simulated(loop);
        DeviceList devices(loop, simulated, "", "", AtModemOptions{}, {});
        devices.tcp().setExtraTrustFile(cert.certFile);
        std::unique_ptr<testing::LoopbackCentre> server;
        auto centre = testing::MakeProvider("Centre", ProtocolUcp, "3");
        centre.Number = "100101";
        if (line > 0) {
            const bool tls = line == 2;
            server = std::make_unique<testing::LoopbackCentre>(testing::LoopbackCentre::Options{
                "127.0.0.1", "100101", tls ? cert.certFile : "", tls ? cert.keyFile : "", 0});
            centre.TapiDevice = "1";
            centre.DevConfig = EncodeTcpConfig({"127.0.0.1", server->port(), 5, tls, true});
        }
        p.writeProviders({centre});
        frmMain form(Platform{loop, p.settings, p.dialogues, p.formats, devices, devices, p.home},
                     p.globals);
        form.Form_Load();
        testing::Compose(form, "One message");
        form.mnuQueue_Click();
        form.mnuSend_Click();
        const auto dialled = [&] {
            return form.debugLog.text().find("lineMakeCall") != std::string::npos;
        };
        if (!loop.runUntil(dialled)) state.SkipWithError("no dial");
        const auto start = Clock::now();
        if (!loop.runUntil([&] { return !p.archiveFiles().empty(); }))
            state.SkipWithError("no acknowledgement");
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        loop.runUntil([&] { return form.lblEvent == "1"; });
    }
}

BENCHMARK(BM_OneUcpMessageFromDialToAcknowledgement)
    ->ArgName("line")
    ->DenseRange(0, 2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace
}  // namespace parlane::bench
