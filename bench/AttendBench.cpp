// The door screen's own time on a crusade of 9999 people: one ticket keyed and
// Enter pressed (found, marked, written), on a fresh night and after 3000
// tickets of the same night.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <unistd.h>

#include "GeneratedCrusades.h"
#include "attend/AttendF.h"
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/Records.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-bench-door-");
    return crusades;
}

struct Door {
    Door() {
        const std::string& path = Generated().Path(9999);
        p = std::make_unique<Program>(host, Generated().Folder());
        p->DataFile = path;
        p->DataFolder = Generated().Folder();
        p->Loaded = true;
        LoadInfo(*p);
        OpenRecordFile(*p);
        FullLoad(*p);
        p->Edit();
    }
    ~Door() {
        p->File1.Close();
        p.reset();
    }
    // Opens the screen on meeting m, as the start command leaves it.
    AttendF& Open(int m) {
        if (p->AttendLoaded()) p->Attend().Unload();
        p->ScratchValue = std::to_string(m);
        AttendF& a = p->Attend();
        a.Show();
        forms::ActivateForm(p->host, &a);
        return a;
    }
    void Key(AttendF& a, int index) {
        a.SearchBox.SetText(p->SortIndex[index].substr(0, 4));
        a.EnterTicket();
    }
    QuietHost host;
    std::unique_ptr<Program> p;
};

Door& Loaded() {
    static Door d;
    return d;
}

// Arg: tickets keyed before the measured ones. The measured tickets are people
// near the end of the list, so every search walks almost all of it.
void BM_KeyOneTicket(benchmark::State& state) {
    Door& d = Loaded();
    const int before = static_cast<int>(state.range(0));
    // Each run takes a night of its own, so its first tickets are new marks.
    static int night = 24;
    night = night >= 40 ? 25 : night + 1;
    AttendF& a = d.Open(night);
    for (int i = 1; i <= before; ++i) d.Key(a, i);
    const int n = d.p->IndexCount;
    int k = 0;
    for (auto _ : state) {
        d.Key(a, n - (k++ % 1000));
        benchmark::DoNotOptimize(a.EnteredCount);
    }
    state.counters["entered"] = a.EnteredCount;
}
BENCHMARK(BM_KeyOneTicket)->Arg(0)->Arg(3000)->Unit(benchmark::kMicrosecond);

}  // namespace
