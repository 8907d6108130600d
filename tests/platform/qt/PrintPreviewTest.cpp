#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <QApplication>
#include <QLabel>
#include <QPrintDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include "QtTestApp.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtPrintPreview.h"
#include "platform/qt/QtPrintSurface.h"

namespace {

std::string PdfText(const std::string& pdf) {
    std::string out;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(("pdftotext '" + pdf + "' - 2>&1").c_str(), "r"), pclose);
    char buf[4096];
    std::size_t n;
    while (pipe && (n = fread(buf, 1, sizeof buf, pipe.get())) > 0) out.append(buf, n);
    return out;
}

// Works the preview window once it is up: notes what it shows, then presses a button.
void WhenPreviewShows(std::function<void(QtPrintPreview&)> work) {
    auto* poll = new QTimer;
    QObject::connect(poll, &QTimer::timeout, poll, [poll, work] {
        if (auto* w = qobject_cast<QtPrintPreview*>(QApplication::activeModalWidget())) {
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
        WhenPreviewShows([&](QtPrintPreview& w) {
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
        auto* poll = new QTimer;
        QObject::connect(poll, &QTimer::timeout, poll, [poll, preview] {
            auto* d = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (!d) return;
            poll->stop();
            poll->deleteLater();
            if (auto* b = d->findChild<QPushButton*>("PreviewButton"); b && preview)
                b->click();
            else
                d->accept();
        });
        poll->start(10);
        host::PrinterDialog d;
        d.Copies = 3;
        ASSERT_TRUE(host.ShowPrinter(d));
        auto& surface = dynamic_cast<QtPrintSurface&>(host.Printer());
        EXPECT_EQ(surface.PreviewPending(), preview);
        EXPECT_EQ(d.Copies, preview ? 1 : 3);
    }
}

}  // namespace
