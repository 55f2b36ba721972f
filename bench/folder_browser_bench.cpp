// The folder browser on an Outbox of 100,000 messages: from the click on the folder to the
// first screen of the list (the rows a window shows, 30), and a change of the sort column.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "archive/frm_folders.h"
#include "support/test_platform.h"

namespace parlane::bench {
namespace {

constexpr int kFiles = 100000;
constexpr int kFirstScreen = 30;

struct NoTrash : ShellFileOperations {
    std::string Delete(const std::vector<std::filesystem::path>&) override { return {}; }
};

// One home for all the figures: writing 100,000 files takes a while.
parlane::testing::TestPlatform& Home() {
    static parlane::testing::TestPlatform platform;
    static bool filled = false;
    if (!filled) {
        platform.load();
        const auto outbox = platform.home / "SMS" / "Outbox";
        for (int i = 0; i < kFiles; ++i) {
            // One message a second, from 1 January on.
            char name[32];
            std::snprintf(name, sizeof name, "2601%02d %02d%02d%02d.msg", 1 + i / 86400,
                          i / 3600 % 24, i / 60 % 60, i % 60);
            std::ofstream(outbox / name, std::ios::binary)
                << "Date: \tx\r\nTime: \tx\r\nStatus: \tMessage Sent Successfully\r\nSent "
                   "To: \tName "
                << i % 997 << "\r\nUsing: \tC SMSC\r\n\r\nMessage: \r\n\r\nHello\r\n";
        }
        filled = true;
    }
    return platform;
}

void BM_OpenFolderFirstScreen(benchmark::State& state) {
    auto& platform = Home();
    NoTrash shell;
    for (auto _ : state) {
        frmFolders browser(*platform.main, shell);
        browser.Form_Load();
        browser.tvwView_NodeClick(2);  // the Outbox
        for (int row = 0; row < kFirstScreen; ++row) benchmark::DoNotOptimize(browser.Summary(row));
        if (browser.rows.size() != static_cast<std::size_t>(kFiles))
            state.SkipWithError("not every file listed");
    }
}
BENCHMARK(BM_OpenFolderFirstScreen)->Unit(benchmark::kMillisecond);

void BM_ChangeSortColumn(benchmark::State& state) {
    auto& platform = Home();
    NoTrash shell;
    frmFolders browser(*platform.main, shell);
    browser.Form_Load();
    browser.tvwView_NodeClick(2);
    const int column = static_cast<int>(state.range(0));
    browser.lstData_ColumnClick(column);  // the first "To:" reads every summary once
    for (auto _ : state) browser.lstData_ColumnClick(column);
}
BENCHMARK(BM_ChangeSortColumn)
    ->Arg(frmFolders::ColumnDate)
    ->Arg(frmFolders::ColumnTo)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace parlane::bench
