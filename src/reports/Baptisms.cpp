// The numbered list of those baptized, with its totals.
#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "lists/Lists.h"
#include "platform/host/Host.h"
#include "platform/vb/Strings.h"
#include "reports/ReportParts.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "reports/SelPrinter.h"

using host::Fonts;
using namespace reports;
using vb::RTrim;
using vb::Trim;

namespace {

constexpr float PageLimit = 25.0f;

// The list the edit screen walks, put back after a report that built its own.
struct SavedList {
    explicit SavedList(ProgramState& p)
        : p_(p), index_(p.SortIndex), count_(p.IndexCount), current_(p.CurrentIndex), name_(p.SortName),
          prior_(p.PriorSortName) {}
    ~SavedList() {
        p_.SortIndex = std::move(index_);
        p_.IndexCount = count_;
        p_.CurrentIndex = current_;
        p_.SortName = name_;
        p_.PriorSortName = prior_;
    }
    SavedList(const SavedList&) = delete;
    SavedList& operator=(const SavedList&) = delete;

private:
    ProgramState& p_;
    std::vector<std::string> index_;
    int count_, current_;
    std::string name_, prior_;
};

void Header(ReportRun& p, host::PrintSurface& out) {
    out.SetFont(Fonts::fntArial14);
    out.SetCurrentX(1.0f);
    out.Print(Trim(p.CrusadeName) + " Baptisms and Profession of Faith (*)", true);
    std::string date = vb::FormatDate(p.host.Now(), "Short Date");
    out.SetCurrentX(19 - std::floor(out.TextWidth(date)));
    out.Print(date);
    out.SetDrawWidth(6);
    out.Line(1.0f, 1.0f, 19.9f, 1.0f);
    out.SetCurrentY(2.0f);
    out.SetCurrentX(0);
    out.SetFont(Fonts::fntTimes10);
    out.SetCurrentX(15.4f);
    out.Print("Baptism Date", true);
    out.SetCurrentX(18.4f);
    out.Print("Birth Date");
    out.PrintEmptyLine();
}

void Footer(host::PrintSurface& out, int page) {
    out.SetCurrentX(1.0f);
    out.SetCurrentY(26.1f);
    if (page >= 2) out.Print("Baptisms: Page " + Num(page));
}

}  // namespace

void PrintBaptisms(ReportRun& p) {
    const DecisionMarks marks = FindDecisionMarks(p);
    if (p.PrintingFromPreview && p.IndexCount == 0) {
        p.host.MsgBox("There are no names in this list to print");
        return;
    }
    SelPrinterResult sel = SelPrinter(p.host);
    if (!sel.Ok) return;
    ReportGuard guard(p);
    std::unique_ptr<SavedList> saved;
    if (p.SortName != "baptism") {
        saved = std::make_unique<SavedList>(p);
        if (!lists::BuildList(p, "baptism", 0, "Al")) return;
    }
    if (p.IndexCount == 0) {
        p.host.MsgBox("There are no names in this list to print");
        return;
    }
    host::PrintSurface& out = p.host.Printer();
    guard.Drawing(out);
    for (int copy = 1; copy <= std::max<int>(1, sel.Copies); ++copy) {
        Pager pager(p.host, out, sel.FromPage);
        int professions = 0, rebaptisms = 0;
        Header(p, out);
        for (int i = 1; i <= p.IndexCount; ++i) {
            ReadEntry(p, i);
            const MasterRecord& r = p.MasterRec;
            std::string name = Num(i) + ".  " + RTrim(r.LName) + ", " + RTrim(r.FName);
            if (DecisionIs(r, marks.BaptIdx, '-')) {
                name += "*";
                ++professions;
            }
            if (DecisionIs(r, marks.UniteIdx, '-')) {
                name += "(r)";
                ++rebaptisms;
            }
            out.SetFont(Fonts::fntTimes8);
            out.SetCurrentX(0.8f);
            out.Print(vb::Fixed(name, 30), true);
            out.SetCurrentX(4.91f);
            out.Print(r.Address, true);
            out.SetCurrentX(9.1f);
            out.Print(Trim(r.City) + ", " + r.State.str() + "  " + r.Zip.str(), true);
            out.SetCurrentX(13.0f);
            out.Print(Trim(r.Phone), true);
            out.SetCurrentX(15.4f);
            out.Print(r.BaptDate, true);
            out.SetCurrentX(18.4f);
            out.Print(r.BirthDate);
            out.SetCurrentY(out.CurrentY() + 0.17f);
            if (out.CurrentY() >= PageLimit) {
                Footer(out, pager.page);
                pager.EndPage();
                Header(p, out);
            }
        }
        auto total = [&](const std::string& label, long n) {
            out.SetCurrentX(16.5f);
            out.Print(label, true);
            out.SetCurrentX(19.5f);
            out.Print(n);
        };
        out.SetCurrentX(16.5f);
        out.Print("_______________________");
        total("Total Additions: ", p.IndexCount);
        total("Baptisms: ", p.IndexCount - professions - rebaptisms);
        total("Profession of Faith: ", professions);
        total("Re-baptisms: ", rebaptisms);
        out.SetCurrentX(1.0f);
        out.Print("Note:  The * indicates a Profession of Faith, (r) indicates Re-Baptisms or Reclaimations");
        Footer(out, pager.page);
        if (!pager.Finish()) break;
    }
    guard.Done();
}
