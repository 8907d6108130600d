// The statistical and visitation figures counted by the report's one pass, beside
// the same figures asked of an SQL engine as aggregates over the same people in
// memory, with the indexes a user would make. Prints the medians and the ratios.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "program/Program.h"
#include "reports/Stats.h"
#include "store/Info.h"
#include "store/MasterRecord.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 9999};

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-stats-");
    return crusades;
}

struct Opened {
    QuietHost host;
    Program p;
    std::vector<MasterRecord> people;
    explicit Opened(const std::string& path) : p(host, fs::path(path).parent_path().string()) {
        p.DataFile = path;
        LoadInfo(p);
        OpenRecordFile(p);
        FullLoadPass(p);
        for (long i = 1; i <= p.RecordCount; ++i) {
            GetRecord(p, i);
            people.push_back(p.MasterRec);
        }
    }
    ~Opened() { p.File1.Close(); }
};

// The counting alone, over the people in memory as the SQL engine has them.
void BM_Count(benchmark::State& state) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    const reports::CountSettings settings = reports::CountSettings::Of(o.p);
    for (auto _ : state) {
        reports::StatsCounter counter(settings);
        for (const MasterRecord& r : o.people) counter.Add(r);
        benchmark::DoNotOptimize(counter.Counts().TotalNames);
    }
}

// The report's own pass: every record read from the file and counted.
void BM_CountFromFile(benchmark::State& state) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        reports::CrusadeCounts c = reports::CountCrusade(o.p);
        benchmark::DoNotOptimize(c.stats.TotalNames);
    }
}

void Exec(sqlite3* db, const std::string& sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

sqlite3* LoadDatabase(const std::vector<MasterRecord>& people) {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    Exec(db,
         "CREATE TABLE people(rec INTEGER PRIMARY KEY, fname, age, adv, relpref, intlevel, visits, worker, attendance,"
         " attend, last INTEGER, mail INTEGER, decisions, class INTEGER, bapt)");
    sqlite3_stmt* ins = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO people VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)", -1, &ins, nullptr);
    Exec(db, "BEGIN");
    long i = 0;
    for (const MasterRecord& r : people) {
        const std::string text[] = {r.FName, r.Age, r.Advertising, r.RelPref, r.IntLevel, r.Visits, r.WorkerCode,
                                    r.Attendance, r.Attend};
        sqlite3_bind_int64(ins, 1, ++i);
        for (int k = 0; k < 9; ++k)
            sqlite3_bind_text(ins, k + 2, text[k].data(), static_cast<int>(text[k].size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 11, r.Last);
        sqlite3_bind_int(ins, 12, r.MailList);
        sqlite3_bind_text(ins, 13, r.Decisions.str().data(), 12, SQLITE_TRANSIENT);
        sqlite3_bind_int(ins, 14, r.Class);
        sqlite3_bind_text(ins, 15, r.BaptDate.str().data(), 8, SQLITE_TRANSIENT);
        sqlite3_step(ins);
        sqlite3_reset(ins);
    }
    sqlite3_finalize(ins);
    Exec(db, "COMMIT");
    for (const char* col : {"worker", "intlevel", "relpref", "age", "last"})
        Exec(db, std::string("CREATE INDEX people_") + col + " ON people(" + col + ")");
    return db;
}

const std::string Live = " FROM people WHERE worker<>'##'";
const std::string G = "intlevel='G'";
const std::string NoDate = "trim(bapt) IN ('','12:00AM')";

std::string Present(int i) {
    return "(" + std::to_string(i) + "<=last AND substr(attendance," + std::to_string(i) + ",1)<>'-')";
}

std::string Visited(const std::string& meeting) {
    std::string v;
    for (int g = 0; g < 4; ++g)
        v += std::string(g ? " OR " : "") + "(lower(substr(visits," + std::to_string(g * 3 + 1) +
             ",1)) IN ('l','h','m','p') AND CAST(substr(visits," + std::to_string(g * 3 + 2) + ",2) AS INTEGER)>=" +
             meeting + ")";
    return "(" + v + ")";
}

std::string Letter(char c) {
    return "length(lower(visits))-length(replace(lower(visits),'" + std::string(1, c) + "',''))";
}

// Every figure of the two reports, one statement per table.
std::vector<std::string> Queries() {
    const std::string mn = ":mn";
    std::vector<std::string> q;
    q.push_back("SELECT sum(1+(instr(fname,'&')>0)), sum(last>:mn-3), sum(class<>0), sum(class<>0 AND " + G +
                "), sum(NOT " + NoDate + " AND intlevel<>'G'), sum(class<>0 AND " + NoDate +
                " AND intlevel<'C'), sum(intlevel='A'), sum(intlevel='B'), sum(intlevel='C'), sum(" + G +
                "), sum(mail<>0), sum(CAST(attend AS INTEGER)>3)" + Live);
    q.push_back("SELECT trim(relpref), count(*), sum(" + G + ")" + Live + " GROUP BY trim(relpref)");
    std::string adv = "SELECT ";
    for (int i = 1; i <= 7; ++i) {
        const std::string set = "substr(adv," + std::to_string(i) + ",1)<>'.'";
        adv += std::string(i > 1 ? ", " : "") + "sum(" + set + "), sum(" + set + " AND " + G + ")";
    }
    q.push_back(adv + Live);
    std::string dec = "SELECT ";
    for (int i = 1; i <= 9; ++i) {
        const std::string at = "substr(decisions," + std::to_string(i) + ",1)";
        const std::string made = i == 1   ? "(" + at + "='C' OR instr(attendance,'C')>0)"
                                 : i == 2 ? "(" + at + "='S' OR instr(attendance,'S')>0)"
                                 : i == 9 ? "(" + at + "='U' OR instr(attendance,'U')>0)"
                                          : at + "<>'-'";
        dec += std::string(i > 1 ? ", " : "") + "sum(" + made + "), sum(" + made + " AND " + G + ")";
    }
    q.push_back(dec + Live);
    // Ages with the attendance of each age at each meeting.
    std::string ages = "SELECT substr(age,1,1), count(*), sum(" + G + ")";
    for (int i = 1; i <= 40; ++i) ages += ", sum(" + Present(i) + ")";
    q.push_back(ages + Live + " GROUP BY substr(age,1,1)");
    // First and last night present, the run of nights from the first, and meetings attended.
    q.push_back("SELECT length(attendance)-length(ltrim(attendance,'-'))+1 AS f, count(*)" + Live +
                " AND f<=last GROUP BY f");
    q.push_back("SELECT length(rtrim(substr(attendance,1,last),'-')) AS l, count(*)" + Live + " GROUP BY l");
    q.push_back("SELECT instr(substr(attendance,1,last)||'-','-')-1 AS k, count(*)" + Live + " GROUP BY k");
    q.push_back("SELECT CAST(attend AS INTEGER) AS a, count(*)" + Live + " GROUP BY a");
    // The teams.
    const std::string active = "(CAST(attend AS INTEGER)>3)";
    const std::string current = "(CASE WHEN :mn<4 THEN CAST(attend AS INTEGER)>=:mn ELSE last>:mn-3 END)";
    const std::string vis = "(trim(visits)<>'')";
    const std::string gospel = "(substr(decisions,1,1)='C' OR instr(attendance,'C')>0)";
    const std::string sab = "(substr(decisions,2,1)='S' OR instr(attendance,'S')>0 OR substr(attendance,:sab,1)<>'-')";
    q.push_back("SELECT CAST(worker AS INTEGER) AS t, count(*), sum(" + vis + "), sum(" + active + "), sum(" + active +
                " AND " + vis + "), sum(" + current + "), sum(" + current + " AND " + vis + "), sum(" + gospel +
                "), sum(" + gospel + " AND " + Visited(":gospel") + "), sum(" + sab + "), sum(" + sab + " AND " +
                Visited(":sab") + "), sum(intlevel='A'), sum(intlevel='B'), sum(intlevel='C'), sum(" + G + "), sum(" +
                Letter('h') + "), sum(" + Letter('m') + "), sum(" + Letter('p') + "), sum(" + Letter('l') +
                "), max(CASE WHEN " + vis + " THEN CAST(substr(rtrim(visits),-2) AS INTEGER) ELSE 0 END)" + Live +
                " GROUP BY t");
    return q;
}

void BM_Sql(benchmark::State& state) {
    Opened o(Generated().Path(static_cast<int>(state.range(0))));
    sqlite3* db = LoadDatabase(o.people);
    const reports::CountSettings settings = reports::CountSettings::Of(o.p);
    reports::StatsCounter meetings(settings);
    std::vector<sqlite3_stmt*> statements;
    for (const std::string& sql : Queries()) {
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
            state.SkipWithError(sqlite3_errmsg(db));
            return;
        }
        const std::pair<const char*, int> params[] = {{":mn", o.p.MeetingNumber},
                                                      {":sab", meetings.Teams().SabbathMeeting},
                                                      {":gospel", meetings.Teams().GospelMeeting}};
        for (const auto& [name, v] : params)
            if (int at = sqlite3_bind_parameter_index(st, name); at > 0) sqlite3_bind_int(st, at, v);
        statements.push_back(st);
    }
    long sum = 0;
    for (auto _ : state) {
        for (sqlite3_stmt* st : statements) {
            while (sqlite3_step(st) == SQLITE_ROW) sum += sqlite3_column_int(st, 1);
            sqlite3_reset(st);
        }
        benchmark::DoNotOptimize(sum);
    }
    // The same people give the same figures both ways.
    for (const MasterRecord& r : o.people) meetings.Add(r);
    sqlite3_step(statements[0]);
    if (sqlite3_column_int(statements[0], 0) != meetings.Counts().TotalNames ||
        sqlite3_column_int(statements[0], 11) != meetings.Counts().ActiveNames)
        state.SkipWithError("the engine's totals differ from the report's");
    for (sqlite3_stmt* st : statements) sqlite3_finalize(st);
    sqlite3_close(db);
}

}  // namespace

int main(int argc, char** argv) {
    const std::pair<const char*, void (*)(benchmark::State&)> benches[] = {
        {"Count", BM_Count}, {"CountFromFile", BM_CountFromFile}, {"Sql", BM_Sql}};
    for (const auto& [name, fn] : benches)
        for (int n : Sizes)
            benchmark::RegisterBenchmark(name, fn)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
    benchmark::Initialize(&argc, argv);
    Rounds reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nmedian processor time in ms, both reports' figures\n%-8s %10s %12s %10s %10s %12s\n", "people",
                "count", "count+file", "sql", "count/sql", "file/sql");
    for (int n : Sizes) {
        const std::string a = "/" + std::to_string(n);
        const double c = reporter.Cpu("Count" + a), f = reporter.Cpu("CountFromFile" + a), s = reporter.Cpu("Sql" + a);
        std::printf("%-8d %10.3f %12.3f %10.3f %10.2f %12.2f\n", n, c, f, s, s > 0 ? c / s : 0, s > 0 ? f / s : 0);
    }
    benchmark::Shutdown();
    return 0;
}
