// The import of a comma-separated file of n people into an empty crusade, beside
// an SQL engine reading the same file into a table with an index on the number.
// Both write to the disk's cache without waiting for the disk itself. Prints the
// median of each, the ratio and the growth from 1000 to 9999 lines.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "exchange/Import.h"
#include "platform/vb/Strings.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/Records.h"
#include "GeneratedCrusades.h"
#include "Rounds.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

constexpr int Sizes[] = {1000, 3000, 9999};

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-import-");
    return crusades;
}

std::string Quoted(const std::string& s) {
    std::string t = vb::RTrim(s);
    return t.find(',') != std::string::npos ? "\"" + t + "\"" : t;
}

// The people of a generated crusade as the nine columns, one line each; made once a size.
const std::string& Csv(int n) {
    static std::map<int, std::string> made;
    auto it = made.find(n);
    if (it != made.end()) return it->second;
    QuietHost host;
    Program p(host, Generated().Folder());
    p.DataFile = Generated().Path(n);
    OpenRecordFile(p);
    std::string text;
    for (long i = 1; i <= p.RecordCount; ++i) {
        GetRecord(p, i);
        const MasterRecord& r = p.MasterRec;
        // Every third address has a comma, so that the quotes are read too.
        std::string address = vb::RTrim(r.Address) + (i % 3 == 0 ? ", Apt 2" : "");
        text += Quoted(r.RNum) + "," + Quoted(r.FName) + "," + Quoted(r.LName) + "," + Quoted(address) + "," +
                Quoted(r.City) + "," + Quoted(r.State) + "," + Quoted(r.Zip) + "," + Quoted(r.Phone) + "," +
                Quoted(vb::RTrim(r.Email).empty() ? "someone@example.org" : r.Email) + "\r\n";
    }
    p.File1.Close();
    std::string path = Generated().Folder() + "/import" + std::to_string(n) + ".csv";
    std::ofstream(path, std::ios::binary) << text;
    return made[n] = path;
}

// An empty crusade beside the file, opened as the splash opens it.
struct Empty {
    QuietHost host;
    Program p;
    explicit Empty(const std::string& folder) : p(host, folder) {
        p.DataFile = folder + "/Empty.dta";
        fs::remove(p.DataFile);
        OpenRecordFile(p);
        p.SortName = "alpha";
    }
    ~Empty() { p.File1.Close(); }
};

void BM_Import(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::string csv = Csv(n);
    long added = 0;
    for (auto _ : state) {
        state.PauseTiming();
        {
            Empty e(Generated().Folder());
            state.ResumeTiming();
            // All the operator waits for: reading, the preview's checks, the writing, the sorted list.
            exchange::ImportFile f = exchange::ReadImportFile(csv);
            std::vector<exchange::ImportWarning> w = exchange::CheckImport(e.p, f);
            added = exchange::AppendImport(e.p, f);
            benchmark::DoNotOptimize(w.data());
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.counters["people"] = static_cast<double>(added);
}

void Exec(sqlite3* db, const char* sql) {
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::string what = err ? err : "sqlite error";
        sqlite3_free(err);
        throw std::runtime_error(what);
    }
}

// Fields of one line: commas separate, a quoted field may hold one.
void SplitLine(const std::string& text, std::size_t& at, std::vector<std::string>& fields) {
    fields.clear();
    std::string f;
    bool quoted = false;
    for (; at < text.size(); ++at) {
        char c = text[at];
        if (quoted) {
            if (c == '"') quoted = false;
            else f += c;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.push_back(std::move(f));
            f.clear();
        } else if (c == '\r' || c == '\n') {
            if (c == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ++at;
            ++at;
            break;
        } else {
            f += c;
        }
    }
    fields.push_back(std::move(f));
}

void BM_Sql(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::string csv = Csv(n);
    const std::string dbPath = Generated().Folder() + "/import.db";
    long rows = 0;
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove(dbPath);
        fs::remove(dbPath + "-journal");
        sqlite3* db = nullptr;
        sqlite3_open(dbPath.c_str(), &db);
        Exec(db, "PRAGMA synchronous=OFF");
        Exec(db, "CREATE TABLE people(rec INTEGER PRIMARY KEY, rnum TEXT, fname TEXT, lname TEXT, address TEXT,"
                 " city TEXT, state TEXT, zip TEXT, phone TEXT, email TEXT)");
        Exec(db, "CREATE INDEX people_rnum ON people(rnum)");
        sqlite3_stmt* ins = nullptr;
        sqlite3_prepare_v2(db, "INSERT INTO people(rnum,fname,lname,address,city,state,zip,phone,email) "
                               "VALUES(?,?,?,?,?,?,?,?,?)", -1, &ins, nullptr);
        state.ResumeTiming();
        std::ifstream in(csv, std::ios::binary);
        std::ostringstream all;
        all << in.rdbuf();
        const std::string text = std::move(all).str();
        std::vector<std::string> fields;
        rows = 0;
        Exec(db, "BEGIN");
        for (std::size_t at = 0; at < text.size();) {
            SplitLine(text, at, fields);
            for (int k = 0; k < 9; ++k) {
                const std::string& v = k < static_cast<int>(fields.size()) ? fields[static_cast<std::size_t>(k)] : "";
                sqlite3_bind_text(ins, k + 1, v.data(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
            }
            sqlite3_step(ins);
            sqlite3_reset(ins);
            ++rows;
        }
        Exec(db, "COMMIT");
        state.PauseTiming();
        sqlite3_finalize(ins);
        sqlite3_close(db);
        state.ResumeTiming();
    }
    state.counters["people"] = static_cast<double>(rows);
}

}  // namespace

int main(int argc, char** argv) {
    for (int n : Sizes) {
        benchmark::RegisterBenchmark("Import", BM_Import)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
        benchmark::RegisterBenchmark("Sql", BM_Sql)->Arg(n)->Unit(benchmark::kMillisecond)->Repetitions(7);
    }
    benchmark::Initialize(&argc, argv);
    Rounds reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nmedian processor time in ms\n%-8s %10s %10s %8s\n", "lines", "import", "sql", "ratio");
    for (int n : Sizes) {
        const std::string a = std::to_string(n);
        double i = reporter.Cpu("Import/" + a), s = reporter.Cpu("Sql/" + a);
        std::printf("%-8d %10.3f %10.3f %8.2f\n", n, i, s, s > 0 ? i / s : 0);
    }
    double i1 = reporter.Cpu("Import/1000"), i9 = reporter.Cpu("Import/9999");
    std::printf("import growth 1000 -> 9999 lines: %.1f (linear: 10.0)\n", i1 > 0 ? i9 / i1 : 0);
    benchmark::Shutdown();
    return 0;
}
