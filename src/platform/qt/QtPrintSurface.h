#pragma once
// The print surface on a real page: the system printer (through CUPS) or a PDF
// file. Positions are centimetres from the top left of the printable page, fonts
// are in points, and nothing is ever scaled to fit.
//
// The pages of a document are kept until EndDoc and only then painted on the
// device. The printer's own abort can't take back pages already handed to CUPS,
// so this is what lets KillDoc discard everything: nothing has left the program
// yet, and no partial file is ever written.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include "platform/host/PrintSurface.h"

class QPagedPaintDevice;
class QPaintDevice;
class QPdfWriter;
class QPrinter;
class QWidget;

class QtPrintSurface : public host::PrintSurface {
public:
    // Prints on the system printer until told otherwise.
    QtPrintSurface();
    ~QtPrintSurface() override;
    QtPrintSurface(const QtPrintSurface&) = delete;
    QtPrintSurface& operator=(const QtPrintSurface&) = delete;

    // Documents ended from now on are written to this file (US Letter, with the
    // quarter-inch margins of a laser printer). The path is in the file system's
    // encoding.
    void SetOutputPdf(const std::string& path);
    // Documents ended from now on go to the printer, as the print dialog left it.
    void SetOutputPrinter();
    // The printer a QPrintDialog works on. Made on first use; US Letter when
    // there is no printer to say otherwise.
    QPrinter& PrinterDevice();
    bool DocumentOpen() const { return open_; }
    // Why the last document could not be written, or empty.
    const std::string& LastError() const { return lastError_; }
    // Told when a document could not be printed or written, with the reason
    // naming the file or printer; the host shows it to the operator.
    std::function<void(const std::string&)> OnFailure;
    // The next document ended is shown page by page first; from there it is
    // printed to where it would have gone, saved as a PDF, or dropped.
    void PreviewNextDocument(bool on) { preview_ = on; }
    bool PreviewPending() const { return preview_; }
    // Asks where a previewed document is saved as PDF; empty when cancelled.
    std::function<std::string()> AskPdfPath;
    // The preview window's parent.
    std::function<QWidget*()> PreviewParent;
    // The face that stands in for a font name of the reports.
    static QString FaceFor(const std::string& name);
    static QFont ToQFont(const host::PrintFont& f);

    float CurrentX() const override { return x_; }
    float CurrentY() const override { return y_; }
    void SetCurrentX(float x) override { x_ = x; }
    void SetCurrentY(float y) override { y_ = y; }
    void SetFont(const host::PrintFont& f) override { font_ = f; }
    const host::PrintFont& Font() const override { return font_; }
    void SetScaleMode(int mode) override { scaleMode_ = mode; }
    void SetDrawWidth(int w) override { drawWidth_ = w; }
    void Line(float x1, float y1, float x2, float y2) override;
    float TextWidth(const std::string& text) override;
    using host::PrintSurface::Print;
    void Print(const std::string& text, bool stayOnLine = false) override;
    void NewPage() override;
    void EndDoc() override;
    void KillDoc() override;
    int Page() const override { return page_; }
    float LineHeight() const override;

private:
    struct Item {
        bool isText = true;
        float x = 0, y = 0, x2 = 0, y2 = 0;   // a text's x2: where the pen stopped after it, -1 at a line end
        host::PrintFont font;
        QString text;
        int drawWidth = 1;
    };
    using PageItems = std::vector<Item>;
    struct Face {
        host::PrintFont key;
        int dpiX, dpiY;
        QFont font;
        QFontMetricsF metrics;
    };
    const Face& FaceOf(const host::PrintFont& f, const QPaintDevice& device) const;
    mutable std::vector<Face> faces_;

    // The device metrics come from, and the next document goes to.
    QPagedPaintDevice& Device() const;
    QPrinter& MakePrinter() const;
    void Open();
    void Close();
    bool Render(QPagedPaintDevice& device);
    void ShowPreview();
    // Writes the pages to a device; false when they could not all be written.
    bool Deliver(QPagedPaintDevice& device);
    // "the file ..." or "the printer ...", where the next document goes.
    std::string Destination() const;

    // Made on first use: a printer asks CUPS, which a PDF run doesn't need.
    mutable std::unique_ptr<QPrinter> printer_;
    mutable std::unique_ptr<QPdfWriter> pdf_;
    std::string pdfPath_;
    bool toPdf_ = false;
    bool preview_ = false;

    float x_ = 0, y_ = 0;
    host::PrintFont font_{"Arial", 10, false, false};
    int scaleMode_ = 7;   // kept for the record: every position here is in centimetres
    int drawWidth_ = 1;
    int page_ = 1;
    bool open_ = false;
    std::vector<PageItems> pages_;
    std::string lastError_;
};
