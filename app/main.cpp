// Vestrel: starts the Qt desktop, the program folder, and Main.
#include <QApplication>
#include <QDateTime>
#include <QIcon>
#include <QMessageBox>
#include <cstdio>
#include <set>

#include "platform/qt/QtHost.h"
#include "platform/vb/Files.h"
#include "startup/Install.h"
#include "startup/Lifecycle.h"
#include "store/Generator.h"
#include "program/Program.h"

namespace {

// VESTREL_PAINT_STAMPS=1: prints the wall-clock time of the first paint of each
// window and of the first key or click, for the start-up benchmark script.
class PaintStamps : public QObject {
    std::set<QObject*> painted_;
    bool input_ = false;
    static void Stamp(const char* what, const QString& title) {
        std::fprintf(stderr, "stamp %s %lld %s\n", what, static_cast<long long>(QDateTime::currentMSecsSinceEpoch()),
                     qPrintable(title));
    }
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::Paint && o->isWidgetType()) {
            QWidget* w = static_cast<QWidget*>(o)->window();
            if (painted_.insert(w).second) Stamp("paint", w->windowTitle());
        } else if (!input_ && (e->type() == QEvent::KeyPress || e->type() == QEvent::MouseButtonPress)) {
            input_ = true;
            Stamp("input", QString());
        }
        return false;
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    PaintStamps stamps;
    if (qEnvironmentVariableIntValue("VESTREL_PAINT_STAMPS")) app.installEventFilter(&stamps);
    QApplication::setApplicationName("Vestrel");
    const QString programDir = QCoreApplication::applicationDirPath();
    const QString found = FindResourceFolder(programDir);
    if (found.isEmpty()) {
        QMessageBox::critical(nullptr, "Vestrel",
                              "Vestrel's pictures, sounds and help were not found beside the program (" + programDir +
                                  "/resources) nor in its data folder (" + programDir +
                                  "/../share/vestrel). Install Vestrel again.");
        return 1;
    }
    const std::string resources = FromQString(found);
    QApplication::setWindowIcon(QIcon(found + "/pictures/vestrel.svg"));

    std::string appPath = DefaultAppPath();
    std::string error;
    if (!InstallProgramFolder(appPath, resources, error)) {
        QMessageBox::critical(nullptr, "Vestrel", QString::fromStdString(error));
        return 1;
    }
    QtHost host(appPath + "/settings-store.ini", resources);
    Program p(host, appPath);
    // A new user finds a crusade to open at once.
    p.OnDataFolderCreated = [](Program& prog) {
        std::string sample = prog.DataPath() + "/Sample.dta";
        if (vb::FileExists(sample)) return;
        Program scratch(prog.host, prog.AppPath);
        GenerateCrusade(scratch, sample, 300, 2026, 12);
    };
    return host.Run([&] { Main(p); });
}
