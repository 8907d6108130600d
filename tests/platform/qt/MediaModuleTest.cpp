#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "QtTestApp.h"
#include "platform/qt/QtHost.h"

// Sound and the web come from a module opened beside the program; without it
// the program would run silent and never find an update, with no word said.
TEST(MediaModule, OpensBesideTheProgramAndAnswersForSoundAndTheWeb) {
    EnsureQtApplication();
    QTemporaryDir dir;
    QtHost host(dir.filePath("settings.ini").toStdString(), dir.path().toStdString());
    EXPECT_EQ("", host.MediaError());
    EXPECT_FALSE(host.HttpGet("http://127.0.0.1:1/version.txt").has_value());
}
