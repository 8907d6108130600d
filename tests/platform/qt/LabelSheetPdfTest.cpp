// Interest cards written to PDF, their text found again with pdftotext and
// measured against the sheet's pitch and the operator's offsets: the card
// pitch and the surface's centimetres over a whole sheet show only here.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <regex>

#include <QTemporaryDir>

#include "PdfTools.h"
#include "QtTestApp.h"
#include "platform/qt/QtPrintSurface.h"
#include "program/Program.h"
#include "reports/Reports.h"
#include "store/Generator.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/ScriptedHost.h"

namespace {

constexpr double PtPerCm = 72 / 2.54;
constexpr double MarginPt = 18;   // the PDF's quarter-inch printable margin

// The scripted host, printing on a real PDF.
class PdfHost : public ScriptedHost {
public:
    QtPrintSurface pdf;
    host::PrintSurface& Printer() override { return pdf; }
};

// The tops of the words of one page that end in "/" (registration numbers)
// and stand within a point of the given X, top to bottom.
std::vector<double> NumberTops(const std::string& pdf, int page, double x) {
    const std::string n = std::to_string(page);
    const std::string out = Shell("pdftotext -bbox -f " + n + " -l " + n + " '" + pdf + "' -");
    std::vector<double> tops;
    std::regex word(R"re(<word xMin="([0-9.]+)" yMin="([0-9.]+)"[^>]*>[^<]*/</word>)re");
    for (auto it = std::sregex_iterator(out.begin(), out.end(), word); it != std::sregex_iterator(); ++it)
        if (std::abs(std::stod((*it)[1]) - x) < 1.0) tops.push_back(std::stod((*it)[2]));
    std::sort(tops.begin(), tops.end());
    return tops;
}

}  // namespace

TEST(LabelSheetPdf, InterestCardsStandTwoAcrossAndFiveDownMovedByTheOffsets) {
    EnsureQtApplication();
    QTemporaryDir dir;
    PdfHost host;
    Program p{host, dir.path().toStdString()};
    GenerateCrusade(p, dir.filePath("Sheets.dta").toStdString(), 12, 11, 12);
    OpenRecordFile(p);
    ASSERT_TRUE(FullLoadPass(p));
    p.LabelTop = 4;     // 0.4 cm down
    p.LabelRight = 3;   // 0.3 cm right
    const std::string pdf = dir.filePath("interest-cards.pdf").toStdString();
    host.pdf.SetOutputPdf(pdf);
    RebuildAlpha(p);
    p.SortName = "IntCard";
    host.ExpectPrinter([](host::PrinterDialog&) { return true; });
    host.ExpectBox("You will need 2 sheets of Avery 5163", host::vbYes);
    InterestCard2x4(p);
    ASSERT_TRUE(host.pdf.LastError().empty()) << host.pdf.LastError();
    const double top = MarginPt + (0.4 + 1.0) * PtPerCm;
    for (double x : {0.55, 11.0}) {
        SCOPED_TRACE(x);
        // The number stands on the name line only, 7 cm into the card; the second sheet holds two cards.
        const double at = MarginPt + (0.3 + x + 7.0) * PtPerCm;
        const std::vector<double> tops = NumberTops(pdf, 1, at);
        ASSERT_EQ(tops.size(), 5u);
        for (int r = 0; r < 5; ++r) EXPECT_NEAR(tops[r] - top, r * 5.08 * PtPerCm, 1.5) << "row " << r;
        EXPECT_EQ(NumberTops(pdf, 2, at).size(), 1u);
    }
    host.Verify();
    p.File1.Close();
}
