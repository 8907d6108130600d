#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include <QApplication>
#include <QLabel>
#include <QPrintDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include "PdfTools.h"
#include "QtTestApp.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtPrintPreview.h"
#include "platform/qt/QtPrintSurface.h"

namespace {

// Works a modal window of type W once it is up.
template <class W>
void WhenShown(std::function<void(W&)> work) {
    auto* poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, poll, [poll, work] {
        if (auto* w = qobject_cast<W*>(QApplication::activeModalWidget())) {
            poll->stop();
            poll->deleteLater();
            work(*w);
        }
    });
    poll->start(10);
}

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
        WhenShown<QtPrintPreview>([&](QtPrintPreview& w) {
            pages = w.PageCount();
            w.ShowPage(2);
            label = w.findChildren<QLabel*>().value(0)->text();
            (k.press == Print ? w.PrintButton() : k.press == Save ? w.SaveButton() : w.CloseButton())->click();
        });
        out.Print("The first page");
        out.NewPage();
        out.Print("The second page");
        out.EndDoc();

        EXPECT_EQ(pages, 2);
        EXPECT_EQ(label, "Page 2 of 2");
        EXPECT_FALSE(out.DocumentOpen());
        EXPECT_EQ(std::filesystem::exists(printed), k.printed);
        EXPECT_EQ(std::filesystem::exists(saved), k.saved);
        const std::string written = k.printed ? printed : saved;
        if (k.printed || k.saved) {
            EXPECT_NE(PdfText(written).find("The second page"), std::string::npos);
        }

        // The preview was for that document only.
        std::filesystem::remove(printed);
        out.Print("Straight out");
        out.EndDoc();
        EXPECT_NE(PdfText(printed).find("Straight out"), std::string::npos);
    }
}

// The printer dialog's Preview button: the report runs once, and its pages
// wait for the preview instead of going to the printer.
TEST(PrintPreview, ThePrinterDialogOffersItBesidePrint) {
    EnsureQtApplication();
    QTemporaryDir dir;
    QtHost host{dir.filePath("settings.ini").toStdString(), ""};
    for (bool preview : {true, false}) {
        SCOPED_TRACE(preview);
        WhenShown<QPrintDialog>([preview](QPrintDialog& d) {
            auto* b = d.findChild<QPushButton*>("PreviewButton");
            if (b && preview)
                b->click();
            else
                d.accept();
        });
        host::PrinterDialog d;
        d.Copies = 3;
        ASSERT_TRUE(host.ShowPrinter(d));
        auto& surface = dynamic_cast<QtPrintSurface&>(host.Printer());
        EXPECT_EQ(surface.PreviewPending(), preview);
        EXPECT_EQ(d.Copies, preview ? 1 : 3);
    }
}

}  // namespace
