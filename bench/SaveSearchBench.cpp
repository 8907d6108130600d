// The edit screen's own time on a full crusade of 9999 people: a save of one
// changed person, a move to the next card, and a search by number.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <unistd.h>

#include "GeneratedCrusades.h"
#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "program/Program.h"
#include "store/Info.h"
#include "store/Records.h"
#include "support/QuietHost.h"

namespace fs = std::filesystem;

namespace {

GeneratedCrusades& Generated() {
    static GeneratedCrusades crusades("vestrel-bench-save-");
    return crusades;
}

// One generated crusade, loaded on the edit screen, for the whole run.
struct Screen {
    Screen() {
        const std::string& path = Generated().Path(9999);
        p = std::make_unique<Program>(host, Generated().Folder());
        p->DataFile = path;
        p->DataFolder = Generated().Folder();
        p->Loaded = true;
        LoadInfo(*p);
        OpenRecordFile(*p);
        FullLoad(*p);
        e = &p->Edit();
    }
    ~Screen() {
        p->File1.Close();
        p.reset();
    }
    QuietHost host;
    std::unique_ptr<Program> p;
    EditForm* e = nullptr;
};

Screen& Loaded() {
    static Screen s;
    return s;
}

void BM_SaveOneChangedPerson(benchmark::State& state) {
    Screen& s = Loaded();
    s.p->CurrentIndex = s.p->IndexCount / 2;
    FetchCurrentRecord(*s.p);
    s.e->ShowRecord();
    bool flip = false;
    for (auto _ : state) {
        s.e->City.SetText(flip ? "Springfield" : "Shelbyville");
        flip = !flip;
        benchmark::DoNotOptimize(s.e->SaveChanges());
        s.p->UndoRec = s.p->MasterRec;
    }
}
BENCHMARK(BM_SaveOneChangedPerson)->Unit(benchmark::kMicrosecond);

void BM_NextCard(benchmark::State& state) {
    Screen& s = Loaded();
    s.p->CurrentIndex = 1;
    FetchCurrentRecord(*s.p);
    s.e->ShowRecord();
    for (auto _ : state) {
        if (s.p->CurrentIndex >= s.p->IndexCount) s.p->CurrentIndex = 1;
        s.e->ChgRec_Click(2);
    }
}
BENCHMARK(BM_NextCard)->Unit(benchmark::kMicrosecond);

void BM_SearchByNumber(benchmark::State& state) {
    Screen& s = Loaded();
    // The number of the person at the end of the list: the walk is the longest.
    std::string last = s.p->SortIndex[s.p->IndexCount].substr(0, 4);
    for (auto _ : state) {
        s.e->SearchFor(last);
        benchmark::DoNotOptimize(s.p->CurrentIndex);
    }
}
BENCHMARK(BM_SearchByNumber)->Unit(benchmark::kMicrosecond);

}  // namespace
