// Interest cards written to PDF, their text found again with pdftotext and
// measured against the sheet's pitch and the operator's offsets: the card
// pitch and the surface's centimetres over a whole sheet show only here.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
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

struct Word {
    double x, y;
    std::string text;
    int page;
};

std::vector<Word> Words(const std::string& pdf) {
    const std::string out = Shell("pdftotext -bbox '" + pdf + "' -");
    std::vector<Word> words;
    int page = 0;
    std::regex item(R"re(<page |<word xMin="([0-9.]+)" yMin="([0-9.]+)"[^>]*>([^<]*)</word>)re");
    for (auto it = std::sregex_iterator(out.begin(), out.end(), item); it != std::sregex_iterator(); ++it) {
        if ((*it)[0].str().rfind("<page", 0) == 0) ++page;
        else words.push_back({std::stod((*it)[1]), std::stod((*it)[2]), (*it)[3], page});
    }
    return words;
}

// Words of one page that stand within a point of the given X, top to bottom.
std::vector<Word> AtColumn(const std::vector<Word>& words, int page, double x) {
    std::vector<Word> out;
    for (const Word& w : words)
        if (w.page == page && std::abs(w.x - x) < 1.0) out.push_back(w);
    std::sort(out.begin(), out.end(), [](const Word& a, const Word& b) { return a.y < b.y; });
    return out;
}

}  // namespace

TEST(LabelSheetPdf, InterestCardsStandTwoAcrossAndFiveDownMovedByTheOffsets) {
    EnsureQtApplication();
    QTemporaryDir dir;
    PdfHost host;
    const std::string appPath = dir.filePath("Vestrel").toStdString();
    Program p{host, appPath};
    std::filesystem::create_directories(appPath + "/data");
    GenerateCrusade(p, appPath + "/data/Sheets.dta", 12, 11, 12);
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
    const std::vector<Word> words = Words(pdf);
    const double top = MarginPt + (0.4 + 1.0) * PtPerCm;
    for (double x : {0.55, 11.0}) {
        // The registration number stands on the name line only, 7 cm into the card.
        std::vector<Word> numbers;
        for (const Word& w : AtColumn(words, 1, MarginPt + (0.3 + x + 7.0) * PtPerCm))
            if (!w.text.empty() && w.text.back() == '/') numbers.push_back(w);
        ASSERT_EQ(numbers.size(), 5u) << x;
        for (int r = 0; r < 5; ++r) EXPECT_NEAR(numbers[r].y - top, r * 5.08 * PtPerCm, 1.5) << x << " row " << r;
    }
    EXPECT_FALSE(AtColumn(words, 2, MarginPt + (0.3 + 0.55) * PtPerCm).empty());
    host.Verify();
    p.File1.Close();
}
