// The boxes and dialogs of the desktop host: Qt's own, non-native where a test
// has to reach into them.
#include <algorithm>
#include <utility>
#include <vector>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

#include "platform/qt/QtHost.h"
#include "platform/qt/QtPrintSurface.h"
#include "platform/vb/Strings.h"

namespace {

// Lines arrive joined by CR LF.
QString BoxText(const std::string& text) {
    QString t = ToQString(text);
    t.replace("\r\n", "\n");
    t.replace('\r', '\n');
    return t;
}

QString BoxTitle(const std::string& title) {
    return title.empty() ? QCoreApplication::applicationName() : ToQString(title);
}

// The arrow while a box waits for the operator, even inside a busy routine.
class ArrowCursor {
public:
    ArrowCursor() : busy_(QGuiApplication::overrideCursor() != nullptr) {
        if (busy_) QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~ArrowCursor() {
        if (busy_) QApplication::restoreOverrideCursor();
    }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;

private:
    bool busy_;
};

// "Crusade Files (*.dta)|*.dta|All Files (*.*)|*.*": pairs of description and
// patterns. An unpaired description at the end names no patterns and is left out.
QStringList NameFilters(const std::string& filter) {
    QStringList parts = ToQString(filter).split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(';', Qt::SkipEmptyParts);
        for (QString& p : patterns) {
            p = p.trimmed();
            if (p == "*.*") p = "*";   // every file, as the old dialog read it
        }
        patterns.removeAll(QString());
        if (patterns.isEmpty()) continue;
        QString desc = parts[i].trimmed();
        // The description usually shows its patterns already; Qt reads them from there.
        if (desc.endsWith(')') && desc.lastIndexOf('(') > 0) desc = desc.left(desc.lastIndexOf('(')).trimmed();
        if (desc.isEmpty()) desc = patterns.join(' ');
        out << desc + " (" + patterns.join(' ') + ")";
    }
    return out;
}

}  // namespace

int QtHost::MsgBox(const std::string& prompt, int buttons, const std::string& title) {
    using SB = QMessageBox::StandardButton;
    std::vector<std::pair<SB, int>> set;
    switch (buttons & 7) {
    case host::vbOKCancel: set = {{QMessageBox::Ok, host::vbOK}, {QMessageBox::Cancel, host::vbCancel}}; break;
    case host::vbAbortRetryIgnore:
        set = {{QMessageBox::Abort, host::vbAbort}, {QMessageBox::Retry, host::vbRetry},
               {QMessageBox::Ignore, host::vbIgnore}};
        break;
    case host::vbYesNoCancel:
        set = {{QMessageBox::Yes, host::vbYes}, {QMessageBox::No, host::vbNo}, {QMessageBox::Cancel, host::vbCancel}};
        break;
    case host::vbYesNo: set = {{QMessageBox::Yes, host::vbYes}, {QMessageBox::No, host::vbNo}}; break;
    case host::vbRetryCancel: set = {{QMessageBox::Retry, host::vbRetry}, {QMessageBox::Cancel, host::vbCancel}}; break;
    default: set = {{QMessageBox::Ok, host::vbOK}}; break;
    }
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    switch (buttons & 0x70) {
    case host::vbCritical: icon = QMessageBox::Critical; break;
    case host::vbQuestion: icon = QMessageBox::Question; break;
    case host::vbExclamation: icon = QMessageBox::Warning; break;
    case host::vbInformation: icon = QMessageBox::Information; break;
    default: break;
    }

    QWidget* was = DialogParent();
    QMessageBox box(icon, BoxTitle(title), BoxText(prompt), QMessageBox::NoButton, was);
    box.setTextFormat(Qt::PlainText);
    for (const auto& [b, result] : set) box.addButton(b);
    std::size_t def = static_cast<std::size_t>((buttons >> 8) & 3);
    box.setDefaultButton(set[std::min(def, set.size() - 1)].first);
    // Escape is Cancel, or else No, or else OK (Abort/Retry/Ignore: Qt picks Abort).
    SB escape = QMessageBox::NoButton;
    for (SB b : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Ok}) {
        bool present = std::any_of(set.begin(), set.end(), [b](const auto& p) { return p.first == b; });
        if (escape == QMessageBox::NoButton && present) escape = b;
    }
    if (escape != QMessageBox::NoButton) box.setEscapeButton(escape);
    {
        ArrowCursor arrow;
        box.exec();
    }
    ReactivateAfterDialog(was);
    ThrowIfEnding();

    SB clicked = box.clickedButton() ? box.standardButton(box.clickedButton()) : escape;
    for (const auto& [b, result] : set)
        if (b == clicked) return result;
    return host::vbCancel;
}

std::string QtHost::InputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) {
    QWidget* was = DialogParent();
    QInputDialog dlg(was);
    dlg.setInputMode(QInputDialog::TextInput);
    dlg.setWindowTitle(BoxTitle(title));
    dlg.setLabelText(BoxText(prompt));
    dlg.setTextValue(ToQString(defaultText));
    int result;
    {
        ArrowCursor arrow;
        result = dlg.exec();
    }
    ReactivateAfterDialog(was);
    ThrowIfEnding();
    return result == QDialog::Accepted ? FromQString(dlg.textValue()) : std::string();
}

namespace {

bool RunFileDialog(QWidget* parent, host::FileDialog& d, bool save) {
    QFileDialog dlg(parent, ToQString(d.DialogTitle));
    // Qt's own dialog: the same on every desktop, and a test can work it.
    dlg.setOption(QFileDialog::DontUseNativeDialog, true);
    dlg.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // The open dialog takes a typed new name too, unless the file must exist.
    dlg.setFileMode(!save && d.MustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The routines that save ask about an existing file themselves where they care.
    if (save) dlg.setOption(QFileDialog::DontConfirmOverwrite, true);
    QStringList filters = NameFilters(d.Filter);
    if (!filters.isEmpty()) {
        dlg.setNameFilters(filters);
        dlg.selectNameFilter(filters[std::clamp(d.FilterIndex - 1, 0, static_cast<int>(filters.size()) - 1)]);
    }
    QString dir = FromPath(d.InitDir);
    if (!dir.isEmpty() && QFileInfo(dir).isDir()) dlg.setDirectory(dir);
    QString name = FromPath(d.FileName);
    if (!name.isEmpty()) {
        QFileInfo info(name);
        if (info.isAbsolute()) {
            dlg.setDirectory(info.absolutePath());
            dlg.selectFile(info.fileName());
        } else {
            dlg.selectFile(name);
        }
    }
    int result;
    {
        ArrowCursor arrow;
        result = dlg.exec();
    }
    if (result != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return false;
    d.FileName = QFile::encodeName(dlg.selectedFiles().first()).toStdString();
    int index = static_cast<int>(filters.indexOf(dlg.selectedNameFilter()));
    if (index >= 0) d.FilterIndex = index + 1;
    return true;
}

}  // namespace

bool QtHost::ShowOpen(host::FileDialog& d) {
    QWidget* was = DialogParent();
    bool ok = RunFileDialog(was, d, false);
    ReactivateAfterDialog(was);
    ThrowIfEnding();
    return ok;
}

bool QtHost::ShowSave(host::FileDialog& d) {
    QWidget* was = DialogParent();
    bool ok = RunFileDialog(was, d, true);
    ReactivateAfterDialog(was);
    ThrowIfEnding();
    return ok;
}

bool QtHost::ShowPrinter(host::PrinterDialog& d) {
    constexpr int kPageNumbers = 2;   // the operator chose a page range
    QPrinter& printer = Surface().PrinterDevice();
    printer.setCopyCount(std::max(1, d.Copies));
    QWidget* was = DialogParent();
    QPrintDialog dlg(&printer, was);
    dlg.setOption(QAbstractPrintDialog::PrintToFile, true);
    dlg.setOption(QAbstractPrintDialog::PrintPageRange, true);
    dlg.setOption(QAbstractPrintDialog::PrintSelection, false);
    dlg.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    int lo = std::max(1, d.Min), hi = std::max(lo, d.Max);
    dlg.setMinMax(lo, hi);
    if (d.FromPage >= lo && d.ToPage >= d.FromPage && d.ToPage <= hi) {
        printer.setFromTo(d.FromPage, d.ToPage);
        printer.setPrintRange(QPrinter::PageRange);
    } else {
        printer.setPrintRange(QPrinter::AllPages);
    }
    // Beside Print, a Preview button: the report's pages are shown first, and
    // printed or saved as PDF from there.
    bool preview = false;
    if (auto* buttons = dlg.findChild<QDialogButtonBox*>()) {
        QPushButton* b = buttons->addButton(QObject::tr("Pre&view..."), QDialogButtonBox::ActionRole);
        b->setObjectName(QStringLiteral("PreviewButton"));
        QObject::connect(b, &QPushButton::clicked, &dlg, [&] {
            preview = true;
            dlg.accept();
        });
    }
    int result;
    {
        ArrowCursor arrow;
        result = dlg.exec();
    }
    ReactivateAfterDialog(was);
    ThrowIfEnding();
    if (result != QDialog::Accepted) return false;
    if (preview) {
        // One run of the report on screen; the printer makes the copies asked for
        // if the operator prints from there.
        d.Copies = 1;
    } else {
        d.Copies = std::max(1, printer.copyCount());
        // The reports print each copy themselves; the device must not multiply them again.
        printer.setCopyCount(1);
    }
    if (printer.printRange() == QPrinter::PageRange) {
        d.Flags |= kPageNumbers;
        d.FromPage = printer.fromPage();
        d.ToPage = printer.toPage();
    } else {
        d.Flags &= ~kPageNumbers;
    }
    QtPrintSurface& surface = Surface();
    surface.SetOutputPrinter();
    surface.PreviewNextDocument(preview);
    if (preview) {
        surface.PreviewParent = [this] { return DialogParent(); };
        surface.AskPdfPath = [this] {
            host::FileDialog f;
            f.DialogTitle = "Save the Report as PDF";
            f.Filter = "PDF Files (*.pdf)|*.pdf";
            f.FileName = "Report.pdf";
            if (!ShowSave(f)) return std::string();
            std::string path = f.FileName;
            if (path.size() < 4 || vb::LCase(path.substr(path.size() - 4)) != ".pdf") path += ".pdf";
            return path;
        };
    }
    return true;
}
