// The team pass of the zip table ("Update File") beside the same work asked of
// SQLite in the same run: every live person at team "00" takes the team of their
// zip, over a table of 2000 zips, written to the disk. SQLite holds the people as
// rows of the same size in a database file and runs an UPDATE joined on the
// zips' primary key. Before each round (not timed) both start from the same
// people, all at "00". Prints medians and the ratio, pass time over SQL time.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "GeneratedCrusades.h"
#include "platform/vb/Strings.h"
#include "store/RecordLayout.h"
#include "store/Records.h"
#include "store/State.h"
#include "store/ZipTable.h"
#include "support/QuietHost.h"
#include "tables/EditZip.h"

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};
constexpr int Zips = 2000;
constexpr std::size_t Len = RecordLayout::Length;

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-zips-");
    return crusades;
}

// The crusade's own zips at the end of a 2000-entry table, behind zips nobody
// lives in: a walk of the table from the top would pass them all for each person.
void FillTable(ProgramState& p) {
    std::vector<std::string> own(p.ZipList.begin() + 1, p.ZipList.begin() + 1 + p.ZipCount);
    const int fillers = Zips - static_cast<int>(own.size());
    for (int i = 0; i < fillers; ++i)
        p.ZipList[static_cast<std::size_t>(i) + 1] = vb::Fixed("X" + vb::Right("000" + std::to_string(i), 4), 10) + "ZZ" +
                                                     vb::Right("0" + std::to_string(i % 41), 2) + vb::Fixed("Nowhere", 15) + "   0";
    for (std::size_t k = 0; k < own.size(); ++k) p.ZipList[static_cast<std::size_t>(fillers) + 1 + k] = own[k];
    p.ZipCount = Zips;
}

// The record file's bytes with every live person at team "00".
std::string Unassigned(ProgramState& p) {
    std::string bytes(static_cast<std::size_t>(p.RecordCount) * Len, '\0');
    p.File1.GetRange(1, p.RecordCount, bytes.data());
    for (long i = 0; i < p.RecordCount; ++i) {
        char* w = bytes.data() + i * Len + RecordAt::WorkerCode;
        if (std::memcmp(w, "##", 2) != 0) std::memcpy(w, "00", 2);
    }
    return bytes;
}

struct Opened {
    QuietHost host;
    ProgramState p{host, Generated().Folder()};
    explicit Opened(int people) {
        Generated().Use(p, people);
        OpenRecordFile(p);
        FillTable(p);
    }
    ~Opened() { p.File1.Close(); }
};

void BM_Pass(benchmark::State& state) {
    Opened o(static_cast<int>(state.range(0)));
    const std::string start = Unassigned(o.p);
    long written = 0;
    for (auto _ : state) {
        state.PauseTiming();
        o.p.File1.PutRange(1, o.p.RecordCount, start.data());
        state.ResumeTiming();
        written = AssignTeams(o.p).written;
        benchmark::DoNotOptimize(written);
    }
    state.counters["written"] = static_cast<double>(written);
}

void Exec(sqlite3* db, const std::string& sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

// The same people as rows (zip, team and the rest of the record) and the same
// table, in a database file beside the crusade; not timed.
sqlite3* LoadDatabase(ProgramState& p, const std::string& start, int people) {
    const std::string path = Generated().Folder() + "/zips" + std::to_string(people) + ".db";
    std::filesystem::remove(path);
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    Exec(db, "CREATE TABLE people(rec INTEGER PRIMARY KEY, zip TEXT, worker TEXT, rest BLOB)");
    Exec(db, "CREATE TABLE zips(zip TEXT PRIMARY KEY, team TEXT, entry TEXT) WITHOUT ROWID");
    Exec(db, "BEGIN");
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO people VALUES(?,?,?,?)", -1, &ins, nullptr);
    for (long i = 0; i < p.RecordCount; ++i) {
        const char* rec = start.data() + i * Len;
        sqlite3_bind_int64(ins, 1, i + 1);
        sqlite3_bind_text(ins, 2, rec + RecordAt::Zip, 10, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 3, rec + RecordAt::WorkerCode, 2, SQLITE_TRANSIENT);
        sqlite3_bind_blob(ins, 4, rec, static_cast<int>(Len - 12), SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    sqlite3_prepare_v2(db, "INSERT OR IGNORE INTO zips VALUES(?,?,?)", -1, &ins, nullptr);
    for (int z = 1; z <= p.ZipCount; ++z) {
        const std::string& e = p.ZipList[static_cast<std::size_t>(z)];
        sqlite3_bind_text(ins, 1, e.data(), 10, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 2, e.data() + 12, 2, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 3, e.data(), static_cast<int>(e.size()), SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    Exec(db, "COMMIT");
    return db;
}

void BM_Sql(benchmark::State& state) {
    const int people = static_cast<int>(state.range(0));
    Opened o(people);
    const std::string start = Unassigned(o.p);
    sqlite3* db = LoadDatabase(o.p, start, people);
    long written = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Exec(db, "UPDATE people SET worker='00' WHERE worker<>'##'");
        state.ResumeTiming();
        Exec(db, "UPDATE people SET worker=z.team FROM zips AS z WHERE z.zip=people.zip AND people.worker='00' "
                 "AND z.team<>'00'");
        written = sqlite3_changes(db);
    }
    state.counters["written"] = static_cast<double>(written);
    sqlite3_close(db);
}

class MedianReporter : public benchmark::ConsoleReporter {
public:
    std::map<std::string, std::pair<double, double>> medians;   // name -> (processor ms, real ms)
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs)
            if (r.aggregate_name == "median")
                medians[r.run_name.function_name + "/" + r.run_name.args] = {r.GetAdjustedCPUTime(), r.GetAdjustedRealTime()};
        ConsoleReporter::ReportRuns(runs);
    }
    std::pair<double, double> Get(const std::string& name) const {
        auto it = medians.find(name);
        return it == medians.end() ? std::pair<double, double>{0, 0} : it->second;
    }
};

}  // namespace

int main(int argc, char** argv) {
    for (int n : Sizes) {
        benchmark::RegisterBenchmark("Pass", BM_Pass)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
        benchmark::RegisterBenchmark("Sql", BM_Sql)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
    }
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nteam pass over %d zips, medians of 7 rounds in ms (processor / wall)\n", Zips);
    std::printf("%8s %18s %18s %14s\n", "people", "pass", "sql", "ratio cpu/wall");
    const auto first = reporter.Get("Pass/" + std::to_string(Sizes[0]));
    for (int n : Sizes) {
        const auto a = reporter.Get("Pass/" + std::to_string(n)), s = reporter.Get("Sql/" + std::to_string(n));
        std::printf("%8d %8.3f / %7.3f %8.3f / %7.3f %6.2f / %5.2f\n", n, a.first, a.second, s.first, s.second,
                    s.first > 0 ? a.first / s.first : 0, s.second > 0 ? a.second / s.second : 0);
    }
    const auto last = reporter.Get("Pass/" + std::to_string(Sizes[2]));
    std::printf("pass 9999/1000: %.1f processor, %.1f wall (n log n from 1000 to 9999 gives %.1f)\n",
                first.first > 0 ? last.first / first.first : 0, first.second > 0 ? last.second / first.second : 0,
                9.999 * 1.333);
    benchmark::Shutdown();
    return 0;
}
