#include "platform/qt/QtPrintPreview.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

QtPrintPreview::QtPrintPreview(QPrinter& layout, std::function<bool(QPagedPaintDevice&)> render, QWidget* parent)
    : QDialog(parent), render_(std::move(render)) {
    setWindowTitle(tr("Print Preview"));
    setObjectName(QStringLiteral("PrintPreview"));
    view_ = new QPrintPreviewWidget(&layout, this);
    view_->setViewMode(QPrintPreviewWidget::SinglePageView);
    connect(view_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* p) { render_(*p); });
    connect(view_, &QPrintPreviewWidget::previewChanged, this, [this] { UpdatePageLabel(); });

    auto button = [this](const QString& text) {
        auto* b = new QPushButton(text, this);
        b->setAutoDefault(false);
        return b;
    };
    QPushButton* first = button(tr("|<"));
    QPushButton* prev = button(tr("< Previous"));
    QPushButton* next = button(tr("Next >"));
    QPushButton* last = button(tr(">|"));
    QPushButton* zoomIn = button(tr("Zoom In"));
    QPushButton* zoomOut = button(tr("Zoom Out"));
    QPushButton* fit = button(tr("Whole Page"));
    pageLabel_ = new QLabel(this);
    print_ = button(tr("&Print"));
    save_ = button(tr("&Save as PDF..."));
    close_ = button(tr("&Close"));
    print_->setDefault(true);
    connect(first, &QPushButton::clicked, this, [this] { ShowPage(1); });
    connect(prev, &QPushButton::clicked, this, [this] { ShowPage(CurrentPage() - 1); });
    connect(next, &QPushButton::clicked, this, [this] { ShowPage(CurrentPage() + 1); });
    connect(last, &QPushButton::clicked, this, [this] { ShowPage(PageCount()); });
    connect(zoomIn, &QPushButton::clicked, view_, [this] { view_->zoomIn(); });
    connect(zoomOut, &QPushButton::clicked, view_, [this] { view_->zoomOut(); });
    connect(fit, &QPushButton::clicked, view_, &QPrintPreviewWidget::fitInView);
    connect(print_, &QPushButton::clicked, this, [this] { done(Print); });
    connect(save_, &QPushButton::clicked, this, [this] { done(SavePdf); });
    connect(close_, &QPushButton::clicked, this, [this] { done(Closed); });

    auto* bar = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(first), static_cast<QWidget*>(prev), static_cast<QWidget*>(pageLabel_),
                       static_cast<QWidget*>(next), static_cast<QWidget*>(last), static_cast<QWidget*>(zoomOut),
                       static_cast<QWidget*>(zoomIn), static_cast<QWidget*>(fit)})
        bar->addWidget(w);
    bar->addStretch();
    bar->addWidget(print_);
    bar->addWidget(save_);
    bar->addWidget(close_);
    auto* box = new QVBoxLayout(this);
    box->addLayout(bar);
    box->addWidget(view_, 1);
    resize(900, 1000);
    view_->updatePreview();
    view_->fitInView();
    UpdatePageLabel();
}

int QtPrintPreview::PageCount() const { return view_->pageCount(); }

int QtPrintPreview::CurrentPage() const { return view_->currentPage(); }

void QtPrintPreview::ShowPage(int page) {
    if (PageCount() < 1) return;
    view_->setCurrentPage(std::clamp(page, 1, PageCount()));
    UpdatePageLabel();
}

void QtPrintPreview::UpdatePageLabel() {
    pageLabel_->setText(tr("Page %1 of %2").arg(std::max(1, CurrentPage())).arg(PageCount()));
}
