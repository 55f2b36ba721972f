// The CSV import at scale: 100,000 lines into a directory of 10,000 entries, through the wizard
// as the user runs it (opening reads phones.dat, Open reads the file, Import takes the lines and
// writes phones.bak and phones.dat).

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "bench_data.h"
#include "core/file_io.h"
#include "core/strings.h"
#include "exchange/csv_line.h"
#include "exchange/frm_import.h"
#include "store/directory.h"

namespace parlane::bench {
namespace {

constexpr int kLines = 100000;

class SilentDialogues : public DialogueHost {
  public:
    int messageBox(const std::string&, int, const std::string&) override { return AnswerOk; }
    std::string inputBox(const std::string&, const std::string&, const std::string&) override {
        return {};
    }
};

class FixedFile : public OpenFileChooser {
  public:
    explicit FixedFile(std::filesystem::path file) : file_(std::move(file)) {}
    std::optional<std::filesystem::path> chooseOpenFile(const std::string&,
                                                        const std::filesystem::path&,
                                                        const std::string&,
                                                        const std::string&) override {
        return file_;
    }

  private:
    std::filesystem::path file_;
};

std::string PersonName(int index) {
    return "Person " + std::to_string(index) + " Smith";
}

std::vector<DirectoryEntry> MakeDirectory(int count) {
    std::vector<DirectoryEntry> entries;
    for (int i = 0; i < count; ++i)
        entries.push_back({PersonName(i), "44", "07", std::to_string(700000 + i), ""});
    return entries;
}

// One line in ten names an entry of the directory in capitals, one in ten repeats a name
// earlier in the file; the rest are new.
std::string MakeCsv(int lines) {
    std::mt19937 random(kSeed);
    std::string csv(kCsvHeaderLine);
    for (int i = 0; i < lines; ++i) {
        std::string name;
        switch (i % 10) {
            case 0:
                name = "PERSON " + std::to_string(random() % kRecords) + " SMITH";
                break;
            case 1:
                name = PersonName(kRecords + static_cast<int>(random() % (i + 1)));
                break;
            default:
                name = PersonName(kRecords + i);
        }
        csv +=
            "\"" + name + "\",\"+44\",\"(0)7\",\"" + std::to_string(random() % 10000000) + "\"\r\n";
    }
    return csv;
}

void BM_ImportWizard(benchmark::State& state) {
    ScratchFolder home;
    std::string error;
    const std::string phonesDat = SerializeDirectoryFile(MakeDirectory(kRecords), error);
    const auto csvFile = home.path() / "people.csv";
    WriteFileAtomically(csvFile, MakeCsv(kLines));
    Strings strings;
    SilentDialogues dialogues;
    FixedFile chooser(csvFile);
    std::size_t size = 0;
    for (auto _ : state) {
        state.PauseTiming();
        WriteFileAtomically(home.path() / "phones.dat", phonesDat);
        std::vector<DirectoryEntry> directory;
        frmImport form(directory, home.path(), strings, dialogues, chooser);
        state.ResumeTiming();

        form.Form_Load();
        form.optImport_Click();
        form.cmdExport_Click();
        form.cmdOpen_Click();
        form.cmdOK_Click();
        size = directory.size();
        if (!form.closed || form.lines.size() != kLines + 1) {
            state.SkipWithError("the import did not run to its end");
            break;
        }
    }
    state.counters["entries"] = static_cast<double>(size);
}
BENCHMARK(BM_ImportWizard)->Unit(benchmark::kMillisecond)->UseRealTime();

// One FindName over 10,000 entries, finding the last: a name check by FindName per line would
// cost this for every line, the directory growing as it goes.
void BM_FindNameOnce(benchmark::State& state) {
    const auto directory = MakeDirectory(kRecords);
    const std::string last = "PERSON " + std::to_string(kRecords - 1) + " SMITH";
    for (auto _ : state) benchmark::DoNotOptimize(FindName(directory, last));
}
BENCHMARK(BM_FindNameOnce)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace parlane::bench
