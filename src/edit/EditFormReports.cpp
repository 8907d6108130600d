// The Print Reports menu: each entry saves the person on screen, then prints
// its report on a list the report builds for itself.
#include <cstdint>
#include <utility>

#include "edit/EditForm.h"
#include "edit/Navigate.h"
#include "program/Program.h"
#include "reports/Reports.h"

using namespace forms;

void EditForm::RunReport(void (*report)(Program&, int), int code) {
    if (p.IndexCount != 0 && !SaveChanges()) return;
    const std::string kind = p.SortName;
    const int at = p.CurrentIndex;
    p.PrintingFromPreview = false;
    report(p, code);
    // The report's list stays, as a filter's would; the screen shows its first person.
    if ((p.SortName != kind || p.CurrentIndex != at) && p.IndexCount > 0 && FetchCurrentRecord(p)) {
        ShowRecord();
        SetupScreen("");
    }
}

void EditForm::WireReports() {
    std::pair<Menu*, int> oneLine[] = {{&mnuPrRptSubAlpha, 1}, {&mnuRptSubAttend, 2}, {&mnuMapCode, 3},
                                       {&mnuRptSubZip, 4},     {&mnuPrBaptDate, 5},   {&mnuPrIntLevel, 6},
                                       {&mnuPrintBaptClass, 7}, {&mnuPreCrusade, 8},  {&mnuPrMarked, 10},
                                       {&mnuSDARpt, 11},       {&mnuPrRptSelectedMtg, 12},
                                       {&mnuPrnTotalAttended, 13}};
    std::pair<Menu*, int> byTeam[] = {{&mnuPrintAlphaWC, 1}, {&mnuPrintAttendWC, 2}, {&mnuTeamMaster, 4},
                                      {&mnuPrnTotalAttendedWC, 5}};
    for (auto [m, code] : oneLine)
        m->Click = [this, c = code] { RunReport([](Program& prog, int k) { PrintOneLineReport(prog, k); }, c); };
    for (auto [m, code] : byTeam)
        m->Click = [this, c = code] { RunReport([](Program& prog, int k) { PrintWCReport(prog, k); }, c); };
    mnuPrDecisions.Click = [this] {
        RunReport([](Program& prog, int) {
            std::int16_t n = 0;
            PrintDecisions(prog, n);
        }, 0);
    };
    mnuPrBaptList.Click = [this] { RunReport([](Program& prog, int) { PrintBaptisms(prog); }, 0); };
    for (Menu* m : {&mnuPrRptMasters, &mnuPrRptWorkerCode, &mnuPrBapt, &mnuPrDecisions, &mnuPrIntLevel,
                    &mnuMapCode, &mnuPreCrusade, &mnuPrMarked}) {
        notBuilt_.erase(m);
        Enable(*m, true);
    }
}
