// The preview's list on a full crusade of 9999 people: drawing the 25 lines
// shown, and one step of the scroll bar, which draws them again.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

#include "GeneratedCrusades.h"
#include "program/Program.h"
#include "reports/PrintReports.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-bench-preview-");
    return crusades;
}

struct FullPreview {
    QuietHost host;
    std::unique_ptr<Program> p;
    FullPreview() {
        p = std::make_unique<Program>(host, Generated().Folder());
        Generated().Use(*p, 9999);
        p->Loaded = true;
        OpenRecordFile(*p);
        FullLoadPass(*p);
        p->SortName = "attend";
        p->Reports().Show();
    }
    ~FullPreview() {
        p->File1.Close();
        p.reset();
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
