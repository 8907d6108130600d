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

#ifndef VESTREL_RESOURCES
#define VESTREL_RESOURCES "resources"
#endif

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Vestrel");
    QApplication::setWindowIcon(QIcon(QString(VESTREL_RESOURCES) + "/pictures/vestrel.svg"));

    std::string appPath = DefaultAppPath();
    std::string error;
    if (!InstallProgramFolder(appPath, VESTREL_RESOURCES, error)) {
        QMessageBox::critical(nullptr, "Vestrel", QString::fromStdString(error));
        return 1;
    }
    QtHost host(appPath + "/settings-store.ini", VESTREL_RESOURCES);
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
