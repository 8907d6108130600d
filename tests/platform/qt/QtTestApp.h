#pragma once
// One QApplication for the whole Qt test program, made by the first suite that needs it.
#include <QApplication>

inline void EnsureQtApplication() {
    static int argc = 1;
    static char name[] = "test_qt";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QApplication(argc, argv);
}
