// The Erase pass of the preferences (every person's attendance cut back to a lower
// last meeting) beside SQLite doing the same on the same people: the people who
// came only later fetched for their message, then one UPDATE, committed to disk.
// Prints the median processor time of each and the ratio, pass over SQL.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "store/Info.h"
#include "store/MasterRecord.h"
#include "store/RecordLayout.h"
#include "store/Records.h"
#include "store/State.h"
#include "support/QuietHost.h"
#include "tables/PrefsErase.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};
constexpr int Held = 24;      // meetings held in the generated crusades
constexpr int CutTo = 12;     // the last meeting typed in the preferences

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-prefs-");
    return crusades;
}

// A copy of the generated crusade that the pass may change; put back between rounds.
struct Opened {
    QuietHost host;
    ProgramState p;
    std::vector<char> original;
    explicit Opened(int people) : p(host, Generated().Folder()) {
        const std::string from = Generated().Path(people);
        const std::string path = Generated().Folder() + "/Erase" + std::to_string(people) + ".dta";
        fs::copy_file(from, path, fs::copy_options::overwrite_existing);
        p.DataFile = path;
        OpenRecordFile(p);
        original.resize(static_cast<std::size_t>(p.RecordCount) * MasterRecord::Length);
        p.File1.GetRange(1, p.RecordCount, original.data());
    }
    void PutBack() { p.File1.PutRange(1, p.RecordCount, original.data()); }
    ~Opened() { p.File1.Close(); }
};

void BM_Erase(benchmark::State& state) {
    Opened o(static_cast<int>(state.range(0)));
    long late = 0;
    for (auto _ : state) {
        state.PauseTiming();
        o.PutBack();
        late = 0;
        state.ResumeTiming();
        EraseAttendanceAfter(o.p, CutTo, Held, [&](const LateComer&) { ++late; });
    }
    state.counters["late"] = static_cast<double>(late);
}

void Exec(sqlite3* db, const char* sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

// The people as rows of a database file: the fields the pass reads and writes, and the
// rest of the record as one text, so that a row is as wide as a record.
sqlite3* MakeDatabase(Opened& o, const std::string& path) {
    fs::remove(path);
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    Exec(db, "CREATE TABLE people(rec INTEGER PRIMARY KEY, rnum, fname, lname, attendance, attend, last INTEGER, rest,"
             " a0, n0, l0 INTEGER)");
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO people VALUES(?,?,?,?,?,?,?,?,?,?,?)", -1, &ins, nullptr);
    Exec(db, "BEGIN");
    for (long i = 1; i <= o.p.RecordCount; ++i) {
        const char* b = o.original.data() + (i - 1) * MasterRecord::Length;
        auto text = [&](int k, std::size_t at, std::size_t w) {
            sqlite3_bind_text(ins, k, b + at, static_cast<int>(w), SQLITE_TRANSIENT);
        };
        sqlite3_bind_int64(ins, 1, i);
        text(2, RecordAt::RNum, 4);
        text(3, RecordAt::FName, 20);
        text(4, RecordAt::LName, 20);
        text(5, RecordAt::Attendance, 40);
        text(6, RecordAt::Attend, 2);
        sqlite3_bind_int(ins, 7, RecordLayout::GetInt16(b + RecordAt::Last));
        text(8, RecordAt::Address, RecordAt::Attendance - RecordAt::Address);
        text(9, RecordAt::Attendance, 40);
        text(10, RecordAt::Attend, 2);
        sqlite3_bind_int(ins, 11, RecordLayout::GetInt16(b + RecordAt::Last));
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    Exec(db, "COMMIT");
    return db;
}

void BM_Sql(benchmark::State& state) {
    Opened o(static_cast<int>(state.range(0)));
    sqlite3* db = MakeDatabase(o, Generated().Folder() + "/Erase" + std::to_string(state.range(0)) + ".db");
    const std::string n = std::to_string(CutTo), c = std::to_string(Held), dashes(40 - CutTo, '-');
    const std::string kept = "substr(attendance,1," + n + ")";
    const std::string none = "replace(" + kept + ",'-','')=''";
    const std::string late = "SELECT rnum, fname, lname FROM people WHERE " + none;
    const std::string update =
        "UPDATE people SET attendance = CASE WHEN " + none + " THEN substr(attendance,1," + std::to_string(CutTo - 1) +
        ")||'" + std::to_string(CutTo % 10) + "' ELSE " + kept + " END||'" + dashes + "', attend = CASE WHEN " + none +
        " THEN '1 ' ELSE substr(length(replace(" + kept + ",'-',''))||' ',1,2) END, last = CASE WHEN " + none +
        " THEN " + c + " ELSE length(rtrim(" + kept + ",'-')) END";
    sqlite3_stmt* sel = nullptr;
    sqlite3_prepare_v2(db, late.c_str(), -1, &sel, nullptr);
    long lateCount = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Exec(db, "UPDATE people SET attendance=a0, attend=n0, last=l0");
        state.ResumeTiming();
        Exec(db, "BEGIN");
        lateCount = 0;
        std::vector<std::string> told;
        while (sqlite3_step(sel) == SQLITE_ROW) {
            told.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(sel, 0)));
            ++lateCount;
        }
        sqlite3_reset(sel);
        Exec(db, update.c_str());
        Exec(db, "COMMIT");
        benchmark::DoNotOptimize(told.data());
    }
    state.counters["late"] = static_cast<double>(lateCount);
    sqlite3_finalize(sel);
    sqlite3_close(db);
}

}  // namespace

int main(int argc, char** argv) {
    for (int n : Sizes) {
        benchmark::RegisterBenchmark("Erase", BM_Erase)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
        benchmark::RegisterBenchmark("Sql", BM_Sql)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
    }
    benchmark::Initialize(&argc, argv);
    Rounds reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nmedian processor time in ms, last meeting %d cut to %d\n%-8s %10s %10s %8s\n", Held, CutTo, "people",
                "erase", "sql", "ratio");
    for (int n : Sizes) {
        double e = reporter.Cpu("Erase/" + std::to_string(n)), s = reporter.Cpu("Sql/" + std::to_string(n));
        std::printf("%-8d %10.3f %10.3f %8.2f\n", n, e, s, s > 0 ? e / s : 0);
    }
    double e1 = reporter.Cpu("Erase/1000"), e9 = reporter.Cpu("Erase/9999");
    std::printf("erase 9999/1000: %.1f (linear gives 10.0, n log n %.1f)\n", e1 > 0 ? e9 / e1 : 0, 9.999 * 1.333);
    benchmark::Shutdown();
    return 0;
}
