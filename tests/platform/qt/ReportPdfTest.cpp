#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <QTemporaryDir>

#include "PdfTools.h"
#include "QtTestApp.h"
#include "platform/qt/QtPrintSurface.h"
#include "lists/Lists.h"
#include "program/Program.h"
#include "reports/Reports.h"
#include "store/Generator.h"
#include "store/Info.h"
#include "store/Records.h"
#include "store/SortIndex.h"
#include "support/QuietHost.h"

namespace {

class PdfHost : public QuietHost {
public:
    QtPrintSurface pdf;
    bool ShowPrinter(host::PrinterDialog&) override { return true; }
    host::PrintSurface& Printer() override { return pdf; }
};

// The reports of a generated crusade of 400 people written to PDF on real
// fonts; VESTREL_KEEP_PDF names a folder that keeps the files for a look.
TEST(ReportPdf, ListsOfAGeneratedCrusadeFillTheirPagesAndNumberThem) {
    EnsureQtApplication();
    QTemporaryDir dir;
    const char* keep = std::getenv("VESTREL_KEEP_PDF");
    const std::string out = keep ? std::string(keep) : dir.path().toStdString();
    PdfHost host;
    Program p(host, dir.path().toStdString());
    GenerateCrusade(p, dir.filePath("Fall.dta").toStdString(), 400, 11, 24, "Fall");
    LoadInfo(p);
    OpenRecordFile(p);
    ASSERT_TRUE(FullLoadPass(p));
    p.PrintingFromPreview = true;

    struct Case {
        std::string file, firstPage, lastPage;
        std::function<void()> run;
    } cases[] = {
        {"master.pdf", "Fall Master Alphabetical List", "Fall Master Alphabetical List: Page ",
         [&] { RebuildAlpha(p); PrintOneLineReport(p, 1); }},
        {"team.pdf", "Team 00:", "Fall Team Alphabetical List",
         [&] { ASSERT_TRUE(lists::BuildList(p, "wcalpha")); PrintWCReport(p, 1); }},
        {"baptisms.pdf", "Fall Baptisms and Profession of Faith (*)", "Total Additions:",
         [&] { ASSERT_TRUE(lists::BuildList(p, "baptism")); PrintBaptisms(p); }},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.file);
        const std::string pdf = out + "/" + k.file;
        host.pdf.SetOutputPdf(pdf);
        k.run();
        ASSERT_EQ(host.pdf.LastError(), "");
        const int pages = PdfPages(pdf);
        EXPECT_NE(PdfText(pdf, 1).find(k.firstPage), std::string::npos) << PdfText(pdf, 1);
        const std::string last = PdfText(pdf, pages);
        EXPECT_NE(last.find(k.lastPage), std::string::npos) << last;
        // The master list's last footer numbers the last page.
        EXPECT_TRUE(k.file != "master.pdf" || last.find("Page " + std::to_string(pages)) != std::string::npos);
        EXPECT_EQ(PdfText(pdf, 1).find(": Page 1"), std::string::npos);
    }
    p.File1.Close();
}

}  // namespace
