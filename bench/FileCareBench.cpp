// Whole-file care against the disk. Compact (one person in ten deleted) beside
// the floor of reading, writing and syncing the record file once; backup and
// restore beside plain copying of the same files with a sync. Medians of wall
// time, ratios printed.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "GeneratedCrusades.h"
#include "maint/FileCare.h"
#include "maint/SafetyCopy.h"
#include "store/Records.h"
#include "store/RecordLayout.h"
#include "store/State.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 9999};

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-filecare-");
    return crusades;
}

std::string Slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Spit(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

// The generated crusade of n people with one in ten deleted, in a folder of its
// own: the master that each round starts from, and the folders a round uses.
struct Setup {
    std::string folder, master, work, backupFolder;
};

const Setup& Prepared(int n) {
    static std::map<int, Setup> made;
    auto it = made.find(n);
    if (it != made.end()) return it->second;
    const std::string gen = Generated().Path(n);
    Setup s;
    s.folder = Generated().Folder() + "/care" + std::to_string(n);
    fs::create_directories(s.folder + "/master");
    fs::create_directories(s.folder + "/work");
    fs::create_directories(s.folder + "/backup");
    s.master = s.folder + "/master/Care.dta";
    s.work = s.folder + "/work/Care.dta";
    s.backupFolder = s.folder + "/backup";
    std::string dta = Slurp(gen);
    for (std::size_t at = 9 * RecordLayout::Length; at < dta.size(); at += 10 * RecordLayout::Length)
        dta.replace(at + RecordAt::WorkerCode, 2, "##");
    Spit(s.master, dta);
    const std::string genBase = gen.substr(0, gen.size() - 4);
    for (const char* ext : {".inf", ".mem", ".zps"})
        if (fs::exists(genBase + ext)) fs::copy_file(genBase + ext, s.folder + "/master/Care" + ext);
    Spit(s.folder + "/master/Care_prayer.txt", std::string(4000, 'p'));
    return made[n] = s;
}

void ResetWork(const Setup& s) {
    for (const std::string& f : safety::CrusadeFiles(s.master))
        fs::copy_file(f, s.folder + "/work/" + fs::path(f).filename().string(), fs::copy_options::overwrite_existing);
    fs::remove_all(safety::FolderFor(s.work));
    fs::remove(s.folder + "/work/Care.new");
}

void SyncFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY);
    ::fsync(fd);
    ::close(fd);
}

void BM_Compact(benchmark::State& st, bool withSafetyCopy) {
    const Setup& s = Prepared(static_cast<int>(st.range(0)));
    QuietHost host;
    for (auto _ : st) {
        st.PauseTiming();
        ResetWork(s);
        ProgramState p(host, Generated().Folder());
        p.DataFile = s.work;
        OpenRecordFile(p);
        st.ResumeTiming();
        if (withSafetyCopy) safety::Take(p.DataFile, "Compact", host.Now());
        benchmark::DoNotOptimize(maint::Compact(p, nullptr));
    }
}

// The floor: the record file read, written whole beside it and synced.
void BM_Floor(benchmark::State& st) {
    const Setup& s = Prepared(static_cast<int>(st.range(0)));
    const std::string out = s.folder + "/work/floor.dta";
    for (auto _ : st) {
        st.PauseTiming();
        ResetWork(s);
        fs::remove(out);
        st.ResumeTiming();
        const std::string bytes = Slurp(s.work);
        const int fd = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        benchmark::DoNotOptimize(::write(fd, bytes.data(), bytes.size()));
        ::fsync(fd);
        ::close(fd);
    }
}

void BM_Backup(benchmark::State& st) {
    const Setup& s = Prepared(static_cast<int>(st.range(0)));
    ResetWork(s);
    for (auto _ : st) {
        const std::string why = maint::BackupFiles(s.work, s.backupFolder + "/Care.dta");
        if (!why.empty()) st.SkipWithError(why.c_str());
    }
}

void BM_Restore(benchmark::State& st) {
    const Setup& s = Prepared(static_cast<int>(st.range(0)));
    ResetWork(s);
    maint::BackupFiles(s.work, s.backupFolder + "/Care.dta");
    for (auto _ : st) {
        const std::string backup = s.backupFolder + "/Care.dta";
        if (!maint::CheckBackup(backup).empty()) st.SkipWithError("backup refused");
        maint::RestoreFiles(backup, s.work);
    }
}

// Plain copying of the five files, each synced.
void BM_PlainCopy(benchmark::State& st) {
    const Setup& s = Prepared(static_cast<int>(st.range(0)));
    ResetWork(s);
    for (auto _ : st) {
        for (const std::string& f : safety::CrusadeFiles(s.work)) {
            const std::string to = s.backupFolder + "/" + fs::path(f).filename().string();
            fs::copy_file(f, to, fs::copy_options::overwrite_existing);
            SyncFile(to);
        }
    }
}

class MedianReporter : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> medians;   // name -> ms
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs)
            if (r.aggregate_name == "median") medians[r.run_name.function_name + "/" + r.run_name.args] = r.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    double Get(const std::string& name) const {
        auto it = medians.find(name);
        return it == medians.end() ? 0 : it->second;
    }
};

}  // namespace

int main(int argc, char** argv) {
    for (int n : Sizes) {
        auto reg = [n](benchmark::internal::Benchmark* b) {
            b->Arg(n)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(7)->ReportAggregatesOnly(true);
        };
        reg(benchmark::RegisterBenchmark("Compact", BM_Compact, false));
        reg(benchmark::RegisterBenchmark("CompactWithSafetyCopy", BM_Compact, true));
        reg(benchmark::RegisterBenchmark("Floor", BM_Floor));
        reg(benchmark::RegisterBenchmark("Backup", BM_Backup));
        reg(benchmark::RegisterBenchmark("Restore", BM_Restore));
        reg(benchmark::RegisterBenchmark("PlainCopy", BM_PlainCopy));
    }
    benchmark::Initialize(&argc, argv);
    MedianReporter r;
    benchmark::RunSpecifiedBenchmarks(&r);
    std::printf("\nmedian wall time in ms\n%-24s %10s %10s %8s %8s\n", "work", "people", "work ms", "peer ms", "ratio");
    struct Row {
        const char* work;
        const char* peer;
        const char* goal;
    };
    for (const Row& row : {Row{"Compact", "Floor", "2"}, Row{"CompactWithSafetyCopy", "Floor", "-"},
                           Row{"Backup", "PlainCopy", "1.5"}, Row{"Restore", "PlainCopy", "1.5"}}) {
        for (int n : Sizes) {
            const std::string arg = "/" + std::to_string(n);
            const double w = r.Get(std::string(row.work) + arg), f = r.Get(std::string(row.peer) + arg);
            std::printf("%-24s %10d %10.3f %8.3f %8.2f  (peer %s, goal %s)\n", row.work, n, w, f, f > 0 ? w / f : 0,
                        row.peer, row.goal);
        }
    }
    benchmark::Shutdown();
    return 0;
}
