#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <QTemporaryDir>

#include "PdfTools.h"
#include "QtTestApp.h"
#include "platform/qt/QtPrintSurface.h"

using host::Fonts;

TEST(PdfSurface, TwoPagesInTheFixedFontsWithLiberationFacesEmbedded) {
    EnsureQtApplication();
    QTemporaryDir dir;
    const std::string pdf = dir.filePath("report.pdf").toStdString();
    {
        QtPrintSurface out;
        out.SetOutputPdf(pdf);
        out.SetScaleMode(7);
        out.SetFont(Fonts::fntArial14);
        out.Print("Anchor");
        out.SetFont(Fonts::fntTimes10);
        out.Print("Ren\xE9 Garc\xED" "a");   // Windows-1252 bytes
        out.SetFont(Fonts::fntCourrier8);
        out.Print("Misspelt mono face");
        out.SetFont(Fonts::fntCourier7B);
        out.Print("Bold mono face");
        out.SetDrawWidth(6);
        out.Line(0.6f, 1.0f, 19.99f, 1.0f);
        out.NewPage();
        EXPECT_EQ(out.Page(), 2);
        out.SetFont(Fonts::fntArial28B);
        out.Print(12);
        out.SetFont(Fonts::fntTimes8B);
        out.Print("Second page");
        out.NewPage();   // a page break just before the end makes no blank sheet
        out.EndDoc();
        EXPECT_TRUE(out.LastError().empty()) << out.LastError();
    }
    EXPECT_EQ(PdfPages(pdf), 2);
    EXPECT_NE(Shell("pdfinfo '" + pdf + "'").find("612 x 792"), std::string::npos) << "US Letter";

    struct Row { int page; const char* text; bool there; };
    for (const Row& r : {Row{1, "Anchor", true}, Row{1, "Ren\u00e9 Garc\u00eda", true},
                         Row{1, "Misspelt mono face", true}, Row{1, "Bold mono face", true},
                         Row{1, "Second page", false}, Row{2, "12", true}, Row{2, "Second page", true}}) {
        std::string text = PdfText(pdf, r.page);
        EXPECT_EQ(r.there, text.find(r.text) != std::string::npos) << r.text << " on page " << r.page << ":\n" << text;
    }

    // Every face is a Liberation one, embedded, bold where asked.
    std::istringstream fonts(Shell("pdffonts '" + pdf + "'"));
    std::set<std::string> faces;
    std::smatch m;
    for (std::string line; std::getline(fonts, line);)
        if (std::regex_search(line, m, std::regex(R"(^(\S+) .*\s(yes|no)\s+(yes|no)\s+(yes|no)\s+\d+\s+\d+\s*$)")))
            faces.insert(m[1].str() + " " + m[2].str());
    EXPECT_EQ(faces, (std::set<std::string>{"LiberationMono yes", "LiberationMono-Bold yes", "LiberationSans yes",
                                            "LiberationSans-Bold yes", "LiberationSerif yes",
                                            "LiberationSerif-Bold yes"}));
}

TEST(PdfSurface, MetricsAreCentimetresOfTheMappedFacesAndKillDocDropsThePages) {
    EnsureQtApplication();
    QTemporaryDir dir;
    const std::string pdf = dir.filePath("killed.pdf").toStdString();
    QtPrintSurface out;
    out.SetOutputPdf(pdf);
    // Liberation Mono advances 0.6 em: ten characters of 8 points are 48 points.
    out.SetFont(Fonts::fntCourrier8);
    EXPECT_NEAR(out.TextWidth("MMMMMiiiii"), 48 / 72.0 * 2.54, 0.01);
    out.SetFont(Fonts::fntArial10U);
    EXPECT_NEAR(out.LineHeight(), 11.5 / 72.0 * 2.54, 0.03);

    // A font change inside a line keeps the line; the line end follows the last font.
    out.SetCurrentX(2.0f);
    out.SetCurrentY(5.0f);
    out.SetFont(Fonts::fntTimes8);
    float w = out.TextWidth("Total:");
    out.Print("Total:", true);
    EXPECT_FLOAT_EQ(out.CurrentY(), 5.0f);
    EXPECT_NEAR(out.CurrentX(), 2.0f + w, 1e-4);
    out.SetFont(Fonts::fntArial28B);
    float h = out.LineHeight();
    out.Print(42);
    EXPECT_FLOAT_EQ(out.CurrentX(), 0.0f);
    EXPECT_NEAR(out.CurrentY(), 5.0f + h, 1e-4);
    // A killed document leaves no file, however many pages it had; the next starts afresh.
    out.NewPage();
    out.KillDoc();
    EXPECT_EQ(out.Page(), 1);
    EXPECT_FALSE(std::filesystem::exists(pdf));
    out.Print("Kept page");
    out.EndDoc();
    EXPECT_EQ(PdfPages(pdf), 1);
    std::string text = PdfText(pdf, 1);
    EXPECT_NE(text.find("Kept page"), std::string::npos) << text;
    EXPECT_EQ(text.find("Total:"), std::string::npos) << text;
}
