// The merge of a second computer's night beside the same work asked of SQLite
// in the same run. The other computer holds the same people, each of them at
// meeting 25, and one person in ten under a number this crusade does not have.
// Vestrel finds each number in the list and writes the marked records; SQLite
// holds both crusades as tables with the number as key and runs the UPDATE by
// number and the INSERT of the new ones. Neither side's reading of the other
// computer's file is timed. Before each round (not timed) both start over.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "attend/MergeAttendance.h"
#include "platform/vb/Strings.h"
#include "store/Attendance.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "store/State.h"
#include "support/QuietHost.h"

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};
constexpr int Meeting = 25;

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-merge-");
    return crusades;
}

struct Opened {
    QuietHost host;
    ProgramState p{host, Generated().Folder()};
    std::string start;
    long count = 0;
    attend::RemoteCrusade remote;
    explicit Opened(int people) {
        Generated().Use(p, people);
        OpenRecordFile(p);
        count = p.RecordCount;
        start.resize(static_cast<std::size_t>(count) * MasterRecord::Length);
        p.File1.GetRange(1, count, start.data());
        RebuildAlpha(p);
        remote.meeting = Meeting;
        for (long i = 1; i <= count; ++i) {
            MasterRecord r;
            RecordLayout::Read(p.File1, i, r);
            if (r.WorkerCode == "##") continue;
            r.Attendance.SetChar(Meeting, LastDigit(Meeting));
            CountAttendance(r);
            if (i % 10 == 0) r.RNum = vb::Right("0000" + std::to_string(9000 + i % 1000), 4);
            remote.people.push_back(r);
        }
    }
    void Reset() {
        std::filesystem::resize_file(p.DataFile, start.size());
        p.File1.PutRange(1, count, start.data());
        p.RecordCount = count;
        p.MeetingNumber = Meeting - 1;
    }
    ~Opened() { p.File1.Close(); }
};

void BM_Merge(benchmark::State& state) {
    Opened o(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        o.Reset();
        state.ResumeTiming();
        attend::MergeCount c = attend::MergeAttendance(o.p, o.remote, false);
        benchmark::DoNotOptimize(c.marked);
    }
    o.Reset();
}

void Exec(sqlite3* db, const std::string& sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

void Fill(sqlite3* db, const char* table, const std::vector<MasterRecord>& people) {
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, (std::string("INSERT INTO ") + table + " VALUES(?,?,?,?,?)").c_str(), -1, &ins, nullptr);
    for (const MasterRecord& r : people) {
        const RecordBytes b = EncodeRecord(r);
        sqlite3_bind_text(ins, 1, r.RNum.str().c_str(), 4, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 2, r.Attendance.str().c_str(), 40, SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 3, std::stoi("0" + vb::Trim(r.Attend)));
        sqlite3_bind_int(ins, 4, r.Last);
        sqlite3_bind_blob(ins, 5, b.data(), static_cast<int>(b.size()), SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
}

// Both crusades as tables keyed by the upper-cased number, in a database file
// with WAL and no sync (what a write without fsync compares to).
void BM_Sql(benchmark::State& state) {
    const int people = static_cast<int>(state.range(0));
    Opened o(people);
    std::vector<MasterRecord> local;
    for (long i = 1; i <= o.count; ++i) {
        MasterRecord r;
        RecordLayout::Read(o.p.File1, i, r);
        if (r.WorkerCode != "##") local.push_back(r);
    }
    const std::string path = Generated().Folder() + "/merge" + std::to_string(people) + ".db";
    std::filesystem::remove(path);
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    Exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF");
    const char* cols = "(rnum TEXT PRIMARY KEY COLLATE NOCASE, attendance TEXT, attend INT, last INT, rest BLOB)";
    Exec(db, std::string("CREATE TABLE here") + cols + " WITHOUT ROWID");
    Exec(db, std::string("CREATE TABLE start") + cols + " WITHOUT ROWID");
    Exec(db, std::string("CREATE TABLE there") + cols + " WITHOUT ROWID");
    Exec(db, "BEGIN");
    Fill(db, "start", local);
    Fill(db, "there", o.remote.people);
    Exec(db, "COMMIT");
    const std::string m = std::to_string(Meeting);
    for (auto _ : state) {
        state.PauseTiming();
        Exec(db, "DELETE FROM here; INSERT INTO here SELECT * FROM start");
        state.ResumeTiming();
        Exec(db, "BEGIN");
        Exec(db, "UPDATE here SET attendance = substr(here.attendance, 1, " + std::to_string(Meeting - 1) +
                     ") || substr(t.attendance, " + m + ", 1) || substr(here.attendance, " + std::to_string(Meeting + 1) +
                     "), attend = here.attend + 1, last = t.last FROM there AS t WHERE t.rnum = here.rnum AND t.last = " + m);
        Exec(db, "INSERT INTO here SELECT * FROM there AS t WHERE NOT EXISTS (SELECT 1 FROM here WHERE here.rnum = t.rnum)");
        Exec(db, "COMMIT");
    }
    sqlite3_close(db);
}

}  // namespace

int main(int argc, char** argv) {
    for (int n : Sizes) {
        benchmark::RegisterBenchmark("BM_Merge", BM_Merge)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
        benchmark::RegisterBenchmark("BM_Sql", BM_Sql)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
    }
    benchmark::Initialize(&argc, argv);
    Rounds rounds;
    benchmark::RunSpecifiedBenchmarks(&rounds);
    Rounds::Header("ms");
    for (int n : Sizes) rounds.Row("attendance merge", n, "BM_Merge", "", "BM_Sql", "");
    benchmark::Shutdown();
    return 0;
}
