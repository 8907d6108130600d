// The load pass and the comb sort on generated crusades of the sizes the
// program must carry: a middling crusade and a full file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <unistd.h>

#include "edit/Navigate.h"
#include "platform/host/Host.h"
#include "program/Program.h"
#include "store/Generator.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "GeneratedCrusades.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

// Answers every box with OK; the load of a generated crusade shows none.
class BenchHost : public QuietHost {};

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-bench-");
    return crusades;
}

void BM_FullLoad(benchmark::State& state) {
    int people = static_cast<int>(state.range(0));
    const std::string& path = Generated().Path(people);
    BenchHost host;
    Program p(host, Generated().Folder());
    p.DataFile = path;
    LoadInfo(p);
    for (auto _ : state) {
        OpenRecordFile(p);
        FullLoad(p);
        benchmark::DoNotOptimize(p.IndexCount);
    }
    p.File1.Close();
    state.SetItemsProcessed(state.iterations() * people);
}
BENCHMARK(BM_FullLoad)->Arg(1000)->Arg(9999)->Unit(benchmark::kMillisecond);

void BM_SortEntries(benchmark::State& state) {
    int people = static_cast<int>(state.range(0));
    BenchHost host;
    Program p(host, Generated().Folder());
    p.DataFile = Generated().Path(people);
    LoadInfo(p);
    OpenRecordFile(p);
    // The "alpha" list in record order, as the load builds it before sorting.
    std::vector<std::string> unsorted{"alpha"};
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        if (p.MasterRec.WorkerCode != "##") unsorted.push_back(AlphaEntry(p, i));
    }
    p.File1.Close();
    p.SortName = "alpha";
    p.IndexCount = static_cast<int>(unsorted.size()) - 1;
    for (auto _ : state) {
        state.PauseTiming();
        p.SortIndex = unsorted;
        state.ResumeTiming();
        SortEntries(p);
        benchmark::DoNotOptimize(p.SortIndex.data());
    }
    state.SetItemsProcessed(state.iterations() * p.IndexCount);
}
BENCHMARK(BM_SortEntries)->Arg(9999)->Unit(benchmark::kMillisecond);

}  // namespace
