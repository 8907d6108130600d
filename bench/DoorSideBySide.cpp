// The operations that touch one person, beside SQLite doing the same with the
// index a user would make on the number: the door's ticket (found, marked,
// written), the edit screen's save of a changed card, and the search by
// number. SQLite runs in memory, and in a file in WAL mode without sync, which
// is what a write without fsync compares to. The floor is the disk: one record
// written (or read) at its place.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "attend/AttendF.h"
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "platform/forms/Form.h"
#include "program/Program.h"
#include "store/Attendance.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};
constexpr int Reps = 9;

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-side-door-");
    return crusades;
}

// A crusade of n people loaded, as the splash leaves it; each size has its own copy of the files.
struct Loaded {
    explicit Loaded(int n) {
        const std::string from = Generated().Path(n);
        folder = Generated().Folder() + "/door" + std::to_string(n);
        fs::create_directories(folder);
        for (const char* ext : {".dta", ".inf", ".zps", ".mem"}) {
            fs::path src = fs::path(from).replace_extension(ext);
            if (fs::exists(src)) fs::copy_file(src, folder + "/Door" + ext, fs::copy_options::overwrite_existing);
        }
        p = std::make_unique<Program>(host, Generated().Folder());
        p->DataFile = folder + "/Door.dta";
        p->DataFolder = folder;
        p->Loaded = true;
        LoadInfo(*p);
        OpenRecordFile(*p);
        (void)FullLoad(*p);
        p->Edit();
    }
    ~Loaded() { p->File1.Close(); }
    QuietHost host;
    std::string folder;
    std::unique_ptr<Program> p;
};

Loaded& Crusade(int n) {
    static std::map<int, std::unique_ptr<Loaded>> all;
    auto& l = all[n];
    if (!l) l = std::make_unique<Loaded>(n);
    return *l;
}

std::string NumberAt(const ProgramState& p, int i) { return p.SortIndex[static_cast<std::size_t>(i)].substr(0, 4); }

// ---- Vestrel

// Tickets of people taken in list order, each a new mark: a fresh night when the list is done.
void BM_Ticket(benchmark::State& state) {
    Loaded& l = Crusade(static_cast<int>(state.range(0)));
    Program& p = *l.p;
    static std::map<int, std::pair<int, int>> where;   // size -> night, next person
    auto& [night, next] = where[static_cast<int>(state.range(0))];
    auto open = [&] {
        night = night < 25 || night >= 40 ? 25 : night + 1;
        next = 1;
        if (p.AttendLoaded()) p.Attend().Unload();
        p.ScratchValue = std::to_string(night);
        AttendF& a = p.Attend();
        a.Show();
        forms::ActivateForm(p.host, &a);
    };
    if (night == 0 || !p.AttendLoaded()) open();
    for (auto _ : state) {
        if (next > p.IndexCount) {
            state.PauseTiming();
            open();
            state.ResumeTiming();
        }
        AttendF& a = p.Attend();
        a.SearchBox.SetText(NumberAt(p, next++));
        a.EnterTicket();
        benchmark::DoNotOptimize(a.EnteredCount);
    }
}

void BM_SaveCard(benchmark::State& state) {
    Loaded& l = Crusade(static_cast<int>(state.range(0)));
    Program& p = *l.p;
    if (p.AttendLoaded()) p.Attend().Unload();
    EditForm& e = p.Edit();
    p.CurrentIndex = p.IndexCount / 2;
    if (FetchCurrentRecord(p)) e.ShowRecord();
    bool flip = false;
    for (auto _ : state) {
        e.City.SetText(flip ? "Springfield" : "Shelbyville");
        flip = !flip;
        benchmark::DoNotOptimize(e.SaveChanges());
        p.UndoRec = p.MasterRec;
    }
}

// The edit screen's search: found, read and shown, people taken over the whole list.
void BM_SearchByNumber(benchmark::State& state) {
    Loaded& l = Crusade(static_cast<int>(state.range(0)));
    Program& p = *l.p;
    if (p.AttendLoaded()) p.Attend().Unload();
    EditForm& e = p.Edit();
    int k = 0;
    const int n = p.IndexCount;
    for (auto _ : state) {
        e.SearchFor(NumberAt(p, 1 + (k++ * 7919) % n));
        benchmark::DoNotOptimize(p.CurrentIndex);
    }
}

// ---- the floor: one record at its place

void BM_FloorWrite(benchmark::State& state) {
    const std::string path = Generated().Path(static_cast<int>(state.range(0)));
    const long n = static_cast<long>(state.range(0));
    int fd = ::open(path.c_str(), O_RDWR);
    char rec[MasterRecord::Length];
    long k = 0;
    for (auto _ : state) {
        off_t at = static_cast<off_t>((k++ * 7919) % n) * static_cast<off_t>(sizeof rec);
        if (::pread(fd, rec, sizeof rec, at) != static_cast<ssize_t>(sizeof rec) ||
            ::pwrite(fd, rec, sizeof rec, at) != static_cast<ssize_t>(sizeof rec))
            state.SkipWithError("read or write failed");
    }
    ::close(fd);
}

void BM_FloorRead(benchmark::State& state) {
    const std::string path = Generated().Path(static_cast<int>(state.range(0)));
    const long n = static_cast<long>(state.range(0));
    int fd = ::open(path.c_str(), O_RDONLY);
    char rec[MasterRecord::Length];
    long k = 0;
    for (auto _ : state) {
        off_t at = static_cast<off_t>((k++ * 7919) % n) * static_cast<off_t>(sizeof rec);
        if (::pread(fd, rec, sizeof rec, at) != static_cast<ssize_t>(sizeof rec)) state.SkipWithError("read failed");
        benchmark::DoNotOptimize(rec[0]);
    }
    ::close(fd);
}

// ---- SQLite

void Exec(sqlite3* db, const char* sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

sqlite3_stmt* Prepare(sqlite3* db, const char* sql) {
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(db));
    return st;
}

// The people of the crusade as rows, with an index on the number; not timed.
struct Database {
    Database(int n, bool inFile) {
        const std::string at = inFile ? Generated().Folder() + "/door" + std::to_string(n) + ".db" : ":memory:";
        if (inFile) fs::remove(at);
        sqlite3_open(at.c_str(), &db);
        if (inFile) Exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF;");
        Exec(db,
             "CREATE TABLE people(rec INTEGER PRIMARY KEY, rnum TEXT, fname TEXT, lname TEXT, address TEXT,"
             " city TEXT, zip TEXT, attendance TEXT, attend INTEGER, last INTEGER, rest BLOB);"
             "CREATE INDEX people_rnum ON people(rnum);");
        QuietHost host;
        ProgramState p(host, Generated().Folder());
        p.DataFile = Generated().Path(n);
        LoadInfo(p);
        OpenRecordFile(p);
        sqlite3_stmt* ins = Prepare(db, "INSERT INTO people VALUES(?,?,?,?,?,?,?,?,?,?,?)");
        Exec(db, "BEGIN");
        for (long i = 1; i <= p.RecordCount; ++i) {
            GetRecord(p, i);
            const MasterRecord& r = p.MasterRec;
            if (r.WorkerCode == "##") continue;
            Bind(ins, i, r);
            sqlite3_step(ins);
            sqlite3_reset(ins);
            numbers.push_back(r.RNum);
        }
        Exec(db, "COMMIT");
        sqlite3_finalize(ins);
        p.File1.Close();
        find = Prepare(db, "SELECT rec, attendance FROM people WHERE rnum = ?");
        mark = Prepare(db, "UPDATE people SET attendance = ?, attend = ?, last = ? WHERE rec = ?");
        save = Prepare(db,
                       "UPDATE people SET rnum = ?2, fname = ?3, lname = ?4, address = ?5, city = ?6, zip = ?7,"
                       " attendance = ?8, attend = ?9, last = ?10, rest = ?11 WHERE rec = ?1");
        read = Prepare(db, "SELECT * FROM people WHERE rnum = ?");
    }
    ~Database() {
        for (sqlite3_stmt* s : {find, mark, save, read}) sqlite3_finalize(s);
        sqlite3_close(db);
    }
    static void Bind(sqlite3_stmt* st, long rec, const MasterRecord& r) {
        RecordBytes b = EncodeRecord(r);
        const std::string fields[] = {r.RNum, r.FName, r.LName, r.Address, r.City, r.Zip, r.Attendance};
        sqlite3_bind_int64(st, 1, rec);
        for (int k = 0; k < 7; ++k)
            sqlite3_bind_text(st, k + 2, fields[k].data(), static_cast<int>(fields[k].size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(st, 9, static_cast<int>(vb::Val(r.Attend)));
        sqlite3_bind_int(st, 10, r.Last);
        sqlite3_bind_blob(st, 11, b.data(), static_cast<int>(b.size()), SQLITE_TRANSIENT);
    }
    sqlite3* db = nullptr;
    sqlite3_stmt *find = nullptr, *mark = nullptr, *save = nullptr, *read = nullptr;
    std::vector<std::string> numbers;
};

Database& Db(int n, bool inFile) {
    static std::map<std::pair<int, bool>, std::unique_ptr<Database>> all;
    auto& d = all[{n, inFile}];
    if (!d) d = std::make_unique<Database>(n, inFile);
    return *d;
}

// Found by number, the night marked, counted and written back: one transaction a ticket, as each ticket is a write.
void SqlTicket(benchmark::State& state, bool inFile) {
    Database& d = Db(static_cast<int>(state.range(0)), inFile);
    std::size_t k = 0;
    int night = 25;
    for (auto _ : state) {
        if (k == d.numbers.size()) k = 0, night = night >= 40 ? 25 : night + 1;
        const std::string& num = d.numbers[k++];
        sqlite3_bind_text(d.find, 1, num.data(), 4, SQLITE_STATIC);
        if (sqlite3_step(d.find) == SQLITE_ROW) {
            const long rec = sqlite3_column_int64(d.find, 0);
            std::string attendance(reinterpret_cast<const char*>(sqlite3_column_text(d.find, 1)), 40);
            sqlite3_reset(d.find);
            attendance[static_cast<std::size_t>(night - 1)] = LastDigit(night);
            std::int16_t last = 0;
            const std::int16_t total = CountAttendance(attendance, last);
            sqlite3_bind_text(d.mark, 1, attendance.data(), 40, SQLITE_TRANSIENT);
            sqlite3_bind_int(d.mark, 2, total);
            sqlite3_bind_int(d.mark, 3, last);
            sqlite3_bind_int64(d.mark, 4, rec);
            sqlite3_step(d.mark);
            sqlite3_reset(d.mark);
        } else {
            sqlite3_reset(d.find);
        }
    }
}
void BM_SqlTicket(benchmark::State& s) { SqlTicket(s, false); }
void BM_SqlFileTicket(benchmark::State& s) { SqlTicket(s, true); }

// The whole card written back by its row, the city changed.
void SqlSave(benchmark::State& state, bool inFile) {
    const int n = static_cast<int>(state.range(0));
    Database& d = Db(n, inFile);
    Loaded& l = Crusade(n);
    MasterRecord r = l.p->MasterRec;
    const long rec = n / 2;
    bool flip = false;
    for (auto _ : state) {
        r.City = flip ? "Springfield" : "Shelbyville";
        flip = !flip;
        Database::Bind(d.save, rec, r);
        sqlite3_step(d.save);
        sqlite3_reset(d.save);
    }
}
void BM_SqlSave(benchmark::State& s) { SqlSave(s, false); }
void BM_SqlFileSave(benchmark::State& s) { SqlSave(s, true); }

// The row found by number and every column read, as a screen showing it would.
void SqlSearch(benchmark::State& state, bool inFile) {
    Database& d = Db(static_cast<int>(state.range(0)), inFile);
    std::size_t k = 0;
    for (auto _ : state) {
        const std::string& num = d.numbers[(k++ * 7919) % d.numbers.size()];
        sqlite3_bind_text(d.read, 1, num.data(), 4, SQLITE_STATIC);
        if (sqlite3_step(d.read) == SQLITE_ROW)
            for (int c = 0; c < 11; ++c) benchmark::DoNotOptimize(sqlite3_column_blob(d.read, c));
        sqlite3_reset(d.read);
    }
}
void BM_SqlSearch(benchmark::State& s) { SqlSearch(s, false); }
void BM_SqlFileSearch(benchmark::State& s) { SqlSearch(s, true); }

void Sizes3(benchmark::internal::Benchmark* b) {
    for (int n : Sizes) b->Arg(n);
    b->Unit(benchmark::kMicrosecond)->Repetitions(Reps)->MinTime(0.05);
}
// Tickets stay new marks: 9 rounds of 1000 fit in the 16 fresh nights of 1000 people.
void Tickets(benchmark::internal::Benchmark* b) {
    for (int n : Sizes) b->Arg(n);
    b->Unit(benchmark::kMicrosecond)->Repetitions(Reps)->Iterations(1000);
}

}  // namespace

BENCHMARK(BM_Ticket)->Apply(Tickets);
BENCHMARK(BM_SqlTicket)->Apply(Tickets);
BENCHMARK(BM_SqlFileTicket)->Apply(Tickets);
BENCHMARK(BM_FloorWrite)->Apply(Sizes3);
BENCHMARK(BM_SaveCard)->Apply(Sizes3);
BENCHMARK(BM_SqlSave)->Apply(Sizes3);
BENCHMARK(BM_SqlFileSave)->Apply(Sizes3);
BENCHMARK(BM_SearchByNumber)->Apply(Sizes3);
BENCHMARK(BM_SqlSearch)->Apply(Sizes3);
BENCHMARK(BM_SqlFileSearch)->Apply(Sizes3);
BENCHMARK(BM_FloorRead)->Apply(Sizes3);

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Rounds rounds;
    benchmark::RunSpecifiedBenchmarks(&rounds);
    Rounds::Header("us");
    for (int n : Sizes) rounds.Row("door ticket", n, "BM_Ticket", "BM_SqlTicket", "BM_SqlFileTicket", "BM_FloorWrite");
    for (int n : Sizes) rounds.Row("card save", n, "BM_SaveCard", "BM_SqlSave", "BM_SqlFileSave", "BM_FloorWrite");
    for (int n : Sizes)
        rounds.Row("search by number", n, "BM_SearchByNumber", "BM_SqlSearch", "BM_SqlFileSearch", "BM_FloorRead");
    benchmark::Shutdown();
    return 0;
}
