#pragma once
// The pages of a report on screen, page by page, before anything leaves the
// program: from here the operator prints them, saves them as a PDF, or closes
// the window and nothing is printed.
#include <functional>

#include <QDialog>

class QLabel;
class QPagedPaintDevice;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;

class QtPrintPreview : public QDialog {
    Q_OBJECT
public:
    enum Outcome { Closed = 0, Print = 1, SavePdf = 2 };

    // `render` paints every page on a device; `layout` gives the page size and
    // margins the pages are shown on (the printer they would go to).
    QtPrintPreview(QPrinter& layout, std::function<bool(QPagedPaintDevice&)> render, QWidget* parent = nullptr);

    int PageCount() const;
    int CurrentPage() const;
    void ShowPage(int page);
    QPushButton* PrintButton() const { return print_; }
    QPushButton* SaveButton() const { return save_; }
    QPushButton* CloseButton() const { return close_; }

private:
    void UpdatePageLabel();

    std::function<bool(QPagedPaintDevice&)> render_;
    QPrintPreviewWidget* view_ = nullptr;
    QLabel* pageLabel_ = nullptr;
    QPushButton* print_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* close_ = nullptr;
};
