// The keys of the card on a full crusade of 9999 people: PgDn to the next
// person, leaving a changed registration number (its duplicate test walks the
// whole list), and leaving the city with a full zip table.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

#include "GeneratedCrusades.h"
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/Records.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;
using namespace forms;

namespace {

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-bench-edit-");
    return crusades;
}

struct FullCrusade {
    QuietHost host;
    std::unique_ptr<Program> p;
    FullCrusade() {
        p = std::make_unique<Program>(host, Generated().Folder());
        Generated().Use(*p, 9999);
        p->Loaded = true;
        OpenRecordFile(*p);
        FullLoad(*p);
    }
    ~FullCrusade() {
        p->File1.Close();
        p.reset();
    }
};

FullCrusade& Crusade() {
    static FullCrusade c;
    return c;
}

void BM_PageDownToTheNextPerson(benchmark::State& state) {
    Program& p = *Crusade().p;
    EditForm& e = p.Edit();
    e.LName.SetFocus();
    for (auto _ : state) {
        if (p.CurrentIndex >= p.IndexCount) {
            state.PauseTiming();
            p.CurrentIndex = 1;
            state.ResumeTiming();
        }
        e.PressKey(vbKeyPageDown);
        benchmark::DoNotOptimize(e.LName.Text());
    }
}
BENCHMARK(BM_PageDownToTheNextPerson)->Unit(benchmark::kMicrosecond);

void BM_LeaveAChangedNumber(benchmark::State& state) {
    Program& p = *Crusade().p;
    EditForm& e = p.Edit();
    p.CurrentIndex = 1;
    FetchCurrentRecord(p);
    e.ShowRecord();
    const std::string own = e.RNum.Text();
    bool flip = false;
    for (auto _ : state) {
        // A number nobody else has: the whole list is walked before it is taken.
        e.RNum.SetFocus();
        e.RNum.SetText((flip = !flip) ? "0000" : own);
        e.FName.SetFocus();
        benchmark::DoNotOptimize(e.RNum.Text());
    }
}
BENCHMARK(BM_LeaveAChangedNumber)->Unit(benchmark::kMicrosecond);

void BM_LeaveTheCityWithAFullZipTable(benchmark::State& state) {
    Program& p = *Crusade().p;
    EditForm& e = p.Edit();
    for (int i = 1; i <= 2000; ++i)
        p.ZipList[static_cast<std::size_t>(i)] = std::to_string(20000 + i) + "     IL00Town             1";
    p.ZipCount = 2000;
    for (auto _ : state) {
        // The last zip of the table: every entry is looked at, twice.
        e.Zip.SetText("22000");
        e.City.SetText("Town");
        e.City.SetFocus();
        e.Phone.SetFocus();
        benchmark::DoNotOptimize(e.State.Text());
    }
}
BENCHMARK(BM_LeaveTheCityWithAFullZipTable)->Unit(benchmark::kMicrosecond);

}  // namespace
