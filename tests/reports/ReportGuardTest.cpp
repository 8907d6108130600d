#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "reports/Labels.h"
#include "reports/Reports.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using namespace host;
using Op = RecordingSurface::Op;

namespace {

// `people` numbered 1000 up, all in the alphabetical list, with the label offsets set.
struct Sheets {
    TestCrusade c;
    RecordingSurface& out = c.host.printer;
    explicit Sheets(int people, const std::string& kind) {
        std::vector<MasterRecord> recs;
        for (int i = 0; i < people; ++i) {
            MasterRecord r = MakePerson(std::to_string(1000 + i), "Pat", "Name" + std::to_string(1000 + i));
            r.WorkerCode = i % 2 ? "03" : "01";
            r.Last = 1;
            recs.push_back(r);
        }
        c.ShowOnEditScreen(recs);
        c.p.LabelTop = 3;
        c.p.LabelRight = 2;
        c.p.SortName = kind;
    }
    ~Sheets() { c.host.Verify(); }
    // Where a text starts, "x y", or "missing".
    std::string At(const std::string& text) const {
        const Op* op = out.FindText(text);
        if (!op) return "missing";
        char buf[32];
        std::snprintf(buf, sizeof buf, "%.2f %.2f", op->x, op->y);
        return buf;
    }
};

// Sixty people in the alphabetical list, the third of them on the edit screen:
// more than a page or a sheet in every report.
struct OnScreen : Sheets {
    explicit OnScreen(const std::string& kind) : Sheets(60, kind) {
        RebuildAlpha(c.p);
        c.p.SortName = kind;
        c.p.PrintingFromPreview = true;
        c.p.CurrentIndex = 3;
        c.p.RecordPos = static_cast<long>(vb::Val(vb::Right(c.p.SortIndex[3], 4)));
        GetRecord(c.p, c.p.RecordPos);
        before = Shown();
    }
    // The person on screen and the place in the list.
    std::tuple<int, long, std::string> Shown() const {
        return {c.p.CurrentIndex, c.p.RecordPos, vb::RTrim(c.p.MasterRec.LName)};
    }
    std::tuple<int, long, std::string> before;
};

}  // namespace

// Whatever way a report leaves, the edit screen keeps its person and its place
// in the list, and a printer that stops in the middle leaves no half document.
TEST(ReportGuard, EveryReportGivesBackThePersonAndDropsAHalfDocument) {
    struct Case {
        const char* name;
        const char* kind;
        bool refuse;
        std::function<void(OnScreen&)> expect;
        std::function<void(ReportRun&)> run;
        int documents;
    };
    auto accept = [](OnScreen& s) { s.c.host.AcceptPrinter(); };
    auto sheets = [](int answer) {
        return [answer](OnScreen& s) { s.c.host.AcceptPrinter(), s.c.host.ExpectBox("You will need 6 sheets", answer); };
    };
    auto cards = [](ReportRun& p) { InterestCard2x4(p); };
    const Case cases[] = {
        {"one-line", "alphafilter", true, accept, [](ReportRun& p) { PrintOneLineReport(p, 1); }, 0},
        {"team", "wcalpha", true, accept, [](ReportRun& p) { PrintWCReport(p, 1); }, 0},
        {"baptisms", "baptism", true, accept, [](ReportRun& p) { PrintBaptisms(p); }, 0},
        {"decisions", "decisions3", true, accept, [](ReportRun& p) { std::int16_t n = 0; PrintDecisions(p, n); }, 0},
        {"mail labels", "attend", true,
         [](OnScreen& s) { s.c.host.ExpectBox("60 Mail Labels are being sent", vbYes), s.c.host.AcceptPrinter(); },
         [](ReportRun& p) { prnMailLabels(p); }, 0},
        {"cards", "IntCard", true, sheets(vbYes), cards, 0},
        {"cards printed", "IntCard", false, sheets(vbYes), cards, 1},
        {"cards declined", "attend", false,
         [&sheets](OnScreen& s) {
             s.c.host.ExpectBox("Is this the list that you want", vbYes)
                 .ExpectBox("attended 4 or more times?", vbNo)
                 .ExpectBox("assigned Team Code?", vbNo);
             sheets(vbNo)(s);
         },
         cards, 0},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        OnScreen s(k.kind);
        s.out.refuseNewPage = k.refuse;
        k.expect(s);
        if (k.refuse) EXPECT_THROW(k.run(s.c.p), vb::RuntimeError);
        else k.run(s.c.p);
        EXPECT_EQ(std::make_tuple(s.before, k.documents, false),
                  std::make_tuple(s.Shown(), s.out.Documents(), s.out.DocumentOpen()));
    }
}

TEST(Labels, MailLabelsFillSheetsOfThirtyFromTheOffsets) {
    struct Case { int people, fromPage, pages, labelsOnLastPage; } cases[] = {
        {1, 1, 1, 1}, {30, 1, 1, 30}, {31, 1, 2, 1}, {31, 2, 1, 1}};
    for (const Case& k : cases) {
        SCOPED_TRACE(k.people);
        Sheets s(k.people, "attend");
        s.c.host.ExpectBox(std::to_string(k.people) + " Mail Labels are being sent", vbYes);
        s.c.host.AcceptPrinter(k.fromPage);
        prnMailLabels(s.c.p);
        int onLast = 0;
        for (const Op* op : s.out.TextOps()) onLast += op->page == k.pages && op->text.rfind("Pat ", 0) == 0;
        EXPECT_EQ(std::make_tuple(k.pages, k.labelsOnLastPage, false),
                  std::make_tuple(s.out.PagesPrinted(), onLast, s.out.DocumentOpen()));
        // The first printed stands at the offsets, in its font.
        const std::string first = "Pat Name" + std::to_string(1000 + (k.fromPage - 1) * 30);
        EXPECT_EQ("0.70 1.30", s.At(first));
        if (const Op* op = s.out.FindText(first)) { EXPECT_EQ(op->font, Fonts::fntTimes12); }
        EXPECT_EQ("0.70 2.26", s.At("Springfield, IL  62701"));
    }
}

TEST(Labels, RefusalsAndBadInputLeaveNoDocument) {
    struct Case { int people; const char* box; int answer; int fromPage; const char* refusal; } cases[] = {
        {31, "You will need 2 pages of labels.", vbYes, 3, "greater than the total number of pages"},
        {2, "Is this what you want to do?", vbNo, 0, nullptr},
        {2, "Is this what you want to do?", vbYes, -1, nullptr},   // the printer dialog cancelled
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.box);
        Sheets s(k.people, "attend");
        s.c.host.ExpectBox(k.box, k.answer);
        if (k.fromPage > 0) s.c.host.AcceptPrinter(k.fromPage);
        if (k.fromPage < 0) s.c.host.ExpectPrinter([](PrinterDialog&) { return false; });
        if (k.refusal) s.c.host.ExpectBox(k.refusal, vbOK, "Print Error");
        prnMailLabels(s.c.p);
        EXPECT_EQ(s.out.PagesPrinted(), 0);
        EXPECT_FALSE(s.out.DocumentOpen());
    }
    // A name longer than its label stops short of the next one.
    Sheets s(2, "attend");
    MasterRecord r = s.c.ReadRecord(1);
    r.FName = "Maximiliana-Josephine";
    r.LName = "Vandenberghe-Oosterh";
    s.c.p.MasterRec = r;
    PutRecord(s.c.p, 1);
    s.c.host.ExpectBox("2 Mail Labels", vbYes);
    s.c.host.AcceptPrinter();
    prnMailLabels(s.c.p);
    const Op* name = s.out.FindText("Maximiliana");
    ASSERT_TRUE(name);
    EXPECT_LE(s.c.host.printer.TextWidth(name->text), MailLabelGeometry::TextRoom);
}

TEST(Labels, InterestCardsTenToASheetSetTheFlagOnceAndOnlyForCardsPrinted) {
    // Ten fill one sheet exactly; a second sheet is measured on the PDF.
    Sheets s(10, "IntCard");
    RebuildAlpha(s.c.p);
    s.c.p.SortName = "IntCard";
    s.c.host.AcceptPrinter();
    s.c.host.ExpectBox("You will need 1 sheets of Avery 5163", vbYes);
    InterestCard2x4(s.c.p);
    EXPECT_EQ(s.out.PagesPrinted(), 1);
    // Team order: the cards of team 01 come first, two across; the number and
    // the right half at their offsets on the card.
    EXPECT_EQ((std::vector<std::string>{"0.75 1.30", "7.75 1.30", "18.20 1.30"}),
              (std::vector<std::string>{s.At("Pat Name1000"), s.At("01/ 1000"), s.At("01/ 1002")}));
    EXPECT_EQ(s.out.FindText("Pat Name1000")->font, Fonts::fntArial13BU);
    EXPECT_EQ("5.75", s.At("Religion: Baptist").substr(0, 4));
    // Printed once: the card list leaves out whoever has the flag.
    for (int n = 1; n <= 10; ++n) EXPECT_EQ(s.c.ReadRecord(n).IntFlag, -1) << n;
    EXPECT_EQ(s.c.p.SortName, "alpha");
    // A list chosen by the operator, limited to the active: nobody here came 4 times.
    Sheets chosen(3, "attend");
    RebuildAlpha(chosen.c.p);
    chosen.c.p.SortName = "attend";
    chosen.c.host.ExpectBox("Is this the list that you want to print interest card labels for?", vbYes)
        .ExpectBox("attended 4 or more times?", vbYes)
        .ExpectBox("assigned Team Code?", vbNo)
        .ExpectBox("There are no new labels to print");
    InterestCard2x4(chosen.c.p);
    EXPECT_EQ(chosen.c.ReadRecord(1).IntFlag, 0);
}
