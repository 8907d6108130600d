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
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

// Answers every box with OK; the load of a generated crusade shows none.
class BenchHost : public QuietHost {};

// One folder for the run, removed at exit; each size is generated once.
class Crusades {
public:
    Crusades() : folder_(fs::temp_directory_path() / ("vestrel-bench-" + std::to_string(::getpid()))) {
        fs::create_directories(folder_);
    }
    ~Crusades() {
        std::error_code ec;
        fs::remove_all(folder_, ec);
    }
    const std::string& Path(int people) {
        auto it = made_.find(people);
        if (it != made_.end()) return it->second;
        std::string path = (folder_ / ("Bench" + std::to_string(people) + ".dta")).string();
        BenchHost host;
        Program p(host, folder_.string());
        GenerateCrusade(p, path, people, 2026, 24);
        return made_[people] = path;
    }
    const std::string& Folder() const { return folder_.native(); }

private:
    fs::path folder_;
    std::map<int, std::string> made_;
};

Crusades& Generated() {
    static Crusades crusades;
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
