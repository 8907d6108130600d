// Vestrel: starts the Qt desktop, the program folder, and Main.
#include <QApplication>
#include <QIcon>
#include <QMessageBox>

#include "platform/qt/QtHost.h"
#include "platform/vb/Files.h"
#include "startup/Install.h"
#include "startup/Lifecycle.h"
#include "store/Generator.h"
#include "program/Program.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
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
