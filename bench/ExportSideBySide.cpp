// Each export written from the record file beside an SQL engine holding the
// same people (and members) writing the same rows out, in the same order, to
// a file written the same way (aside, synced, renamed). Prints the median of
// each and the ratio, export time over SQL time.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "exchange/Export.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/MasterRecord.h"
#include "store/Members.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-export-");
    return crusades;
}

// The alphabetical list, as the file walks it and the index of the table holds it.
const std::string AlphaOrder = " ORDER BY upper(substr(lname,1,5))||upper(substr(fname,1,2)), rec";
const std::string Live = " FROM people WHERE worker<>'##'";
const std::string T = "||char(9)||";

std::string Padded15(const std::string& f) { return "substr(trim(" + f + ")||'               ',1,15)"; }

// Registration entries: the people not deleted and the members, number, last and first name 15 wide.
const std::string Entries = "SELECT rnum AS n, " + Padded15("lname") + " AS l, " + Padded15("fname") +
                            " AS f, 0 AS src, rec" + Live + " UNION ALL SELECT n, l, f, 1, rowid FROM members";

struct Kind {
    const char* name;
    std::function<std::string(ProgramState&)> make;
    std::string sql;   // one row a line, without its line end
    const char* header;
};

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds = {
        {"MailMerge", [](ProgramState& p) { return exchange::MailMergeText(p, false); },
         "SELECT fname" + T + "lname" + T + "rnum" + T + "phone" + T + "address" + T + "city" + T + "state" + T +
             "zip" + T + "age" + T + "relpref" + T + "intlevel" + T + "visits" + T + "worker" + T + "trim(notes)" + T +
             "attendance" + T + "mapcode" + T + "adv" + T + "bapt" + Live + AlphaOrder,
         "FName\tLName\tReg Number\tPhone\tAddress\tCity\tState\tZip\tAge\tRelPref\tIntLevel\tVisits\tWorkerCode\t"
         "Notes\tAttendance\tMapCode\tAdvertising\tBaptism Date\r\n"},
        {"Map", [](ProgramState& p) { return exchange::MapText(p, false); },
         "SELECT trim(rnum)||' '||trim(fname)||' '||trim(lname)||','||trim(address)||','||trim(city)||','||"
         "trim(state)||','||trim(zip)||','||trim(phone)" + Live + AlphaOrder,
         ""},
        {"EMail", [](ProgramState& p) { return exchange::EMailText(p); },
         "SELECT trim(fname)||' '||trim(lname)||','||trim(fname)||','||trim(lname)||','||trim(email)||','||:crusade" +
             Live + " AND trim(email)<>''" + AlphaOrder,
         "Name,FName,LName,EMail,Meeting\r\n"},
        {"Text", [](ProgramState& p) { return exchange::TextFileText(p); },
         "SELECT rtrim(rnum)" + T + "rtrim(fname)" + T + "rtrim(lname)" + T + "rtrim(phone)" + T + "rtrim(address)" +
             T + "rtrim(city)" + T + "rtrim(state)" + T + "rtrim(zip)" + T + "rtrim(email)" + T + "trim(adv)" + T +
             "rtrim(replace(notes,',','-'))" + Live + AlphaOrder,
         ""},
        {"NameAndNumber", [](ProgramState& p) { return exchange::NameAndNumberText(p); },
         "SELECT n" + T + "f" + T + "l FROM (" + Entries + ") ORDER BY l||f, src, rec", "Reg Number\tFName\tLName\r\n"},
        {"DuplicateNames", [](ProgramState& p) { return exchange::DuplicateNamesText(p); },
         "SELECT f" + T + "l" + T + "n FROM (SELECT n, l, f, src, rec, lag(l||f) OVER o AS pk, lead(l||f) OVER o AS nk"
         " FROM (" + Entries + ") WINDOW o AS (ORDER BY l||f, src DESC, rec)) WHERE l||f=pk OR l||f=nk"
         " ORDER BY l||f, src DESC, rec",
         "FName\tLName\tReg Number\r\n"},
    };
    return kinds;
}

// A crusade opened as the splash opens it, with its members.
struct Opened {
    QuietHost host;
    Program p;
    explicit Opened(const std::string& path) : p(host, fs::path(path).parent_path().string()) {
        p.DataFile = path;
        p.DataFolder = fs::path(path).parent_path().string();
        LoadInfo(p);
        OpenRecordFile(p);
        FullLoadPass(p);
        LoadMembers(p);
        p.CrusadeName = "Bench";
    }
    ~Opened() { p.File1.Close(); }
    std::string Out(const char* kind, const char* who) const {
        return p.DataFolder + "/" + kind + "." + who + ".out";
    }
};

void BM_Export(benchmark::State& state, const Kind& k) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    const std::string path = o.Out(k.name, "export");
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text = k.make(o.p);
        bytes = text.size();
        if (!exchange::WriteExport(o.p, path, text)) state.SkipWithError("export failed");
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

void Exec(sqlite3* db, const std::string& sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

// The people as rows, each field at its full width, with the list's order as
// an index and the members beside them; not timed.
sqlite3* LoadDatabase(Program& p) {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    Exec(db,
         "CREATE TABLE people(rec INTEGER PRIMARY KEY, rnum, fname, lname, address, city, state, zip, phone, age, adv,"
         " relpref, intlevel, visits, worker, notes, attendance, mail INTEGER, mapcode, bapt, email);"
         "CREATE TABLE members(n, l, f)");
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO people VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)", -1, &ins, nullptr);
    Exec(db, "BEGIN");
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        const MasterRecord& r = p.MasterRec;
        const std::string text[] = {r.RNum,    r.FName,    r.LName,       r.Address,  r.City,   r.State,
                                    r.Zip,     r.Phone,    r.Age,         r.Advertising, r.RelPref, r.IntLevel,
                                    r.Visits,  r.WorkerCode, r.Notes,     r.Attendance};
        sqlite3_bind_int64(ins, 1, i);
        for (int k = 0; k < 16; ++k)
            sqlite3_bind_text(ins, k + 2, text[k].data(), static_cast<int>(text[k].size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 18, r.MailList);
        sqlite3_bind_text(ins, 19, r.MapCode.str().data(), 8, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 20, r.BaptDate.str().data(), 8, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 21, r.Email.str().data(), 40, SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    sqlite3_prepare_v2(db, "INSERT INTO members VALUES(?,?,?)", -1, &ins, nullptr);
    for (int i = 1; i <= p.MemberCount; ++i) {
        const std::string m = vb::Fixed(p.MemberList[static_cast<std::size_t>(i)], 34);
        sqlite3_bind_text(ins, 1, m.data(), 4, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 2, m.data() + 4, 15, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 3, m.data() + 19, 15, SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    Exec(db, "COMMIT");
    Exec(db, "CREATE INDEX alpha ON people(upper(substr(lname,1,5))||upper(substr(fname,1,2)), rec)");
    return db;
}

void BM_Sql(benchmark::State& state, const Kind& k) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    sqlite3* db = LoadDatabase(o.p);
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, k.sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
        state.SkipWithError(sqlite3_errmsg(db));
        sqlite3_close(db);
        return;
    }
    const int crusade = sqlite3_bind_parameter_index(st, ":crusade");
    if (crusade > 0) sqlite3_bind_text(st, crusade, o.p.CrusadeName.c_str(), -1, SQLITE_TRANSIENT);
    const std::string path = o.Out(k.name, "sql");
    std::size_t bytes = 0;
    for (auto _ : state) {
        std::string text = k.header;
        while (sqlite3_step(st) == SQLITE_ROW) {
            text.append(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)),
                        static_cast<std::size_t>(sqlite3_column_bytes(st, 0)));
            text += "\r\n";
        }
        sqlite3_reset(st);
        bytes = text.size();
        if (!exchange::WriteExport(o.p, path, text)) state.SkipWithError("write failed");
    }
    state.counters["bytes"] = static_cast<double>(bytes);
    sqlite3_finalize(st);
    sqlite3_close(db);
    // The two files hold the same rows, or the comparison means nothing. People
    // of one name may stand in another order: the list's sort is not stable.
    auto lines = [](const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        std::vector<std::string> v;
        for (std::string l; std::getline(in, l);) v.push_back(l);
        std::sort(v.begin(), v.end());
        return v;
    };
    const std::vector<std::string> x = lines(o.Out(k.name, "export"));
    if (!x.empty() && x != lines(path)) state.SkipWithError("the SQL rows differ from the export's");
}

}  // namespace

int main(int argc, char** argv) {
    for (const Kind& k : Kinds()) {
        for (int n : Sizes) {
            benchmark::RegisterBenchmark((std::string("Export/") + k.name).c_str(), BM_Export, k)
                ->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
            benchmark::RegisterBenchmark((std::string("Sql/") + k.name).c_str(), BM_Sql, k)
                ->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
        }
    }
    benchmark::Initialize(&argc, argv);
    Rounds reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nmedian processor time in ms\n%-16s %10s %10s %7s %10s %10s %7s %10s\n", "export", "file 1000",
                "sql 1000", "ratio", "file 9999", "sql 9999", "ratio", "9999/1000");
    for (const Kind& k : Kinds()) {
        const std::string e = std::string("Export/") + k.name, s = std::string("Sql/") + k.name;
        double e1 = reporter.Cpu(e + "/1000"), s1 = reporter.Cpu(s + "/1000");
        double e9 = reporter.Cpu(e + "/9999"), s9 = reporter.Cpu(s + "/9999");
        std::printf("%-16s %10.3f %10.3f %7.2f %10.3f %10.3f %7.2f %10.1f\n", k.name, e1, s1, s1 > 0 ? e1 / s1 : 0, e9,
                    s9, s9 > 0 ? e9 / s9 : 0, e1 > 0 ? e9 / e1 : 0);
    }
    std::printf("(linear growth from 1000 to 9999 people gives 10.0)\n");
    benchmark::Shutdown();
    return 0;
}
