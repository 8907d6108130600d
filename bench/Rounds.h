#pragma once
// Every round of every benchmark kept, in processor time and on the wall, so
// that a program can print medians, the ratio to its peer round by round, and
// the growth from 1000 to 9999 people read from processor time (a fixed wait
// on the disk shows on the wall and hides growth).
//
// One line per operation and size, in the same columns in every program:
//   operation people | Vestrel cpu wall | SQLite cpu | SQLite file cpu | floor cpu | ratios | growth
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

class Rounds : public benchmark::ConsoleReporter {
public:
    struct Times {
        std::vector<double> cpu, wall;
    };
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs)
            if (r.run_type == Run::RT_Iteration) {
                Times& t = runs_[r.run_name.function_name + "/" + r.run_name.args];
                t.cpu.push_back(r.GetAdjustedCPUTime());
                t.wall.push_back(r.GetAdjustedRealTime());
            }
        ConsoleReporter::ReportRuns(runs);
    }
    static double Median(std::vector<double> v) {
        if (v.empty()) return 0;
        std::sort(v.begin(), v.end());
        const std::size_t m = v.size() / 2;
        return v.size() % 2 ? v[m] : (v[m - 1] + v[m]) / 2;
    }
    const Times* Of(const std::string& name) const {
        auto it = runs_.find(name);
        return it == runs_.end() ? nullptr : &it->second;
    }
    double Cpu(const std::string& name) const { return Of(name) ? Median(Of(name)->cpu) : 0; }
    double Wall(const std::string& name) const { return Of(name) ? Median(Of(name)->wall) : 0; }
    // Vestrel's time over the peer's, round by round, in processor time.
    std::vector<double> RatiosPerRound(const std::string& ours, const std::string& peer) const {
        std::vector<double> r;
        const Times *a = Of(ours), *b = Of(peer);
        if (!a || !b) return r;
        for (std::size_t k = 0; k < std::min(a->cpu.size(), b->cpu.size()); ++k)
            r.push_back(b->cpu[k] > 0 ? a->cpu[k] / b->cpu[k] : 0);
        return r;
    }

    static void Header(const char* unit) {
        std::printf("\n%-26s %6s | %9s %9s | %9s %9s | %9s | %7s %7s %7s | %6s %6s   (%s; cpu = processor time)\n",
                    "operation", "people", "ours cpu", "ours wall", "sql mem", "sql file", "floor", "/sqlmem",
                    "/sqlfile", "/floor", "growth", "sqlgro", unit);
    }
    // One line for an operation at one size. Names are "BM_x" without the size; an
    // empty name is a peer this operation does not have. Growth is printed at 9999.
    void Row(const std::string& op, int people, const std::string& ours, const std::string& sqlMem,
             const std::string& sqlFile, const std::string& floor) const {
        const std::string at = "/" + std::to_string(people);
        auto cpu = [&](const std::string& n) { return n.empty() ? 0.0 : Cpu(n + at); };
        auto ratio = [](double a, double b) { return b > 0 ? a / b : 0.0; };
        const double v = cpu(ours), m = cpu(sqlMem), f = cpu(sqlFile), fl = cpu(floor);
        std::printf("%-26s %6d | %9.2f %9.2f | %9.2f %9.2f | %9.2f | %7.2f %7.2f %7.2f |", op.c_str(), people, v,
                    Wall(ours + at), m, f, fl, ratio(v, m), ratio(v, f), ratio(v, fl));
        if (people == 9999)
            std::printf(" %6.2f %6.2f", ratio(v, cpu(ours) > 0 ? Cpu(ours + "/1000") : 0),
                        ratio(m, sqlMem.empty() ? 0 : Cpu(sqlMem + "/1000")));
        std::printf("\n");
        for (const auto& [peer, label] : {std::pair{sqlMem, "sql mem"}, std::pair{sqlFile, "sql file"}}) {
            if (peer.empty()) continue;
            std::vector<double> r = RatiosPerRound(ours + at, peer + at);
            if (r.empty()) continue;
            std::printf("%35s ours/%s per round:", "", label);
            for (double x : r) std::printf(" %.2f", x);
            std::printf("\n");
        }
    }

private:
    std::map<std::string, Times> runs_;
};
