#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/host/Host.h"
#include "reports/PageLayout.h"
#include "reports/ReportParts.h"
#include "reports/SelPrinter.h"
#include "support/ScriptedHost.h"

using host::Fonts;

namespace {

const std::string kTitle = "Team List";

// A list report as the routines of the reports draw it: header, one line per
// name, a break past 24.9 cm. In 10 point Times the recording surface fits 58
// lines on a page.
void RunReport(ScriptedHost& h, int lines, int fromPage) {
    RecordingSurface& out = h.printer;
    auto header = [&] { DrawReportHeader(out, kTitle, 12, h.Now()); };
    reports::Pager pager(h, out, fromPage);
    header();
    for (int i = 1; i <= lines; ++i) {
        out.SetFont(Fonts::fntTimes10);
        out.SetCurrentX(1.0f);
        out.Print("Name " + std::to_string(i));
        if (out.CurrentY() > 24.9f) {
            DrawReportFooter(out, kTitle, pager.page);
            pager.EndPage();
            out.SetCurrentY(0.2f);
            header();
        }
    }
    DrawReportFooter(out, kTitle, pager.page);
    pager.Finish();
}

// Each printed page as "title|number|first name|last text".
std::vector<std::string> Pages(const RecordingSurface& out) {
    std::vector<std::string> pages;
    for (int page = 1; page <= out.PagesPrinted(); ++page) {
        auto t = out.TextsOnPage(page);
        pages.push_back(t.size() < 4 ? "short page" : t[0] + "|" + t[1] + "|" + t[3] + "|" + t.back());
    }
    return pages;
}

}  // namespace

TEST(SelPrinter, ReadsTheRangeOnlyWhenOneWasChosenAndCancelOrPageZeroDiscardsTheDocument) {
    ScriptedHost h;
    struct Row { bool ok; int flags, from, to, copies; bool printed; int wantFrom, wantTo; };
    // From and To are ignored without the page-range flag (2).
    const Row rows[] = {{true, 0, 7, 9, 3, true, 1, 1000}, {true, 2, 3, 5, 1, true, 3, 5},
                        {false, 0, 0, 0, 1, false, 0, 0}, {true, 2, 0, 4, 1, false, 0, 0}};
    int killed = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.from);
        h.ExpectPrinter([&row](host::PrinterDialog& d) {
            EXPECT_TRUE(d.CancelError);
            EXPECT_EQ((std::vector<int>{4, 1, 1000, 1}), (std::vector<int>{d.Flags, d.Min, d.Max, d.Copies}));
            d.Flags |= row.flags;
            d.FromPage = row.from;
            d.ToPage = row.to;
            d.Copies = row.copies;
            return row.ok;
        });
        SelPrinterResult r = SelPrinter(h);
        EXPECT_EQ(row.printed, r.Ok);
        killed += row.printed ? 0 : 1;
        EXPECT_EQ(killed, h.printer.killDocs);
        if (row.printed) {
            EXPECT_EQ((std::vector<int>{row.wantFrom, row.wantTo, row.copies}),
                      (std::vector<int>{r.FromPage, r.ToPage, r.Copies}));
        }
    }
}

// Where the title, number, date and first line stand is seen on the printed lists.
TEST(ReportHeader, RulesALineUnderTheTitle) {
    ScriptedHost h;
    DrawReportHeader(h.printer, kTitle, 12, h.Now());
    auto lines = h.printer.Lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(std::vector<float>({lines[0]->x, lines[0]->y, lines[0]->x2, lines[0]->y2, 6.0f}),
              std::vector<float>({0.6f, 1.0f, 19.99f, 1.0f, static_cast<float>(lines[0]->value)}));
}

// The footer from page 2 and the header on every page are seen on the printed lists.
TEST(Pager, PagesBeforeTheFirstChosenGoAndTheRestKeepTheirNumbers) {
    ScriptedHost h;
    RunReport(h, 130, 3);
    EXPECT_EQ(std::vector<std::string>{"Team List| 12|Name 117|Team List: Page 3"}, Pages(h.printer));
    EXPECT_EQ(std::make_pair(1, 2), std::make_pair(h.printer.endDocs, h.printer.killDocs));
}
