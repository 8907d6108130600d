// Every kind of list built from the record file beside the same selection and
// order asked of an SQL engine holding the same people in memory. Prints the
// median of each and the ratio, list time over SQL time.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "lists/Lists.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/MasterRecord.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};
constexpr int CutOff = 2;

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-lists-");
    return crusades;
}

// Name pieces and the attendance key in SQL, on fields stored at their full width.
const std::string LP = "upper(lname)||substr(fname,1,3)";
const std::string LUP = "upper(lname)||upper(substr(fname,1,3))";
const std::string FP = "upper(lname)||upper(fname)";
const std::string AK = "substr('000'||(9999-last),-3)";
const std::string W = "worker<>'##'";
const std::string C = "last>" + std::to_string(CutOff);
const std::string Appointment =
    "(CASE instr(trim(visits),'A') WHEN 0 THEN 'AN04' ELSE substr(trim(visits),instr(trim(visits),'A'),2)||"
    "printf('%02d',instr('ABCD0123456789',substr(trim(visits),instr(trim(visits),'A')+2,1))-1) END)";
const std::string Household = "upper(address)||" + FP + "||worker";
const std::string HasAddress = "trim(address)<>'' AND upper(trim(address))<>'ADDRESS UNKNOWN'";

std::string Select(const std::string& key, const std::string& rule, const char* order = "") {
    return "SELECT rnum||" + key + "||printf('%4d',rec) FROM people WHERE " + rule + " ORDER BY " + key + " " +
           order + ", rec " + order;
}

std::string Visited(int s) {
    std::string v;
    for (int g = 0; g < 3; ++g) {
        std::string at = std::to_string(g * 3 + 1);
        v += std::string(g ? " OR " : "") + "(lower(substr(visits," + at + ",1)) IN ('l','h','m','p') AND CAST(substr(visits," +
             std::to_string(g * 3 + 2) + ",2) AS INTEGER)>=" + std::to_string(s) + ")";
    }
    return "(" + v + ")";
}

std::string Advertising() {
    std::string q;
    for (int k = 1; k <= 7; ++k) {
        std::string mark = "substr(adv," + std::to_string(k) + ",1)";
        q += std::string(k > 1 ? " UNION ALL " : "") + "SELECT rnum||" + mark + "||lname||upper(substr(fname,1,3))||" +
             "printf('%4d',rec) AS e, " + mark + "||lname||upper(substr(fname,1,3)) AS k, rec FROM people WHERE " + W +
             " AND " + mark + "<>'.'";
    }
    return "SELECT e FROM (" + q + ") ORDER BY k, rec";
}

std::string DateKey() {
    return "SELECT rnum||k||" + FP + "||printf('%4d',rec) FROM (SELECT *, (CASE WHEN substr(d,7,2)>'50' THEN '19' "
           "ELSE '20' END)||substr(d,7,2)||substr(d,1,2)||substr(d,4,2) AS k FROM (SELECT *, CASE WHEN "
           "substr(m,5,1)='/' THEN substr(m,1,3)||'0'||substr(m,4) ELSE m END AS d FROM (SELECT *, CASE WHEN "
           "substr(trim(bapt),2,1)='/' THEN '0'||trim(bapt) ELSE trim(bapt) END AS m FROM people WHERE " + W +
           " AND CAST(bapt AS REAL)>0))) ORDER BY k, " + FP + ", rec";
}

// People sharing an address: neighbours in address order, by window.
std::string Duplicates(const std::string& differ) {
    std::string base = "SELECT rnum||" + Household + "||printf('%4d',rec) AS e, " + Household +
                       " AS k, rec, upper(address) AS a, lname AS l, worker AS w FROM people WHERE " + W + " AND " +
                       HasAddress;
    std::string prev = "(a=pa" + (differ.empty() ? "" : " AND " + differ + "<>p" + differ) + ")";
    std::string next = "(a=na" + (differ.empty() ? "" : " AND " + differ + "<>n" + differ) + ")";
    return "SELECT e FROM (SELECT e, k, rec, a, l, w, lag(a) OVER o AS pa, lead(a) OVER o AS na, lag(l) OVER o AS pl,"
           " lead(l) OVER o AS nl, lag(w) OVER o AS pw, lead(w) OVER o AS nw FROM (" + base +
           ") WINDOW o AS (ORDER BY k, rec)) WHERE " + prev + " OR " + next + " ORDER BY k, rec";
}

std::string CleanMail() {
    std::string e = "SELECT rnum||" + Household + " AS h, " + Household + " AS k, rec, substr(upper(address),1,10) AS g,"
                    " mail FROM people WHERE " + W + " AND " + HasAddress;
    return "WITH e AS (" + e + "), g AS (SELECT g, dense_rank() OVER (ORDER BY g) AS n FROM e GROUP BY g HAVING "
           "sum(mail<>0)<>1) SELECT e.h||(CASE WHEN e.mail<>0 THEN 'M' ELSE 'N' END)||printf('%04d',g.n)||"
           "printf('%4d',e.rec) FROM e JOIN g ON e.g=g.g ORDER BY e.k, e.rec";
}

struct ListKind {
    const char* kind;
    int number;
    const char* option;
    std::string sql;
};

const std::vector<ListKind>& Kinds() {
    static const std::vector<ListKind> kinds = {
        {"alpha", 0, "", Select("upper(substr(lname,1,5))||upper(substr(fname,1,2))", W)},
        {"alphafilter", 0, "", Select("upper(substr(lname,1,5))||upper(substr(fname,1,2))", W + " AND " + C)},
        {"undelete", 0, "", Select("upper(substr(lname,1,5))||upper(substr(fname,1,2))", "worker='##' AND rnum<>'skip'")},
        {"notes", 0, "", Select(LP, W + " AND trim(notes)<>''")},
        {"religion", 0, "", Select("relpref||" + LP, W + " AND " + C)},
        {"needsabvis", 0, "", Select(LP, W + " AND substr(attendance,8,1)>'-' AND NOT " + Visited(8))},
        {"age", 0, "", Select("age||" + LP, W + " AND " + C)},
        {"TotalAttend", 2, "atleast",
         Select("(CASE WHEN substr(attend,2,1)<>' ' THEN attend ELSE '0'||substr(attend,1,1) END)||" + LP,
                W + " AND " + C + " AND CAST(attend AS INTEGER)>=2", "DESC")},
        {"attend", 0, "", Select(AK + "||" + LP, W + " AND " + C)},
        {"attendnight", 1, "", Select(LP, W + " AND substr(attendance,1,1)<>'-'")},
        {"missednight", 3, "", Select(LP, W + " AND last>=" + std::to_string(CutOff) + " AND last<=:mn-3")},
        {"interest", 0, "", Select("intlevel||" + LUP, W + " AND intlevel IN ('A','B','C','G')")},
        {"NoAssignedInterest", 0, "", Select("intlevel||" + LUP, W + " AND intlevel IN (' ','E') AND last>:mn-4")},
        {"PreCrusade", 0, "", Select(LUP, W + " AND substr(adv,5,1)='P'")},
        {"Advertising", 0, "", Advertising()},
        {"NeedInterview", 0, "", Select("intlevel||" + LUP, W + " AND intlevel BETWEEN 'A' AND 'C' AND class=0")},
        {"WCNeedInterview", 0, "",
         Select("worker||intlevel||" + LUP, W + " AND intlevel BETWEEN 'A' AND 'C' AND class=0")},
        {"NeedDate", 0, "", Select("intlevel||" + LUP, W + " AND trim(bapt)='' AND intlevel IN ('A','B')")},
        {"FutureBapDateSet", 0, "", Select("bapt||" + LUP, W + " AND trim(bapt)<>'' AND intlevel<>'G'")},
        {"InterviewRemain", 0, "",
         Select(Appointment + "||" + LUP, W + " AND intlevel<'D' AND class<>0 AND trim(bapt)=''")},
        {"BaptClass", 0, "", Select(Appointment + "||" + LUP, W + " AND class<>0")},
        {"IntCard", 2, "", Select("worker||" + FP, W + " AND " + C + " AND intflag=0")},
        {"mail", 0, "", Select("zip||" + FP, W + " AND mail<>0")},
        {"zip", 0, "", Select("zip||upper(address)||" + FP, W + " AND " + C)},
        {"date", 0, "", DateKey()},
        {"map", 0, "", Select(AK + "||worker||mapcode||" + AK + "||" + LP, W + " AND " + C)},
        {"wcattend", 0, "", Select("worker||" + AK + "||" + LP, W + " AND " + C)},
        {"SelWCAttend", 3, "", Select("worker||" + AK + "||" + LP, W + " AND " + C + " AND worker='03'")},
        {"wcalpha", 0, "", Select("worker||" + FP, W + " AND " + C)},
        {"baptism", 0, "", Select(LUP, W + " AND intlevel='G'")},
        {"marked", 0, "", Select(LUP, W + " AND mark<>0")},
        {"decisions", 2, "Al",
         Select(LUP, W + " AND " + C + " AND intlevel<>'D' AND (substr(decisions,2,1)<>'-' OR instr(attendance,'S')>0)")},
        {"DupAddress", 0, "All", Duplicates("")},
        {"NDupAddress", 0, "", Duplicates("l")},
        {"TDupAddress", 0, "", Duplicates("w")},
        {"CleanMailList", 0, "", CleanMail()},
    };
    return kinds;
}

// A crusade opened as the splash opens it, and loaded once.
struct Opened {
    QuietHost host;
    Program p;
    explicit Opened(const std::string& path) : p(host, fs::path(path).parent_path().string()) {
        p.DataFile = path;
        LoadInfo(p);
        OpenRecordFile(p);
        FullLoadPass(p);
        p.PrintCutOff = CutOff;
    }
    ~Opened() { p.File1.Close(); }
};

void BM_List(benchmark::State& state, const ListKind& k) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        o.p.SortName = "alpha";
        lists::BuildList(o.p, k.kind, k.number, k.option);
        benchmark::DoNotOptimize(o.p.IndexCount);
    }
    state.counters["entries"] = o.p.IndexCount;
}

void Exec(sqlite3* db, const char* sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

// The people as rows, each field at its full width; not timed.
sqlite3* LoadDatabase(Program& p) {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    Exec(db,
         "CREATE TABLE people(rec INTEGER PRIMARY KEY, rnum, fname, lname, address, zip, age, adv, relpref, intlevel,"
         " visits, worker, notes, attendance, attend, last INTEGER, mail INTEGER, decisions, class INTEGER, mapcode,"
         " bapt, intflag INTEGER, mark INTEGER);"
         // The indexes a user would make: one on each column a list selects or sorts by.
         "CREATE INDEX p_intlevel ON people(intlevel); CREATE INDEX p_worker ON people(worker);"
         "CREATE INDEX p_mail ON people(mail); CREATE INDEX p_mark ON people(mark);"
         "CREATE INDEX p_class ON people(class); CREATE INDEX p_last ON people(last);"
         "CREATE INDEX p_zip ON people(zip); CREATE INDEX p_bapt ON people(bapt);"
         "CREATE INDEX p_relpref ON people(relpref); CREATE INDEX p_age ON people(age);"
         "CREATE INDEX p_rnum ON people(rnum); CREATE INDEX p_lname ON people(lname);"
         "CREATE INDEX p_intflag ON people(intflag);");
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO people VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)", -1, &ins,
                       nullptr);
    Exec(db, "BEGIN");
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        const MasterRecord& r = p.MasterRec;
        const std::string text[] = {r.RNum, r.FName, r.LName, r.Address, r.Zip, r.Age, r.Advertising, r.RelPref,
                                    r.IntLevel, r.Visits, r.WorkerCode, r.Notes, r.Attendance, r.Attend};
        sqlite3_bind_int64(ins, 1, i);
        for (int k = 0; k < 14; ++k)
            sqlite3_bind_text(ins, k + 2, text[k].data(), static_cast<int>(text[k].size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 16, r.Last);
        sqlite3_bind_int(ins, 17, r.MailList);
        sqlite3_bind_text(ins, 18, r.Decisions.str().data(), 12, SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 19, r.Class);
        sqlite3_bind_text(ins, 20, r.MapCode.str().data(), 8, SQLITE_TRANSIENT);
        sqlite3_bind_text(ins, 21, r.BaptDate.str().data(), 8, SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 22, r.IntFlag);
        sqlite3_bind_int(ins, 23, r.MarkToVisit);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    Exec(db, "COMMIT");
    Exec(db, "ANALYZE");
    return db;
}

void BM_Sql(benchmark::State& state, const ListKind& k) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    sqlite3* db = LoadDatabase(o.p);
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, k.sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
        state.SkipWithError(sqlite3_errmsg(db));
        sqlite3_close(db);
        return;
    }
    int mn = sqlite3_bind_parameter_index(st, ":mn");
    if (mn > 0) sqlite3_bind_int(st, mn, o.p.MeetingNumber);
    long rows = 0;
    for (auto _ : state) {
        rows = 0;
        // The result read into a list of strings, as the screens would walk it.
        std::vector<std::string> list(1);
        while (sqlite3_step(st) == SQLITE_ROW) {
            list.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)),
                              static_cast<std::size_t>(sqlite3_column_bytes(st, 0)));
            ++rows;
        }
        sqlite3_reset(st);
        benchmark::DoNotOptimize(list.data());
    }
    state.counters["entries"] = static_cast<double>(rows);
    sqlite3_finalize(st);
    sqlite3_close(db);
}

// The least a list read from the file costs: the whole record file read.
void BM_FloorRead(benchmark::State& state) {
    const std::string path = Generated().Path(static_cast<int>(state.range(0)));
    std::vector<char> bytes(static_cast<std::size_t>(std::filesystem::file_size(path)));
    for (auto _ : state) {
        std::FILE* f = std::fopen(path.c_str(), "rb");
        if (!f || std::fread(bytes.data(), 1, bytes.size(), f) != bytes.size()) state.SkipWithError("read failed");
        if (f) std::fclose(f);
        benchmark::DoNotOptimize(bytes.data());
    }
}

}  // namespace

int main(int argc, char** argv) {
    for (const ListKind& k : Kinds()) {
        for (int n : Sizes) {
            benchmark::RegisterBenchmark((std::string("List/") + k.kind).c_str(), BM_List, k)
                ->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7)->MinTime(0.05);
            benchmark::RegisterBenchmark((std::string("Sql/") + k.kind).c_str(), BM_Sql, k)
                ->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7)->MinTime(0.05);
        }
    }
    for (int n : Sizes)
        benchmark::RegisterBenchmark("FloorRead", BM_FloorRead)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7)->MinTime(0.05);
    benchmark::Initialize(&argc, argv);
    Rounds rounds;
    benchmark::RunSpecifiedBenchmarks(&rounds);
    Rounds::Header("ms");
    for (const ListKind& k : Kinds())
        for (int n : Sizes)
            rounds.Row(std::string("list ") + k.kind, n, std::string("List/") + k.kind, std::string("Sql/") + k.kind, "",
                       "FloorRead");
    benchmark::Shutdown();
    return 0;
}
