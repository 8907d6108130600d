// The list of those who made one chosen decision.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/ReportParts.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "reports/SelPrinter.h"

using host::Fonts;
using namespace reports;
using vb::Left;
using vb::RTrim;
using vb::Trim;

namespace {

constexpr float PageLimit = 25.0f;

// The attendance column: 28 meetings, and 35 once the series is past meeting 35.
std::string AttendanceWindow(const ProgramState& p, const MasterRecord& r) {
    const std::string& a = r.Attendance;
    return p.MeetingNumber < 36 ? Left(a, 28) : vb::Mid(a, p.MeetingNumber - 34, 35);
}

}  // namespace

void PrintDecisions(ReportRun& p, std::int16_t& DecisionNumber) {
    if (Left(p.SortName, 8) != "decision") {
        if (!lists::BuildList(p, "decisions")) return;
        if (Left(p.SortName, 8) != "decision") return;   // the dialog was cancelled
    }
    DecisionNumber = static_cast<std::int16_t>(lists::SplitKind(p.SortName).number);
    if (DecisionNumber < 1 || DecisionNumber > 9) return;
    if (p.IndexCount == 0) {
        p.host.MsgBox("There are no names in this list to print");
        return;
    }
    const std::string name = p.DecisionNames[static_cast<std::size_t>(DecisionNumber)];
    SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;

    ReportGuard guard(p);
    host::PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    auto header = [&] {
        out.SetFont(Fonts::fntArial14);
        out.SetCurrentX(1.0f);
        out.SetCurrentY(0.22f);
        out.Print(Trim(p.CrusadeName) + " Crusade Decision: " + name + " (" + Num(p.IndexCount) + ")", true);
        out.SetFont(Fonts::fntArial28B);
        out.SetCurrentY(0);
        out.SetCurrentX(18.5f);
        out.Print(p.MeetingNumber);
        out.SetCurrentX(1.0f);
        out.SetCurrentY(out.CurrentY() - 0.1f);
        out.SetFont(Fonts::fntTimes8);
        std::string date = vb::FormatDate(p.host.Now(), "dddd, mmmm d, yyyy");
        out.SetCurrentX(20 - out.TextWidth(date));
        out.Print(date);
        out.SetDrawWidth(6);
        out.Line(1.0f, 1.0f, 19.9f, 1.0f);
        out.SetCurrentY(1.8f);
        out.SetCurrentX(0);
    };
    for (int copy = 1; copy <= std::max<int>(1, sel.Copies); ++copy) {
        Pager pager(p.host, out, sel.FromPage);
        auto footer = [&] {
            out.SetCurrentX(1.0f);
            out.SetCurrentY(26.1f);
            if (pager.page >= 2) out.Print(name + ": Page " + Num(pager.page));
        };
        header();
        for (int i = 1; i <= p.IndexCount; ++i) {
            ReadEntry(p, i);
            const MasterRecord& r = p.MasterRec;
            if (out.CurrentY() >= PageLimit) {
                footer();
                pager.EndPage();
                header();
            }
            out.SetFont(Fonts::fntTimes8);
            out.SetCurrentX(0.8f);
            out.Print(vb::Fixed(r.WorkerCode.str() + " " + r.RNum.str() + " " + RTrim(r.LName) + ", " + RTrim(r.FName), 30),
                      true);
            out.SetCurrentX(4.91f);
            out.Print(r.Address, true);
            out.SetCurrentX(8.1f);
            out.Print(Left(r.City, 3) + r.Zip.str() + " (" + Trim(r.Phone) + ")", true);
            out.SetCurrentX(11.8f);
            out.SetFont(Fonts::fntCourier7B);
            std::string text = AttendanceWindow(p, r) + " " + r.IntLevel.str() + "/" + RTrim(r.Decisions);
            if (DecisionNumber == 9) {
                out.Print(text + "  " + vb::Right(Trim(r.Visits), 3), true);
                out.SetCurrentX(18.6f);
                out.Print(HasBaptDate(r) ? "Apt-CL" : (r.Class != 0 ? "Apt" : ""));
            } else {
                out.Print(text + "  " + r.Visits.str());
            }
            out.SetCurrentY(out.CurrentY() + 0.17f);
        }
        out.SetCurrentX(0.8f);
        out.Print("__________________");
        out.SetFont(Fonts::fntTimes8);
        out.SetCurrentX(0.8f);
        out.Print("Total " + name + " Decisions: " + Num(p.IndexCount));
        out.SetCurrentX(1.0f);
        out.SetCurrentY(25.4f);
        out.Print("NOTE:  In the far right after the decisions column is 1) The last Visit, 2) 'Apt' Appointment "
                  "Set 3) CL for Cleared for Baptism.");
        footer();
        if (!pager.Finish()) break;
    }
    guard.Done();
}
