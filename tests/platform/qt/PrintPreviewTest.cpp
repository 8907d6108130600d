#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include <QApplication>
#include <QLabel>
#include <QPrintDialog>
#include <QPushButton>
#include <QTemporaryDir>

#include "PdfTools.h"
#include "QtTestApp.h"
#include "WhenModal.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtPrintPreview.h"
#include "platform/qt/QtPrintSurface.h"

namespace {

TEST(PrintPreview, ShowsEveryPageThenPrintsSavesOrDropsThem) {
    EnsureQtApplication();
    enum Press { Print, Save, Close };
    struct Case { Press press; bool printed, saved; } cases[] = {
        {Print, true, false}, {Save, false, true}, {Close, false, false}};
    for (const Case& k : cases) {
        SCOPED_TRACE(static_cast<int>(k.press));
        QTemporaryDir dir;
        const std::string printed = dir.filePath("printed.pdf").toStdString();
        const std::string saved = dir.filePath("saved.pdf").toStdString();
        QtPrintSurface out;
        out.SetOutputPdf(printed);
        out.AskPdfPath = [&] { return saved; };
        out.PreviewNextDocument(true);
        int pages = 0;
        QString label;
        WhenModal<QtPrintPreview>([&](QtPrintPreview* w) {
            pages = w->PageCount();
            w->ShowPage(2);
            label = w->findChildren<QLabel*>().value(0)->text();
            (k.press == Print ? w->PrintButton() : k.press == Save ? w->SaveButton() : w->CloseButton())->click();
        });
        out.Print("The first page");
        out.NewPage();
        out.Print("The second page");
        out.EndDoc();

        EXPECT_EQ(std::make_tuple(2, QString("Page 2 of 2")), std::make_tuple(pages, label));
        EXPECT_FALSE(out.DocumentOpen());
        EXPECT_EQ(std::filesystem::exists(printed), k.printed);
        EXPECT_EQ(std::filesystem::exists(saved), k.saved);
        EXPECT_TRUE(!(k.printed || k.saved) ||
                    PdfText(k.printed ? printed : saved).find("The second page") != std::string::npos);

        // The preview was for that document only.
        std::filesystem::remove(printed);
        out.Print("Straight out");
        out.EndDoc();
        EXPECT_NE(PdfText(printed).find("Straight out"), std::string::npos);
    }
}

// The printer dialog reports the copies and the range chosen. Its Preview
// button: the report runs once, and its pages wait for the preview instead of
// going to the printer.
TEST(PrintPreview, ThePrinterDialogReportsCopiesAndRangeAndOffersAPreview) {
    EnsureQtApplication();
    QTemporaryDir dir;
    QtHost host{dir.filePath("settings.ini").toStdString(), ""};
    auto& surface = dynamic_cast<QtPrintSurface&>(host.Printer());
    host::PrinterDialog d;
    d.Flags = 4;
    // A range sets its bit; no range: the bit goes.
    struct Case { bool preview; int from, to, flags, copies; } cases[] = {{true, 3, 5, 4 | 2, 1}, {false, 0, 0, 4, 3}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.preview);
        WhenModal<QPrintDialog>([&c](QPrintDialog* dlg) {
            auto* b = dlg->findChild<QPushButton*>("PreviewButton");
            if (b && c.preview)
                b->click();
            else
                dlg->accept();
        });
        d.Copies = 3;
        d.FromPage = c.from;
        d.ToPage = c.to;
        ASSERT_TRUE(host.ShowPrinter(d));
        EXPECT_EQ(surface.PreviewPending(), c.preview);
        EXPECT_EQ((std::vector<int>{c.copies, c.flags, c.from, c.to}),
                  (std::vector<int>{d.Copies, d.Flags, d.FromPage, d.ToPage}));
    }
    WhenModal<QPrintDialog>([](QPrintDialog* dlg) { dlg->reject(); });
    EXPECT_FALSE(host.ShowPrinter(d));
}

}  // namespace
