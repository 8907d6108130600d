// The preview's list on a full crusade of 9999 people: drawing the 25 lines
// shown, and one step of the scroll bar, which draws them again.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

#include "program/Program.h"
#include "reports/PrintReports.h"
#include "store/Generator.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

struct FullPreview {
    fs::path folder = fs::temp_directory_path() / ("vestrel-bench-preview-" + std::to_string(::getpid()));
    QuietHost host;
    std::unique_ptr<Program> p;
    FullPreview() {
        fs::create_directories(folder);
        p = std::make_unique<Program>(host, folder.string());
        GenerateCrusade(*p, (folder / "Full.dta").string(), 9999, 2026, 24);
        p->Loaded = true;
        OpenRecordFile(*p);
        FullLoadPass(*p);
        p->SortName = "attend";
        p->Reports().Show();
    }
    ~FullPreview() {
        p->File1.Close();
        p.reset();
        std::error_code ec;
        fs::remove_all(folder, ec);
    }
};

FullPreview& Preview() {
    static FullPreview c;
    return c;
}

void BM_ShowScrollInfo(benchmark::State& state) {
    PrintReports& pr = Preview().p->Reports();
    for (auto _ : state) {
        pr.showScrollInfo();
        benchmark::DoNotOptimize(pr.Info.Text());
    }
}
BENCHMARK(BM_ShowScrollInfo)->Unit(benchmark::kMicrosecond);

// One click on the bar's arrow, walking down the whole list and back to the top.
void BM_ScrollOneLine(benchmark::State& state) {
    Program& p = *Preview().p;
    PrintReports& pr = p.Reports();
    for (auto _ : state) {
        int next = pr.VScroll1.Value() + 1;
        if (next > p.IndexCount) next = 1;
        pr.VScroll1.SetValue(next);
        benchmark::DoNotOptimize(pr.Info.Text());
    }
    state.counters["people"] = p.IndexCount;
}
BENCHMARK(BM_ScrollOneLine)->Unit(benchmark::kMicrosecond);

// A page of the bar (25 lines) from the last page back to the first: the far end of the file.
void BM_ScrollAPageAtTheEnd(benchmark::State& state) {
    Program& p = *Preview().p;
    PrintReports& pr = p.Reports();
    for (auto _ : state) {
        pr.VScroll1.SetValue(pr.VScroll1.Value() == p.IndexCount - 24 ? 1 : p.IndexCount - 24);
        benchmark::DoNotOptimize(pr.Info.Text());
    }
}
BENCHMARK(BM_ScrollAPageAtTheEnd)->Unit(benchmark::kMicrosecond);

}  // namespace
