// What the model selects in a box is what the operator types over, however
// the focus arrived: real keys on real line edits.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include "QtTestApp.h"
#include "edit/EditForm.h"
#include "platform/qt/FormView.h"
#include "platform/qt/QtHost.h"
#include "program/Program.h"

using namespace forms;

namespace {

class FieldSelection : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureQtApplication(); }
    void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QLineEdit* Box(const Control& c) const { return qobject_cast<QLineEdit*>(host.View(c.Parent())->WidgetOf(c)); }

    QTemporaryDir dir;
    QtHost host{dir.filePath("settings.ini").toStdString(), dir.path().toStdString()};
};

// Leaving the first box fills the second; every box selects all and is painted on arrival.
struct Entry : Form {
    explicit Entry(host::Host& h) : Form(h, "Entry") {
        Move(0, 0, 6000, 2000);
        First.Move(120, 120, 1800, 285);
        Second.Move(120, 600, 1800, 285);
        for (Control* c : std::initializer_list<Control*>{&First, &Second})
            c->GotFocus = [c] {
                c->SetSelStart(0);
                c->SetSelLength(static_cast<int>(c->Text().size()));
                c->SetBackColor(0x80FFFF);   // the box being typed in is painted after it is selected
            };
        First.LostFocus = [this] {
            if (Second.Text().empty()) Second.SetText("IL");
        };
    }
    TextBox First{*this, "First"};
    TextBox Second{*this, "Second"};
};

}  // namespace

TEST_F(FieldSelection, AZipFilledStateIsWhollySelectedWhenEnterBringsTheFocus) {
    Program p{host, dir.path().toStdString()};
    EditForm edit{p};
    p.DataFile = dir.filePath("Card.dat").toStdString();   // whatever the card writes stays in the folder
    p.AddMode = true;
    p.ZipCount = 1;
    p.ZipList[1] = "62701     IL07Springfield       4";
    edit.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(host.View(edit)));
    edit.Zip.SetFocus();
    QTest::keyClicks(Box(edit.Zip), "49503");   // not in the table: the state is its first entry's
    QTest::keyClick(Box(edit.Zip), Qt::Key_Return);
    ASSERT_EQ(&edit.State, edit.ActiveControl());
    QLineEdit* state = Box(edit.State);
    ASSERT_EQ(state, QApplication::focusWidget());
    EXPECT_EQ("IL", state->selectedText());
    QTest::keyClicks(state, "MI");
    EXPECT_EQ("MI", state->text());
    EXPECT_EQ("MI", edit.State.Text());
    host.View(edit)->hide();
    host.View(edit)->Detach();
}

// Enter, moving the focus from the model, is the edit screen's case above.
TEST_F(FieldSelection, TypingReplacesWhatTheModelSelectedOnArrival) {
    for (const char* how : {"Tab", "code"}) {
        Entry f(host);
        f.Show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(host.View(f)));
        QTest::keyClicks(Box(f.First), "49503");
        if (*how == 'T')
            QTest::keyClick(Box(f.First), Qt::Key_Tab);
        else
            f.Second.SetFocus();
        QApplication::processEvents();
        ASSERT_EQ(&f.Second, f.ActiveControl()) << how;
        EXPECT_EQ("IL", Box(f.Second)->selectedText()) << how;
        QTest::keyClicks(Box(f.Second), "MI");
        EXPECT_EQ("MI", f.Second.Text()) << how;
        f.Unload();
    }
}
