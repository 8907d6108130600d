#include "reports/BlankFrm.h"

#include "platform/host/Host.h"
#include "reports/ReportParts.h"
#include "reports/SelPrinter.h"
#include "reports/Stats.h"
#include "store/State.h"

using namespace forms;

namespace {
constexpr int px = 15;
}  // namespace

BlankFrm::BlankFrm(ProgramState& prog) : Form(prog.host, "BlankFrm"), p(prog) {
    SetCaption("Statistical Report");
    Move(0, 0, 1010 * px, 900 * px);
    txtReport.MultiLine = true;
    txtReport.FixedPitch = true;
    txtReport.Locked = true;
    txtReport.SetFont("Courier New", 10);
    txtReport.SetTabStop(false);
    txtReport.Move(6 * px, 6 * px, 994 * px, 806 * px);
    btnSwitchStats.Move(6 * px, 820 * px, 150 * px, 34 * px);
    PrintStatsBut.Move(700 * px, 820 * px, 140 * px, 34 * px);
    CloseStatsBut.Move(850 * px, 820 * px, 140 * px, 34 * px);
    btnSwitchStats.Click = [this] { btnSwitchStats_Click(); };
    PrintStatsBut.Click = [this] { PrintStatsBut_Click(); };
    CloseStatsBut.Click = [this] { CloseStatsBut_Click(); };
}

void BlankFrm::SetReport(bool stats) {
    showingStats_ = stats;
    btnSwitchStats.SetCaption(stats ? "Visitation Stats" : "Statistics");
    SetCaption(p.CrusadeName + (stats ? " Statistical Report" : " Visitation Report"));
}

void BlankFrm::Form_Load() { SetReport(true); }

void BlankFrm::Form_GotFocus() { SetReport(true); }

void BlankFrm::Form_Activate() {
    if (showingStats_)
        Stats(0);
    else
        TeamStats(0);
}

void BlankFrm::btnSwitchStats_Click() {
    SetReport(!showingStats_);
    Form_Activate();
}

void BlankFrm::PrintStatsBut_Click() {
    if (showingStats_)
        Stats(1);
    else
        TeamStats(1);
}

void BlankFrm::CloseStatsBut_Click() { Unload(); }

namespace {

// One document through the printer dialog; Cancel prints nothing.
template <class Draw>
void PrintDocument(ProgramState& p, Draw draw) {
    const SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;
    host::PrintSurface& out = p.host.Printer();
    for (int copy = 0; copy < std::max<int>(1, sel.Copies); ++copy) {
        draw(out);
        out.EndDoc();
    }
}

}  // namespace

bool BlankFrm::Stats(std::int16_t PrintFlag, const std::string& Mode) {
    reports::CrusadeCounts counts;
    {
        host::BusyPointer busy(p.host);
        counts = reports::CountCrusade(p);
    }
    if (Mode == "fix me") return reports::WriteStatData(p, counts);
    if (PrintFlag != 0) {
        PrintDocument(p, [&](host::PrintSurface& out) { reports::PrintStats(p, counts.stats, out); });
        return true;
    }
    txtReport.SetText(reports::StatsScreenText(p, counts.stats));
    return true;
}

void BlankFrm::TeamStats(std::int16_t PrintFlag) {
    reports::CrusadeCounts counts;
    {
        host::BusyPointer busy(p.host);
        counts = reports::CountCrusade(p);
    }
    if (PrintFlag != 0) {
        PrintDocument(p, [&](host::PrintSurface& out) { reports::PrintTeamStats(p, counts.teams, out); });
        return;
    }
    txtReport.SetText(reports::TeamStatsScreenText(p, counts.teams));
}
