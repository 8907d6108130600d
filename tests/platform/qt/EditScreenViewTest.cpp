#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include "QtTestApp.h"
#include "edit/EditForm.h"
#include "platform/qt/FormView.h"
#include "platform/qt/QtHost.h"
#include "program/Program.h"
#include "startup/frmSplash.h"

using forms::Control;
using forms::Kind;

namespace {

QString Bundled() {
    const char* source = std::getenv("VESTREL_SOURCE_DIR");
    return QString(source ? source : ".") + "/resources";
}

// The program's own screens shown on the desktop, with the pictures it brings.
class ProgramScreens : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureQtApplication(); }

    template <class T>
    T* W(const Control& c) const {
        FormView* v = c.Parent().Name() == "EditForm" ? editView.get() : splashView.get();
        return qobject_cast<T*>(v->WidgetOf(c));
    }

    QTemporaryDir dir;
    QtHost host{dir.filePath("settings.ini").toStdString(), FromQString(Bundled())};
    Program p{host, dir.path().toStdString()};
    EditForm edit{p};
    frmSplash splash{p};
    std::unique_ptr<FormView> editView = std::make_unique<FormView>(host, edit);
    std::unique_ptr<FormView> splashView = std::make_unique<FormView>(host, splash);
};

// Some pixel is drawn: a picture that failed to load draws nothing.
bool Drawn(const QPixmap& pm) {
    QImage img = pm.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied), blank = img;
    blank.fill(Qt::transparent);
    return !pm.isNull() && img != blank;
}

}  // namespace

TEST_F(ProgramScreens, EveryPictureOfTheButtonsAndTheSplashIsDrawn) {
    std::set<std::string> names;
    for (const forms::Form* f : {static_cast<const forms::Form*>(&edit), static_cast<const forms::Form*>(&splash)})
        for (const Control* c : f->Controls()) {
            if (c->Picture().empty()) continue;
            names.insert(c->Picture());
            QPixmap pm;
            if (c->kind() == Kind::CommandButton) {
                auto* b = W<QPushButton>(*c);
                ASSERT_NE(nullptr, b) << c->Name();
                pm = b->icon().pixmap(b->iconSize());
            } else {
                pm = W<QLabel>(*c)->pixmap();
            }
            EXPECT_TRUE(Drawn(pm)) << c->Name() << " shows no picture " << c->Picture();
        }
    // The bar's thirteen, the four arrows, the prayer button and the logo.
    EXPECT_EQ(19u, names.size());
}

TEST_F(ProgramScreens, CaptionsShowWholeAndTheBarsButtonsStandApart) {
    // The add-mode buttons wrap at their blanks onto two lines; the text is the program's.
    EXPECT_EQ((QStringList{"Save\nand  New", "Save\nand Exit", "Cancel\nand Exit"}),
              (QStringList{W<QPushButton>(edit.btnSaveNew)->text(), W<QPushButton>(edit.btnSaveExit)->text(),
                           W<QPushButton>(edit.btnCancelNew)->text()}));

    // Every label holds all of its text.
    for (const forms::Form* f : {static_cast<const forms::Form*>(&edit), static_cast<const forms::Form*>(&splash)})
        for (const Control* c : f->Controls()) {
            if (c->kind() != Kind::Label || c->Caption().empty()) continue;
            auto* l = W<QLabel>(*c);
            QRect need = QFontMetrics(l->font()).boundingRect(QRect(0, 0, l->width(), INT_MAX),
                                                              Qt::TextWordWrap, l->text());
            EXPECT_TRUE(l->rect().contains(need)) << c->Name() << ": " << c->Caption();
        }

    // The bar's buttons, left to right, with room between them.
    std::vector<QRect> bar;
    for (const Control* c : edit.Controls())
        if (c->kind() == Kind::CommandButton && c->Top() == edit.btnGlobal.Top()) bar.push_back(W<QWidget>(*c)->geometry());
    std::sort(bar.begin(), bar.end(), [](const QRect& a, const QRect& b) { return a.left() < b.left(); });
    ASSERT_EQ(13u, bar.size());
    for (std::size_t i = 1; i < bar.size(); ++i) EXPECT_GE(bar[i].left() - bar[i - 1].right(), 4) << i;
}

TEST(ResourceFolder, FoundBesideTheProgramOrInItsInstalledDataFolder) {
    struct Case {
        const char* made;   // the folder with pictures/ in it, under the prefix
        const char* found;
    } cases[] = {{"bin/resources", "bin/resources"}, {"share/vestrel", "share/vestrel"}, {"elsewhere", ""}};
    for (const Case& c : cases) {
        QTemporaryDir prefix;
        QDir(prefix.path()).mkpath(QString(c.made) + "/pictures");
        QDir(prefix.path()).mkpath("bin");
        QString want = *c.found ? QFileInfo(prefix.filePath(c.found)).canonicalFilePath() : QString();
        EXPECT_EQ(want, FindResourceFolder(prefix.filePath("bin"))) << c.made;
    }
}
