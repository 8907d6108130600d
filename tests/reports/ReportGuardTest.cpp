#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/vb/Error.h"
#include "platform/vb/Strings.h"
#include "reports/Reports.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/TestCrusade.h"

using namespace host;

namespace {

// Sixty people in the alphabetical list, the third of them on the edit screen:
// more than a page or a sheet in every report.
struct OnScreen {
    TestCrusade c;
    RecordingSurface& out = c.host.printer;
    explicit OnScreen(const std::string& kind) {
        std::vector<MasterRecord> recs;
        for (int i = 0; i < 60; ++i) {
            MasterRecord r = MakePerson(std::to_string(1000 + i), "Pat", "Name" + std::to_string(1000 + i));
            r.WorkerCode = i % 2 ? "03" : "01";
            r.Last = 1;
            recs.push_back(r);
        }
        c.ShowOnEditScreen(recs);
        RebuildAlpha(c.p);
        c.p.SortName = kind;
        c.p.PrintingFromPreview = true;
        c.p.CurrentIndex = 3;
        c.p.RecordPos = static_cast<long>(vb::Val(vb::Right(c.p.SortIndex[3], 4)));
        GetRecord(c.p, c.p.RecordPos);
        before = Shown();
    }
    ~OnScreen() { c.host.Verify(); }
    // The person on screen and the place in the list.
    std::tuple<int, long, std::string> Shown() const {
        return {c.p.CurrentIndex, c.p.RecordPos, vb::RTrim(c.p.MasterRec.LName)};
    }
    void Accept() {
        c.host.ExpectPrinter([](PrinterDialog& d) {
            d.FromPage = 1;
            return true;
        });
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
    auto accept = [](OnScreen& s) { s.Accept(); };
    const Case cases[] = {
        {"one-line", "alphafilter", true, accept, [](ReportRun& p) { PrintOneLineReport(p, 1); }, 0},
        {"team", "wcalpha", true, accept, [](ReportRun& p) { PrintWCReport(p, 1); }, 0},
        {"baptisms", "baptism", true, accept, [](ReportRun& p) { PrintBaptisms(p); }, 0},
        {"decisions", "decisions3", true, accept,
         [](ReportRun& p) {
             std::int16_t n = 0;
             PrintDecisions(p, n);
         },
         0},
        {"mail labels", "attend", true,
         [](OnScreen& s) {
             s.c.host.ExpectBox("60 Mail Labels are being sent", vbYes);
             s.Accept();
         },
         [](ReportRun& p) { prnMailLabels(p); }, 0},
        {"cards", "IntCard", true,
         [](OnScreen& s) {
             s.Accept();
             s.c.host.ExpectBox("You will need 6 sheets", vbYes);
         },
         [](ReportRun& p) { InterestCard2x4(p); }, 0},
        {"cards printed", "IntCard", false,
         [](OnScreen& s) {
             s.Accept();
             s.c.host.ExpectBox("You will need 6 sheets", vbYes);
         },
         [](ReportRun& p) { InterestCard2x4(p); }, 1},
        {"cards declined", "attend", false,
         [](OnScreen& s) {
             s.c.host.ExpectBox("Is this the list that you want", vbYes)
                 .ExpectBox("attended 4 or more times?", vbNo)
                 .ExpectBox("assigned Team Code?", vbNo);
             s.Accept();
             s.c.host.ExpectBox("You will need 6 sheets", vbNo);
         },
         [](ReportRun& p) { InterestCard2x4(p); }, 0},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        OnScreen s(k.kind);
        s.out.refuseNewPage = k.refuse;
        k.expect(s);
        if (k.refuse) {
            EXPECT_THROW(k.run(s.c.p), vb::RuntimeError);
        } else {
            k.run(s.c.p);
        }
        EXPECT_EQ(s.before, s.Shown());
        EXPECT_EQ(k.documents, s.out.Documents());
        EXPECT_FALSE(s.out.DocumentOpen());
    }
}
