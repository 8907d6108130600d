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

TEST(SelPrinter, SetsUpTheDialogAndReadsTheRangeOnlyWhenOneWasChosen) {
    PrintHost h;
    h.dialog = [](host::PrinterDialog& d) {
        d.Copies = 3;
        d.FromPage = 7;   // ignored without the page-range flag
        d.ToPage = 9;
        return true;
    };
    SelPrinterResult r = SelPrinter(h);
    EXPECT_TRUE(h.lastDialog.CancelError);
    EXPECT_EQ(h.lastDialog.Flags, 4);
    EXPECT_EQ(h.lastDialog.Min, 1);
    EXPECT_EQ(h.lastDialog.Max, 1000);
    EXPECT_EQ(h.lastDialog.Copies, 1);
    EXPECT_TRUE(r.Ok);
    EXPECT_EQ(r.FromPage, 1);
    EXPECT_EQ(r.ToPage, 1000);
    EXPECT_EQ(r.Copies, 3);
    EXPECT_EQ(h.printer.killDocs, 0);

    h.dialog = [](host::PrinterDialog& d) {
        d.Flags |= 2;
        d.FromPage = 3;
        d.ToPage = 5;
        return true;
    };
    r = SelPrinter(h);
    EXPECT_TRUE(r.Ok);
    EXPECT_EQ(r.FromPage, 3);
    EXPECT_EQ(r.ToPage, 5);
    EXPECT_EQ(r.Copies, 1);
}

TEST(SelPrinter, CancelOrFirstPageZeroDiscardsTheDocument) {
    PrintHost h;
    h.printer.Print("drawn before the dialog");
    h.dialog = [](host::PrinterDialog&) { return false; };
    SelPrinterResult r = SelPrinter(h);
    EXPECT_FALSE(r.Ok);
    EXPECT_EQ(h.printer.killDocs, 1);
    EXPECT_FALSE(h.printer.DocumentOpen());
    EXPECT_TRUE(h.printer.Texts().empty());

    h.dialog = [](host::PrinterDialog& d) {
        d.Flags |= 2;
        d.FromPage = 0;
        d.ToPage = 4;
        return true;
    };
    r = SelPrinter(h);
    EXPECT_FALSE(r.Ok);
    EXPECT_EQ(h.printer.killDocs, 2);
}

TEST(ReportHeader, DrawsTitleNumberDateAndRuleWhereTheReportsExpect) {
    PrintHost h;
    RecordingSurface& out = h.printer;
    DrawReportHeader(out, kTitle, 12, h.Now());

    auto texts = out.TextOps();
    ASSERT_EQ(texts.size(), 3u);
    const auto& title = *texts[0];
    EXPECT_EQ(title.text, kTitle);
    EXPECT_EQ(title.font, Fonts::fntArial14);
    EXPECT_FLOAT_EQ(title.x, 0.6f);
    EXPECT_FLOAT_EQ(title.y, 0.3f);
    EXPECT_TRUE(title.stayOnLine);

    const auto& number = *texts[1];
    EXPECT_EQ(number.text, " 12");
    EXPECT_EQ(number.font, Fonts::fntArial28B);
    EXPECT_FLOAT_EQ(number.x, 18.5f);
    EXPECT_FLOAT_EQ(number.y, 0.0f);

    // 25 characters of 8 point text are 3.6 cm here; the whole part counts.
    const auto& date = *texts[2];
    EXPECT_EQ(date.text, "Sunday, November 22, 2026");
    EXPECT_EQ(date.font, Fonts::fntTimes8);
    EXPECT_FLOAT_EQ(date.x, 17.0f);
    EXPECT_NEAR(date.y, 28 * RecordingSurface::LinePerPoint - 0.05f, 1e-5);

    auto lines = out.Lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(std::vector<float>({lines[0]->x, lines[0]->y, lines[0]->x2, lines[0]->y2}),
              std::vector<float>({0.6f, 1.0f, 19.99f, 1.0f}));
    EXPECT_EQ(lines[0]->value, 6);

    EXPECT_FLOAT_EQ(out.CurrentX(), 0.0f);
    EXPECT_FLOAT_EQ(out.CurrentY(), 1.8f);
}

TEST(ReportPages, FooterFromPageTwoAndEveryPageStartsWithTheHeader) {
    PrintHost h;
    RunReport(h, 10, 1);
    EXPECT_EQ(h.printer.PagesPrinted(), 1);
    EXPECT_EQ(h.printer.endDocs, 1);
    EXPECT_EQ(h.printer.FindText(": Page"), nullptr);

    h.printer.Clear();
    RunReport(h, 130, 1);
    EXPECT_EQ(h.printer.PagesPrinted(), 3);
    EXPECT_EQ(h.printer.endDocs, 1);
    EXPECT_EQ(h.printer.killDocs, 0);
    EXPECT_EQ(h.printer.FindText("Team List: Page 1"), nullptr);
    for (int page = 2; page <= 3; ++page) {
        const auto* footer = h.printer.FindText("Team List: Page " + std::to_string(page));
        ASSERT_NE(footer, nullptr);
        EXPECT_EQ(footer->page, page);
        EXPECT_FLOAT_EQ(footer->x, 1.0f);
        EXPECT_FLOAT_EQ(footer->y, 25.4f);
    }
    for (int page = 1; page <= 3; ++page) {
        auto texts = h.printer.TextsOnPage(page);
        ASSERT_GE(texts.size(), 4u);
        EXPECT_EQ(texts[0], kTitle);
        EXPECT_EQ(texts[1], " 12");
    }
    EXPECT_EQ(h.printer.TextsOnPage(2)[3], "Name 59");
    EXPECT_TRUE(h.boxes.empty());
}

TEST(ReportPages, PagesBeforeTheFirstChosenAreDiscarded) {
    PrintHost h;
    RunReport(h, 130, 3);
    EXPECT_EQ(h.printer.killDocs, 2);
    EXPECT_EQ(h.printer.endDocs, 1);
    EXPECT_EQ(h.printer.Documents(), 1);
    EXPECT_EQ(h.printer.PagesPrinted(), 1);
    auto texts = h.printer.TextsOnPage(1);
    ASSERT_GE(texts.size(), 4u);
    EXPECT_EQ(texts[0], kTitle);
    EXPECT_EQ(texts[3], "Name 117");
    EXPECT_EQ(texts.back(), "Team List: Page 3");
    EXPECT_EQ(h.printer.FindText("Name 116"), nullptr);
    EXPECT_TRUE(h.boxes.empty());
}

TEST(ReportPages, FirstPageBeyondTheEndPrintsNothingAndSaysSo) {
    PrintHost h;
    RunReport(h, 130, 4);
    EXPECT_EQ(h.printer.endDocs, 0);
    EXPECT_EQ(h.printer.PagesPrinted(), 0);
    EXPECT_FALSE(h.printer.DocumentOpen());
    EXPECT_TRUE(h.printer.Texts().empty());
    ASSERT_EQ(h.boxes.size(), 1u);
    EXPECT_EQ(h.boxes[0].prompt, kNoFirstPage);
    EXPECT_EQ(h.boxes[0].title, "Print Error");
    EXPECT_EQ(h.boxes[0].buttons, host::vbOKOnly | host::vbCritical);
}

TEST(RecordingSurface, FontChangeInsideALineKeepsTheLineAndTheNextLineFollowsTheLastFont) {
    RecordingSurface out;
    out.SetFont(Fonts::fntTimes8);
    out.SetCurrentX(2.0f);
    out.SetCurrentY(5.0f);
    out.Print("Total:", true);
    out.SetFont(Fonts::fntArial28B);
    out.Print(42L);
    auto texts = out.TextOps();
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_FLOAT_EQ(texts[1]->y, 5.0f);
    EXPECT_FLOAT_EQ(texts[1]->x, 2.0f + 6 * 8 * RecordingSurface::CharWidthPerPoint);
    EXPECT_EQ(texts[1]->text, " 42");
    EXPECT_FLOAT_EQ(out.CurrentX(), 0.0f);
    EXPECT_FLOAT_EQ(out.CurrentY(), 5.0f + 28 * RecordingSurface::LinePerPoint);
}
