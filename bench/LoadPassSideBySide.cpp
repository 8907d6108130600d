// The load pass beside the two yardsticks it is held to: the disk's floor
// (read the whole record file, write it back, sync) and the same work done by
// an SQL engine in memory (one transaction: an UPDATE doing the repairs, the
// ordered name list, the duplicate-number GROUP BY and the zip count).
// Prints the median of each and, at the largest size, the two ratios.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <vector>

#include "platform/vb/Strings.h"
#include "store/Generator.h"
#include "store/Info.h"
#include "store/MasterRecord.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"
#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};


GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-side-");
    return crusades;
}

// As the splash opens a crusade: information, zips, members, then the record file.
void BM_LoadPass(benchmark::State& state) {
    const int people = static_cast<int>(state.range(0));
    const std::string path = Generated().Path(people);
    QuietHost host;
    for (auto _ : state) {
        ProgramState p(host, Generated().Folder());
        p.DataFile = path;
        LoadInfo(p);
        OpenRecordFile(p);
        LoadZips(p);
        LoadMembers(p);
        if (!FullLoadPass(p)) state.SkipWithError("the pass refused the file");
        benchmark::DoNotOptimize(p.IndexCount);
        p.File1.Close();
    }
}

// The least any pass that rewrites the file can cost.
void BM_Floor(benchmark::State& state) {
    const std::string path = Generated().Path(static_cast<int>(state.range(0)));
    std::vector<char> bytes(static_cast<std::size_t>(fs::file_size(path)));
    for (auto _ : state) {
        int fd = ::open(path.c_str(), O_RDWR);
        if (fd < 0) {
            state.SkipWithError("cannot open the crusade");
            break;
        }
        bool ok = ::pread(fd, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) &&
                  ::pwrite(fd, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) &&
                  ::fsync(fd) == 0;
        ::close(fd);
        if (!ok) state.SkipWithError("read, write or sync failed");
    }
}

// ---- the same work in SQL

void Exec(sqlite3* db, const char* sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

// Every row of a statement stepped through, as a caller reading the result would.
long Rows(sqlite3* db, const char* sql) {
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(db));
    long n = 0;
    while (sqlite3_step(st) == SQLITE_ROW) {
        benchmark::DoNotOptimize(sqlite3_column_text(st, 0));
        ++n;
    }
    sqlite3_finalize(st);
    return n;
}

// The people and the zip table as rows; not timed.
sqlite3* LoadDatabase(const std::string& path) {
    QuietHost host;
    ProgramState p(host, fs::path(path).parent_path().string());
    p.DataFile = path;
    LoadInfo(p);
    LoadZips(p);
    OpenRecordFile(p);
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    Exec(db,
         "CREATE TABLE people(rec INTEGER PRIMARY KEY, rnum TEXT, fname TEXT, lname TEXT, address TEXT, zip TEXT,"
         " age TEXT, worker TEXT, attendance TEXT, attend TEXT, last INTEGER, decisions TEXT, intflag INTEGER,"
         " rest BLOB);"
         "CREATE TABLE zips(zip TEXT PRIMARY KEY, entry TEXT);"
         // The indexes a user would make for the duplicate numbers and the zip count.
         "CREATE INDEX people_rnum ON people(rnum); CREATE INDEX people_zip ON people(zip);");
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO people VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?)", -1, &ins, nullptr);
    Exec(db, "BEGIN");
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        const MasterRecord& r = p.MasterRec;
        RecordBytes b = EncodeRecord(r);
        const std::string fields[] = {r.RNum, r.FName, r.LName, r.Address, r.Zip, r.Age, r.WorkerCode, r.Attendance,
                                      r.Attend};
        sqlite3_bind_int64(ins, 1, i);
        for (int k = 0; k < 9; ++k) sqlite3_bind_text(ins, k + 2, fields[k].data(), static_cast<int>(fields[k].size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 11, r.Last);
        sqlite3_bind_text(ins, 12, r.Decisions.str().data(), 12, SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 13, r.IntFlag);
        sqlite3_bind_blob(ins, 14, b.data(), static_cast<int>(b.size()), SQLITE_TRANSIENT);   // the other fields
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    sqlite3_prepare_v2(db, "INSERT INTO zips VALUES(?,?)", -1, &ins, nullptr);
    for (int z = 1; z <= p.ZipCount; ++z) {
        std::string zip = vb::Fixed(vb::Left(p.ZipList[z], 10), 10);
        sqlite3_bind_text(ins, 1, zip.data(), 10, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 2, p.ZipList[z].data(), static_cast<int>(p.ZipList[z].size()), SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    Exec(db, "COMMIT");
    p.File1.Close();
    return db;
}

void BM_Sqlite(benchmark::State& state) {
    sqlite3* db = LoadDatabase(Generated().Path(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        Exec(db, "BEGIN");
        Exec(db,
             "UPDATE people SET"
             " fname = trim(fname), lname = trim(lname), address = trim(address),"
             " attendance = replace(trim(attendance), ' ', '-'),"
             " attend = 40 - length(replace(trim(attendance), ' ', '-'))"
             "          + length(replace(replace(trim(attendance), ' ', '-'), '-', '')),"
             " last = length(rtrim(replace(trim(attendance), ' ', '-'), '-')),"
             " worker = CASE WHEN (worker >= '00' AND worker <= '40') OR worker = '##' THEN worker ELSE '00' END,"
             " age = CASE WHEN trim(age) IN ('', 'Unknown') THEN 'NIF' ELSE trim(age) END,"
             " decisions = substr(trim(decisions) || '---------', 1, 9)");
        Rows(db,
             "SELECT rnum || upper(substr(lname, 1, 5)) || upper(substr(fname, 1, 2)) || rec FROM people"
             " WHERE worker <> '##' ORDER BY upper(substr(lname, 1, 5)), upper(substr(fname, 1, 2)), rec");
        Rows(db, "SELECT rnum FROM people WHERE worker <> '##' GROUP BY rnum HAVING count(*) > 1");
        Rows(db,
             "SELECT z.zip, count(p.rec) FROM zips z LEFT JOIN people p ON p.zip = z.zip AND p.worker <> '##'"
             " GROUP BY z.zip");
        Exec(db, "COMMIT");
    }
    sqlite3_close(db);
}

}  // namespace

void Sizes3(benchmark::internal::Benchmark* b) {
    for (int n : Sizes) b->Arg(n);
    b->Unit(benchmark::kMillisecond)->Repetitions(9)->MinTime(0.1);
}
BENCHMARK(BM_LoadPass)->Apply(Sizes3);
BENCHMARK(BM_Floor)->Apply(Sizes3);
BENCHMARK(BM_Sqlite)->Apply(Sizes3);

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Rounds rounds;
    benchmark::RunSpecifiedBenchmarks(&rounds);
    Rounds::Header("ms");
    for (int n : Sizes) rounds.Row("load pass", n, "BM_LoadPass", "BM_Sqlite", "", "BM_Floor");
    for (int n : Sizes) {
        const std::string at = "/" + std::to_string(n);
        const double pass = rounds.Wall("BM_LoadPass" + at), floor = rounds.Wall("BM_Floor" + at);
        std::printf("load pass %5d on the wall: %.2f ms, floor %.2f ms, ratio %.2f\n", n, pass, floor,
                    floor > 0 ? pass / floor : 0);
    }
    benchmark::Shutdown();
    return 0;
}
