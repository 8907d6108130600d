#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/host/Host.h"
#include "reports/PageLayout.h"
#include "reports/SelPrinter.h"
#include "support/QuietHost.h"

using host::Fonts;
using Kind = RecordingSurface::OpKind;

namespace {

// Only what printing reaches: the printer dialog, boxes and the printer.
class PrintHost : public QuietHost {
public:
    struct Box {
        std::string prompt;
        int buttons;
        std::string title;
    };
    std::function<bool(host::PrinterDialog&)> dialog = [](host::PrinterDialog&) { return true; };
    host::PrinterDialog lastDialog;
    std::vector<Box> boxes;

    int MsgBox(const std::string& prompt, int buttons, const std::string& title) override {
        boxes.push_back({prompt, buttons, title});
        return host::vbOK;
    }
    bool ShowPrinter(host::PrinterDialog& d) override {
        lastDialog = d;
        return dialog(d);
    }
};

const std::string kTitle = "Team List";
const std::string kNoFirstPage =
    "The page you selected to begin with was greater than the total number of pages available to print.";

// A list report as the routines of the reports draw it: header, one line per
// name, a break past 24.9 cm. In 10 point Times the recording surface fits 58
// lines on a page.
void RunReport(PrintHost& h, int lines, int fromPage) {
    RecordingSurface& out = h.printer;
    auto header = [&] { DrawReportHeader(out, kTitle, 12, h.Now()); };
    ReportPages pages(h, out, kTitle, fromPage, header);
    header();
    for (int i = 1; i <= lines; ++i) {
        out.SetFont(Fonts::fntTimes10);
        out.SetCurrentX(1.0f);
        out.Print("Name " + std::to_string(i));
        pages.BreakIfPast(24.9f);
    }
    pages.Finish();
}

}  // namespace

TEST(SelPrinter, ReadsTheRangeOnlyWhenOneWasChosenAndCancelOrPageZeroDiscardsTheDocument) {
    PrintHost h;
    h.printer.Print("drawn before the dialog");
    struct Row { bool ok; int flags, from, to, copies; bool printed; int wantFrom, wantTo; };
    // From and To are ignored without the page-range flag (2).
    const Row rows[] = {{true, 0, 7, 9, 3, true, 1, 1000}, {true, 2, 3, 5, 1, true, 3, 5},
                        {false, 0, 0, 0, 1, false, 0, 0}, {true, 2, 0, 4, 1, false, 0, 0}};
    int killed = 0;
    for (const Row& row : rows) {
        h.dialog = [&row](host::PrinterDialog& d) {
            d.Flags |= row.flags;
            d.FromPage = row.from;
            d.ToPage = row.to;
            d.Copies = row.copies;
            return row.ok;
        };
        SelPrinterResult r = SelPrinter(h);
        EXPECT_TRUE(h.lastDialog.CancelError);
        EXPECT_EQ((std::vector<int>{4, 1, 1000, 1}),
                  (std::vector<int>{h.lastDialog.Flags, h.lastDialog.Min, h.lastDialog.Max, h.lastDialog.Copies}));
        EXPECT_EQ(row.printed, r.Ok) << row.from;
        killed += row.printed ? 0 : 1;
        EXPECT_EQ(killed, h.printer.killDocs) << row.from;
        if (!row.printed) continue;
        EXPECT_EQ((std::vector<int>{row.wantFrom, row.wantTo, row.copies}),
                  (std::vector<int>{r.FromPage, r.ToPage, r.Copies}));
    }
    EXPECT_FALSE(h.printer.DocumentOpen());
    EXPECT_TRUE(h.printer.Texts().empty());
}

TEST(ReportHeader, DrawsTitleNumberDateAndRuleWhereTheReportsExpect) {
    PrintHost h;
    RecordingSurface& out = h.printer;
    DrawReportHeader(out, kTitle, 12, h.Now());
    auto texts = out.TextOps();
    ASSERT_EQ(texts.size(), 3u);
    // 25 characters of 8 point text are 3.6 cm here; the whole part counts.
    struct Want { std::string text; host::PrintFont font; float x, y; };
    const Want want[] = {{kTitle, Fonts::fntArial14, 0.6f, 0.3f},
                         {" 12", Fonts::fntArial28B, 18.5f, 0.0f},
                         {"Sunday, November 22, 2026", Fonts::fntTimes8, 17.0f,
                          28 * RecordingSurface::LinePerPoint - 0.05f}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(want[i].text, texts[i]->text);
        EXPECT_EQ(want[i].font, texts[i]->font) << want[i].text;
        EXPECT_NEAR(want[i].x, texts[i]->x, 1e-5) << want[i].text;
        EXPECT_NEAR(want[i].y, texts[i]->y, 1e-5) << want[i].text;
    }
    EXPECT_TRUE(texts[0]->stayOnLine);
    auto lines = out.Lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(std::vector<float>({lines[0]->x, lines[0]->y, lines[0]->x2, lines[0]->y2}),
              std::vector<float>({0.6f, 1.0f, 19.99f, 1.0f}));
    EXPECT_EQ(lines[0]->value, 6);
    EXPECT_FLOAT_EQ(out.CurrentX(), 0.0f);
    EXPECT_FLOAT_EQ(out.CurrentY(), 1.8f);
}

TEST(ReportPages, FooterFromPageTwoEveryPageStartsWithTheHeaderAndPagesBeforeTheFirstChosenGo) {
    PrintHost h;
    RunReport(h, 10, 1);
    EXPECT_EQ(h.printer.PagesPrinted(), 1);
    EXPECT_EQ(h.printer.FindText(": Page"), nullptr);

    h.printer.Clear();
    RunReport(h, 130, 1);
    EXPECT_EQ(h.printer.PagesPrinted(), 3);
    EXPECT_EQ(h.printer.endDocs, 1);
    EXPECT_EQ(h.printer.killDocs, 0);
    EXPECT_EQ(h.printer.FindText("Team List: Page 1"), nullptr);
    for (int page = 1; page <= 3; ++page) {
        auto texts = h.printer.TextsOnPage(page);
        ASSERT_GE(texts.size(), 4u);
        EXPECT_EQ(texts[0], kTitle);
        EXPECT_EQ(texts[1], " 12");
        if (page == 1) continue;
        const auto* footer = h.printer.FindText("Team List: Page " + std::to_string(page));
        ASSERT_NE(footer, nullptr);
        EXPECT_EQ(footer->page, page);
        EXPECT_FLOAT_EQ(footer->x, 1.0f);
        EXPECT_FLOAT_EQ(footer->y, 25.4f);
    }
    EXPECT_EQ(h.printer.TextsOnPage(2)[3], "Name 59");

    h.printer.Clear();
    RunReport(h, 130, 3);
    EXPECT_EQ(h.printer.killDocs, 2);
    EXPECT_EQ(h.printer.Documents(), 1);
    EXPECT_EQ(h.printer.PagesPrinted(), 1);
    auto texts = h.printer.TextsOnPage(1);
    ASSERT_GE(texts.size(), 4u);
    EXPECT_EQ(texts[0], kTitle);
    EXPECT_EQ(texts[3], "Name 117");
    EXPECT_EQ(texts.back(), "Team List: Page 3");
    EXPECT_TRUE(h.boxes.empty());
}

TEST(ReportPages, FirstPageBeyondTheEndPrintsNothingAndSaysSo) {
    PrintHost h;
    RunReport(h, 130, 4);
    EXPECT_EQ(h.printer.endDocs, 0);
    EXPECT_FALSE(h.printer.DocumentOpen());
    EXPECT_TRUE(h.printer.Texts().empty());
    ASSERT_EQ(h.boxes.size(), 1u);
    EXPECT_EQ(h.boxes[0].prompt, kNoFirstPage);
    EXPECT_EQ(h.boxes[0].title, "Print Error");
    EXPECT_EQ(h.boxes[0].buttons, host::vbOKOnly | host::vbCritical);
}
