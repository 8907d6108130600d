#include "platform/qt/QtPrintSurface.h"

#include <algorithm>

#include <QFile>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QPrinter>
#include <QPrinterInfo>

#include "platform/qt/QtPrintPreview.h"
#include "platform/qt/QtText.h"
#include "platform/vb/Strings.h"

namespace {

constexpr double CmPerInch = 2.54;
// A PDF is laid out as the usual laser printer would print it.
constexpr int PdfDpi = 600;
constexpr double PdfMarginInch = 0.25;
// DrawWidth counts pixels of a 600 dpi printer, so a rule looks the same on
// every device.
constexpr double DrawWidthDpi = 600;

}  // namespace

QtPrintSurface::QtPrintSurface() = default;

QtPrintSurface::~QtPrintSurface() {
    // Whatever is still open goes out, as when the old program ended; the
    // host that would tell of a failure is going too.
    OnFailure = nullptr;
    preview_ = false;
    if (open_) EndDoc();
}

QString QtPrintSurface::FaceFor(const std::string& name) {
    std::string n = vb::LCase(vb::Trim(name));
    if (n == "arial") return QStringLiteral("Liberation Sans");
    if (n == "times new roman") return QStringLiteral("Liberation Serif");
    // "courrier new" is a misspelling the reports have always asked for.
    if (n == "courier new" || n == "courrier new") return QStringLiteral("Liberation Mono");
    return ToQString(name);
}

QFont QtPrintSurface::ToQFont(const host::PrintFont& f) {
    QFont q(FaceFor(f.Name));
    q.setPointSizeF(f.Size > 0 ? f.Size : 10);
    q.setBold(f.Bold);
    q.setUnderline(f.Underline);
    // Widths add up character by character, as the reports' arithmetic expects.
    q.setKerning(false);
    q.setHintingPreference(QFont::PreferNoHinting);
    const QString face = q.family();
    if (face == QLatin1String("Liberation Mono"))
        q.setStyleHint(QFont::Monospace);
    else if (face == QLatin1String("Liberation Serif"))
        q.setStyleHint(QFont::Serif);
    else
        q.setStyleHint(QFont::SansSerif);
    return q;
}

void QtPrintSurface::SetOutputPdf(const std::string& path) {
    pdfPath_ = path;
    toPdf_ = true;
    pdf_.reset();
}

void QtPrintSurface::SetOutputPrinter() {
    toPdf_ = false;
}

QPrinter& QtPrintSurface::PrinterDevice() {
    return MakePrinter();
}

QPrinter& QtPrintSurface::MakePrinter() const {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (QPrinterInfo::defaultPrinter().isNull()) printer_->setPageSize(QPageSize(QPageSize::Letter));
        printer_->setFullPage(false);
    }
    return *printer_;
}

namespace {

// US Letter with the quarter-inch margins of a laser printer.
QPageLayout PdfLayout() {
    return QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                       QMarginsF(PdfMarginInch, PdfMarginInch, PdfMarginInch, PdfMarginInch), QPageLayout::Inch);
}

}  // namespace

QPagedPaintDevice& QtPrintSurface::Device() const {
    if (!toPdf_) return MakePrinter();
    if (!pdf_) {
        // The writer touches no file until a painter begins on it.
        pdf_ = std::make_unique<QPdfWriter>(FromPath(pdfPath_));
        pdf_->setResolution(PdfDpi);
        pdf_->setPageLayout(PdfLayout());
        pdf_->setCreator(QStringLiteral("Vestrel"));
    }
    return *pdf_;
}

const QtPrintSurface::Face& QtPrintSurface::FaceOf(const host::PrintFont& f, const QPaintDevice& device) const {
    const int dpiX = device.logicalDpiX(), dpiY = device.logicalDpiY();
    for (const Face& face : faces_)
        if (face.key == f && face.dpiX == dpiX && face.dpiY == dpiY) return face;
    // A report uses a handful of fonts on one or two devices.
    if (faces_.size() > 32) faces_.clear();
    QFont q = ToQFont(f);
    faces_.push_back(Face{f, dpiX, dpiY, q, QFontMetricsF(q, &device)});
    return faces_.back();
}

float QtPrintSurface::TextWidth(const std::string& text) {
    const QFontMetricsF& fm = FaceOf(font_, Device()).metrics;
    return static_cast<float>(fm.horizontalAdvance(ToQString(text)) / Device().logicalDpiX() * CmPerInch);
}

float QtPrintSurface::LineHeight() const {
    const QFontMetricsF& fm = FaceOf(font_, Device()).metrics;
    return static_cast<float>(fm.lineSpacing() / Device().logicalDpiY() * CmPerInch);
}

// A document starts with the first call that puts something on paper.
void QtPrintSurface::Open() {
    if (open_) return;
    open_ = true;
    lastError_.clear();
    pages_.assign(1, PageItems());
}

void QtPrintSurface::Close() {
    open_ = false;
    pages_.clear();
    page_ = 1;
    x_ = y_ = 0;
}

void QtPrintSurface::Line(float x1, float y1, float x2, float y2) {
    Open();
    Item it;
    it.isText = false;
    it.x = x1;
    it.y = y1;
    it.x2 = x2;
    it.y2 = y2;
    it.drawWidth = drawWidth_;
    pages_.back().push_back(it);
    x_ = x2;
    y_ = y2;
}

void QtPrintSurface::Print(const std::string& text, bool stayOnLine) {
    Open();
    const float start = x_;
    if (stayOnLine) x_ += TextWidth(text);
    if (!text.empty()) {
        PageItems& page = pages_.back();
        // Text that carries on where the last piece ended, in its font, is drawn
        // with it: the same ink, with fewer runs for the device to lay out.
        if (!page.empty() && page.back().isText && page.back().x2 == start && page.back().y == y_ &&
            page.back().font == font_) {
            page.back().text += ToQString(text);
            page.back().x2 = stayOnLine ? x_ : -1;
        } else {
            Item it;
            it.x = start;
            it.y = y_;
            it.x2 = stayOnLine ? x_ : -1;
            it.font = font_;
            it.text = ToQString(text);
            page.push_back(it);
        }
    }
    if (!stayOnLine) {
        x_ = 0;
        y_ += LineHeight();
    }
}

void QtPrintSurface::NewPage() {
    Open();
    pages_.emplace_back();
    ++page_;
    x_ = y_ = 0;
}

void QtPrintSurface::EndDoc() {
    if (!open_) return;
    // A NewPage just before the end makes no blank sheet.
    if (pages_.size() > 1 && pages_.back().empty()) pages_.pop_back();
    if (preview_) {
        preview_ = false;
        ShowPreview();
        Close();
        return;
    }
    const bool written = Deliver(Device());
    Close();
    if (!written && OnFailure) OnFailure(lastError_);
}

bool QtPrintSurface::Deliver(QPagedPaintDevice& device) {
    lastError_.clear();
    const bool written = Render(device);
    // A fresh writer for the next document to this file.
    if (toPdf_) pdf_.reset();
    return written;
}

void QtPrintSurface::ShowPreview() {
    // The pages are shown on the paper they would go to.
    QPrinter pdfPaper(QPrinter::HighResolution);
    pdfPaper.setOutputFormat(QPrinter::PdfFormat);
    pdfPaper.setPageLayout(PdfLayout());
    QPrinter& paper = toPdf_ ? pdfPaper : MakePrinter();
    int outcome;
    {
        QtPrintPreview window(paper, [this](QPagedPaintDevice& d) { return Render(d); },
                              PreviewParent ? PreviewParent() : nullptr);
        outcome = window.exec();
    }
    bool written = true;
    if (outcome == QtPrintPreview::Print) {
        written = Deliver(Device());
    } else if (outcome == QtPrintPreview::SavePdf) {
        const std::string path = AskPdfPath ? AskPdfPath() : std::string();
        if (path.empty()) return;
        // Saved beside the usual destination, which stays as it was.
        const bool wasPdf = toPdf_;
        const std::string wasPath = pdfPath_;
        SetOutputPdf(path);
        written = Deliver(Device());
        if (wasPdf)
            SetOutputPdf(wasPath);
        else
            SetOutputPrinter();
    }
    if (!written && OnFailure) OnFailure(lastError_);
}

std::string QtPrintSurface::Destination() const {
    if (toPdf_) return "the file " + pdfPath_;
    if (printer_ && !printer_->outputFileName().isEmpty())
        return "the file " + FromQString(printer_->outputFileName());
    QString name = printer_ ? printer_->printerName() : QString();
    return name.isEmpty() ? std::string("the printer") : "the printer " + FromQString(name);
}

void QtPrintSurface::KillDoc() {
    Close();
}

bool QtPrintSurface::Render(QPagedPaintDevice& device) {
    QPainter painter;
    const std::string advice = toPdf_ || (printer_ && !printer_->outputFileName().isEmpty())
                                   ? "Check that its folder exists and may be written to, and that the disk is "
                                     "not full, then print again."
                                   : "Check that it is switched on and ready, then print again.";
    if (!painter.begin(&device)) {
        lastError_ = "The report could not be sent to " + Destination() + ".\r\n" + advice;
        return false;
    }
    const double dpiX = device.logicalDpiX();
    const double dpiY = device.logicalDpiY();
    auto px = [&](float cm) { return cm / CmPerInch * dpiX; };
    auto py = [&](float cm) { return cm / CmPerInch * dpiY; };

    bool first = true;
    // Set only when they change: most lines repeat the fonts of the line before.
    const host::PrintFont* inkFont = nullptr;
    bool blackPen = false;
    for (const PageItems& page : pages_) {
        if (!first && !device.newPage()) {
            lastError_ = "The report could not be finished on " + Destination() + ".\r\n" + advice;
            break;
        }
        first = false;
        for (const Item& it : page) {
            if (it.isText) {
                const Face& face = FaceOf(it.font, device);
                if (!inkFont || !(*inkFont == it.font)) {
                    painter.setFont(face.font);
                    inkFont = &it.font;
                }
                if (!blackPen) {
                    painter.setPen(Qt::black);
                    blackPen = true;
                }
                // The pen is the top of the text, as the old printer object had it.
                painter.drawText(QPointF(px(it.x), py(it.y) + face.metrics.ascent()), it.text);
            } else {
                QPen pen(Qt::black);
                pen.setWidthF(std::max(1, it.drawWidth) * dpiX / DrawWidthDpi);
                pen.setCapStyle(Qt::RoundCap);
                painter.setPen(pen);
                blackPen = false;
                painter.drawLine(QPointF(px(it.x), py(it.y)), QPointF(px(it.x2), py(it.y2)));
            }
        }
    }
    if (!painter.end() && lastError_.empty())
        lastError_ = "The report could not be finished on " + Destination() + ".\r\n" + advice;
    return lastError_.empty();
}
