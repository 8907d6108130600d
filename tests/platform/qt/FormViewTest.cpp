#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFileDialog>
#include <QFocusEvent>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include "QtTestApp.h"
#include "WhenModal.h"
#include "platform/forms/Form.h"
#include "platform/qt/FormView.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtPrintSurface.h"
#include "platform/vb/Error.h"

using namespace forms;

namespace {

// A modal form that answers, fails or ends the program.
struct Ask : Form {
    explicit Ask(host::Host& h) : Form(h, "Ask") {
        Move(0, 0, 4000, 1500);
        btnOK.Move(120, 120, 1000, 375);
        btnFail.Move(1200, 120, 1000, 375);
        btnQuit.Move(2400, 120, 1000, 375);
        btnOK.Click = [this] {
            answer = "yes";
            Unload();
        };
        btnFail.Click = [] { throw vb::RuntimeError(53, "File not found"); };
        btnQuit.Click = [] { throw host::EndProgram{}; };
    }
    CommandButton btnOK{*this, "btnOK", "OK"};
    CommandButton btnFail{*this, "btnFail", "Fail"};
    CommandButton btnQuit{*this, "btnQuit", "Quit"};
    std::string answer;
};

// One control of every kind, and a menu.
struct Card : Form {
    explicit Card(host::Host& h) : Form(h, "Card") {
        SetCaption("Card");
        Move(0, 0, 9000, 6600);
        lblName.Move(120, 120, 1000, 255);
        Name.Move(1200, 120, 2400, 285);
        Notes.MultiLine = true;
        Notes.Move(1200, 480, 2400, 600);
        btnGo.Move(3900, 120, 1200, 375);
        chkMail.Move(3900, 600, 1200, 255);
        fraKind.Move(120, 1200, 2400, 1000);
        optHome.SetContainer(&fraKind);
        optHome.Move(120, 240, 1000, 255);
        optPhone.SetContainer(&fraKind);
        optPhone.Move(120, 540, 1000, 255);
        cboReligion.Move(2700, 1200, 1800, 315);
        lstNames.Move(2700, 1600, 1800, 900);
        hsbSpeed.Move(120, 2400, 2400, 255);
        vsbPage.Move(4700, 1200, 255, 1300);
        tabs.Move(120, 2800, 4500, 1200);
        tabs.SetTabs({"One", "Two"});
        picLogo.Move(5400, 120, 900, 900);
        lblInPic.SetContainer(&picLogo);
        lblInPic.Move(60, 60, 600, 255);
        Dec[0].Move(5400, 1200, 900, 255);

        for (Control* c : std::initializer_list<Control*>{&Name, &Notes}) {
            c->GotFocus = [this, n = c->Name()] { log.push_back("Got " + n); };
            c->LostFocus = [this, n = c->Name()] { log.push_back("Lost " + n); };
        }
        for (Control* c : std::initializer_list<Control*>{&chkMail, &lblName, &lstNames, &tabs, &mnuOpen})
            c->Click = [this, n = c->Name()] { log.push_back("Click " + n); };
        Name.Change = [this] { ++changes; };
        Name.KeyDown = [this](int& k, int shift) {
            keys.push_back("Down " + std::to_string(k) + " " + std::to_string(shift));
            if (k == 'X') k = 0;
            if (k == vbKeyF5) Host().MsgBox("Over the box");
        };
        Name.KeyPress = [this](int& a) {
            keys.push_back("Press " + std::to_string(a));
            if (upperCase && a >= 'a' && a <= 'z') a -= 32;
        };
        Name.KeyUp = [this](int& k, int) { keys.push_back("Up " + std::to_string(k)); };
        btnGo.Click = [this] {
            if (!ask) {
                log.push_back("Click btnGo");
                return;
            }
            ask->Show(true);
            log.push_back("after modal " + ask->answer);
        };
        btnGo.MouseDown = [this](int b, int, float, float) { log.push_back("MouseDown btnGo " + std::to_string(b)); };
    }
    void Form_Activate() override { log.push_back("Activate Card"); }

    Label lblName{*this, "lblName", "&Name"};
    TextBox Name{*this, "Name"};
    TextBox Notes{*this, "Notes"};
    CommandButton btnGo{*this, "btnGo", "&Go"};
    CheckBox chkMail{*this, "chkMail", "Mail list"};
    Frame fraKind{*this, "fraKind", "Visit"};
    OptionButton optHome{*this, "optHome", "Home"};
    OptionButton optPhone{*this, "optPhone", "Phone"};
    ComboBox cboReligion{*this, "cboReligion"};
    ListBox lstNames{*this, "lstNames"};
    ScrollBar hsbSpeed{*this, "hsbSpeed", false};
    ScrollBar vsbPage{*this, "vsbPage", true};
    TabStrip tabs{*this, "tabs"};
    PictureBox picLogo{*this, "picLogo"};
    Label lblInPic{*this, "lblInPic", "In"};
    ControlArray<CheckBox> Dec{*this, "Dec", 1, std::string("D")};
    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuOpen{*this, "mnuOpen", "&Open", &mnuFile};
    Menu mnuLine{*this, "mnuLine", "-", &mnuFile};
    Menu mnuExit{*this, "mnuExit", "E&xit", &mnuFile};

    std::vector<std::string> log, keys;
    int changes = 0;
    bool upperCase = false;
    Ask* ask = nullptr;
};

// Answers the next message box with OK, keeping its text where asked.
void OkNextBox(QString* text = nullptr) {
    WhenModal<QMessageBox>([text](QMessageBox* box) {
        if (text) *text = box->text();
        box->button(QMessageBox::Ok)->click();
    });
}

class FormViewTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureQtApplication(); }

    void SetUp() override { host = std::make_unique<QtHost>(Settings(), dir.path().toStdString()); }

    void TearDown() override {
        card.reset();
        ask.reset();
        host.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::string Settings() const { return dir.filePath("settings.ini").toStdString(); }

    Card& ShowCard() {
        card = std::make_unique<Card>(*host);
        card->Show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(View()));
        card->log.clear();
        return *card;
    }

    FormView* View() const { return host->View(*card); }

    template <class T>
    T* W(const Control& c) const {
        return qobject_cast<T*>(host->View(c.Parent())->WidgetOf(c));
    }

    QTemporaryDir dir;
    std::unique_ptr<QtHost> host;
    std::unique_ptr<Card> card;
    std::unique_ptr<Ask> ask;
};

}  // namespace

TEST_F(FormViewTest, EveryKindOfControlBecomesItsWidgetWhereItsTwipsPutItAndFollowsTheModel) {
    Card& f = ShowCard();
    // A label has no buddy: its access key is not shown as "&".
    EXPECT_EQ((QStringList{"Card", "Name", "&Go", "Mail list", "Visit"}),
              (QStringList{View()->windowTitle(), W<QLabel>(f.lblName)->text(), W<QPushButton>(f.btnGo)->text(),
                           W<QCheckBox>(f.chkMail)->text(), W<QGroupBox>(f.fraKind)->title()}));
    // Controls in a frame or picture box are children of its widget, placed inside it.
    EXPECT_EQ((std::vector<QRect>{{80, 8, 160, 19}, {8, 16, 67, 17}}),
              (std::vector<QRect>{W<QLineEdit>(f.Name)->geometry(), W<QRadioButton>(f.optHome)->geometry()}));
    EXPECT_EQ(W<QGroupBox>(f.fraKind), W<QRadioButton>(f.optHome)->parentWidget());
    EXPECT_EQ(W<QLabel>(f.picLogo), W<QLabel>(f.lblInPic)->parentWidget());
    EXPECT_EQ(std::make_tuple(true, Qt::Horizontal, Qt::Vertical),
              std::make_tuple(W<QComboBox>(f.cboReligion)->isEditable(), W<QScrollBar>(f.hsbSpeed)->orientation(),
                              W<QScrollBar>(f.vsbPage)->orientation()));

    QList<QAction*> titles = View()->menuBar()->actions();
    ASSERT_EQ(1, titles.size());
    QStringList items;
    for (QAction* a : titles[0]->menu()->actions()) items << (a->isSeparator() ? "-" : a->text());
    EXPECT_EQ((QStringList{"&Open", "-", "E&xit"}), items);

    // Changes in the model reach the widgets.
    f.btnGo.SetCaption("Go &on");
    f.SetCaption("Card 2");
    f.chkMail.SetVisible(false);
    f.btnGo.SetEnabled(false);
    EXPECT_EQ(std::make_tuple(QString("Go &on"), QString("Card 2"), false, false),
              std::make_tuple(W<QPushButton>(f.btnGo)->text(), View()->windowTitle(),
                              W<QCheckBox>(f.chkMail)->isVisible(), W<QPushButton>(f.btnGo)->isEnabled()));

    // BGR longs: &H80C0FF is a light orange.
    f.Name.SetBackColor(HighlightColor);
    f.Name.SetForeColor(vbRed);
    EXPECT_EQ(QColor(0xFF, 0xC0, 0x80), W<QLineEdit>(f.Name)->palette().color(QPalette::Base));
    EXPECT_EQ(QColor(0xFF, 0, 0), W<QLineEdit>(f.Name)->palette().color(QPalette::Active, QPalette::Text));
    f.Name.SetBackColor(vbWindowBackground);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), W<QLineEdit>(f.Name)->palette().color(QPalette::Base));

    f.Name.SetText("Ren\xE9");   // Windows-1252
    f.Notes.SetText("one\r\ntwo");
    EXPECT_EQ((QStringList{QString::fromUtf8("René"), "one\ntwo"}),
              (QStringList{W<QLineEdit>(f.Name)->text(), W<QPlainTextEdit>(f.Notes)->toPlainText()}));

    for (const char* item : {"Baptist", "Catholic"}) {
        f.cboReligion.AddItem(item);
        f.lstNames.AddItem(item);
    }
    EXPECT_EQ("", W<QComboBox>(f.cboReligion)->currentText());   // adding items picks none
    f.cboReligion.SetListIndex(1);
    f.lstNames.SetListIndex(1);
    EXPECT_EQ(std::make_tuple(QString("Catholic"), 1),
              std::make_tuple(W<QComboBox>(f.cboReligion)->currentText(), W<QListWidget>(f.lstNames)->currentRow()));

    f.mnuOpen.SetEnabled(false);
    f.mnuOpen.SetChecked(true);
    f.mnuLine.SetCaption("Recent");   // a separator turns into an entry
    EXPECT_EQ(std::make_tuple(false, true, false),
              std::make_tuple(View()->ActionOf(f.mnuOpen)->isEnabled(), View()->ActionOf(f.mnuOpen)->isChecked(),
                              View()->ActionOf(f.mnuLine)->isSeparator()));

    // A control array grows and shrinks at run time.
    f.Dec.Load(1);
    QCheckBox* d1 = W<QCheckBox>(f.Dec[1]);
    ASSERT_NE(nullptr, d1);
    EXPECT_FALSE(d1->isVisible());
    EXPECT_EQ(W<QCheckBox>(f.Dec[0])->geometry(), d1->geometry());
    f.Dec[1].Move(5400, 1500);
    f.Dec[1].SetVisible(true);
    EXPECT_TRUE(d1->isVisible());
    EXPECT_EQ(100, d1->y());
    QPointer<QCheckBox> gone(d1);
    f.Dec.Unload(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

TEST_F(FormViewTest, KeysGoThroughTheFormsRoutingIntoTheBox) {
    Card& f = ShowCard();
    QLineEdit* name = W<QLineEdit>(f.Name);
    ASSERT_EQ(name, QApplication::focusWidget());

    QTest::keyClicks(name, "ab");
    QTest::sendKeyEvent(QTest::Click, name, Qt::Key_A, QString("A"), Qt::ShiftModifier);
    EXPECT_EQ(std::make_tuple(3, 3), std::make_tuple(f.changes, f.Name.SelStart()));
    EXPECT_EQ((std::vector<std::string>{"Down 65 0", "Press 97", "Up 65", "Down 66 0", "Press 98", "Up 66",
                                        "Down 16 1", "Down 65 1", "Press 65", "Up 65", "Up 16"}),
              f.keys);

    // A KeyDown that sets the code to 0 swallows the key: no KeyPress, no KeyUp, nothing typed.
    f.keys.clear();
    QTest::keyClick(name, Qt::Key_X);
    EXPECT_EQ(std::vector<std::string>{"Down 88 0"}, f.keys);

    // A KeyPress that changes the character types the new one.
    f.upperCase = true;
    QTest::keyClicks(name, "c");
    EXPECT_EQ(std::make_tuple(QString("abAC"), std::string("abAC")), std::make_tuple(name->text(), f.Name.Text()));

    // Keys without a character: KeyDown only; Enter has both.
    f.keys.clear();
    QTest::keyClick(name, Qt::Key_F2);
    QTest::keyClick(name, Qt::Key_Return);
    QTest::keyClick(name, Qt::Key_Minus);
    EXPECT_EQ((std::vector<std::string>{"Down 113 0", "Up 113", "Down 13 0", "Press 13", "Up 13", "Down 189 0",
                                        "Press 45", "Up 189"}),
              f.keys);

    // A multi-line box holds CR LF for each line end.
    f.Notes.SetFocus();
    QPlainTextEdit* notes = W<QPlainTextEdit>(f.Notes);
    QTest::keyClicks(notes, "hi");
    QTest::keyClick(notes, Qt::Key_Return);
    QTest::keyClicks(notes, "yo");
    EXPECT_EQ(std::make_tuple(std::string("hi\r\nyo"), 6), std::make_tuple(f.Notes.Text(), f.Notes.SelStart()));
}

TEST_F(FormViewTest, FocusFollowsModelAndOperatorAndNeverFiresTwiceOrForABox) {
    Card& f = ShowCard();
    QLineEdit* name = W<QLineEdit>(f.Name);
    QPlainTextEdit* notes = W<QPlainTextEdit>(f.Notes);
    EXPECT_EQ(&f.Name, f.ActiveControl());   // the first in tab order, given at Show

    f.Notes.SetFocus();
    QApplication::processEvents();
    // The operator clicks into a box.
    QTest::mouseClick(name, Qt::LeftButton);
    // Tab walks the model's tab order and types nothing.
    QTest::keyClick(name, Qt::Key_Tab);
    EXPECT_EQ(notes, QApplication::focusWidget());
    EXPECT_EQ("", f.Notes.Text());
    QTest::keyClick(notes, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ((std::vector<std::string>{"Lost Name", "Got Notes", "Lost Notes", "Got Name", "Lost Name", "Got Notes",
                                        "Lost Notes", "Got Name"}),
              f.log);

    // A box over the box: the focus comes back, and no focus event fires.
    f.log.clear();
    QString shown;
    OkNextBox(&shown);
    QTest::keyClick(name, Qt::Key_F5);
    QApplication::processEvents();
    EXPECT_EQ("Over the box", shown);
    EXPECT_EQ(std::make_tuple(&f.Name, static_cast<QWidget*>(name)),
              std::make_tuple(f.ActiveControl(), QApplication::focusWidget()));
    EXPECT_TRUE(f.log.empty()) << f.log.front();

    // A LostFocus rule that refuses the move with a box: it runs once, and the
    // box coming and going over the clicked box moves nothing.
    f.Notes.SetFocus();
    f.log.clear();
    f.Notes.LostFocus = [&f] {
        f.log.push_back("Lost Notes");
        f.Host().MsgBox("Check the notes");
        f.Notes.SetFocus();
    };
    OkNextBox();
    QTest::mouseClick(name, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ((std::vector<std::string>{"Lost Notes", "Got Notes"}), f.log);
    EXPECT_EQ(&f.Notes, f.ActiveControl());
    EXPECT_EQ(notes, QApplication::focusWidget());
    // However late the window manager gives the focus back, and wherever: not a move.
    f.log.clear();
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(name, &back);
    EXPECT_TRUE(f.log.empty());
    EXPECT_EQ(&f.Notes, f.ActiveControl());
}

TEST_F(FormViewTest, OperatorClicksReachTheModelOnceAndModelChangesDoNotEcho) {
    Card& f = ShowCard();
    // The button takes the focus from the box, as a click does.
    QTest::mouseClick(W<QPushButton>(f.btnGo), Qt::LeftButton);
    QTest::mouseClick(W<QPushButton>(f.btnGo), Qt::RightButton);

    f.chkMail.SetValue(vbChecked);
    EXPECT_TRUE(W<QCheckBox>(f.chkMail)->isChecked());

    // Options of one frame: the model turns the other off; a click on the one that is on keeps it on.
    QTest::mouseClick(W<QRadioButton>(f.optPhone), Qt::LeftButton);
    QTest::mouseClick(W<QRadioButton>(f.optHome), Qt::LeftButton);
    QTest::mouseClick(W<QRadioButton>(f.optHome), Qt::LeftButton);
    EXPECT_EQ(std::make_tuple(-1, 0, true, false),
              std::make_tuple(f.optHome.Value(), f.optPhone.Value(), W<QRadioButton>(f.optHome)->isChecked(),
                              W<QRadioButton>(f.optPhone)->isChecked()));

    QTest::mouseClick(W<QLabel>(f.lblName), Qt::LeftButton);

    f.lstNames.AddItem("Adams");
    f.lstNames.AddItem("Baker");
    QListWidget* list = W<QListWidget>(f.lstNames);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(1, f.lstNames.ListIndex());

    f.cboReligion.AddItem("Baptist");
    f.cboReligion.AddItem("Catholic");
    QComboBox* combo = W<QComboBox>(f.cboReligion);
    f.cboReligion.SetFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(0, f.cboReligion.ListIndex());
    QTest::keyClicks(combo, "s");
    EXPECT_EQ("Baptists", f.cboReligion.Text());

    QTabBar* bar = View()->WidgetOf(f.tabs)->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    EXPECT_EQ(2, f.tabs.SelectedTab());
    f.tabs.SetSelectedTab(1);
    EXPECT_EQ(0, bar->currentIndex());

    View()->ActionOf(f.mnuOpen)->trigger();
    EXPECT_EQ((std::vector<std::string>{"MouseDown btnGo 1", "Lost Name", "Click btnGo", "MouseDown btnGo 2",
                                        "Click chkMail", "Click lblName", "Click lstNames",
                                        "Click tabs", "Click tabs", "Click mnuOpen"}),
              f.log);
}

TEST_F(FormViewTest, PressAndReleaseReachTheModelInTheRuntimesOrder) {
    Card& f = ShowCard();
    // What the handlers could read at each event: the value, and who is being pressed.
    auto pressed = [&f] { return f.PressedControl() ? " " + f.PressedControl()->Name() : std::string(); };
    f.Name.LostFocus = [&f, pressed] { f.log.push_back("Lost Name" + pressed()); };
    for (Control* c : std::initializer_list<Control*>{&f.btnGo, &f.chkMail, &f.optPhone}) {
        const std::string n = c->Name();
        auto value = [c] { return " " + std::to_string(c->Value()); };
        c->MouseDown = [&f, n, value](int, int, float, float) { f.log.push_back("Down " + n + value()); };
        c->MouseUp = [&f, n, value](int, int, float, float) { f.log.push_back("Up " + n + value()); };
        c->Click = [&f, n, value] { f.log.push_back("Click " + n + value()); };
        c->GotFocus = [&f, n] { f.log.push_back("Got " + n); };
    }
    using Log = std::vector<std::string>;
    struct Case { Control* target; Log press, release; };
    const Case cases[] = {
        {&f.btnGo, {"Down btnGo 0", "Lost Name btnGo", "Got btnGo"}, {"Up btnGo 0", "Click btnGo 0"}},
        {&f.chkMail, {"Down chkMail 0", "Lost Name chkMail", "Got chkMail"}, {"Up chkMail 1", "Click chkMail 1"}},
        {&f.chkMail, {"Down chkMail 1", "Lost Name chkMail", "Got chkMail"}, {"Up chkMail 0", "Click chkMail 0"}},
        {&f.optPhone, {"Down optPhone 0", "Lost Name optPhone", "Got optPhone"}, {"Up optPhone -1", "Click optPhone -1"}},
    };
    for (const Case& k : cases) {
        f.Name.SetFocus();
        QApplication::processEvents();
        f.log.clear();
        QWidget* w = View()->WidgetOf(*k.target);
        QTest::mousePress(w, Qt::LeftButton);
        EXPECT_EQ(k.press, f.log) << k.target->Name();
        f.log.clear();
        QTest::mouseRelease(w, Qt::LeftButton);
        EXPECT_EQ(k.release, f.log) << k.target->Name();
        EXPECT_EQ(nullptr, f.PressedControl());
        EXPECT_EQ(w, QApplication::focusWidget());
    }
    EXPECT_EQ(std::make_tuple(vbUnchecked, false), std::make_tuple(f.chkMail.Value(), W<QCheckBox>(f.chkMail)->isChecked()));

    // The keyboard clicks with no mouse events.
    f.chkMail.SetFocus();
    f.log.clear();
    QTest::keyClick(W<QCheckBox>(f.chkMail), Qt::Key_Space);
    EXPECT_EQ((Log{"Click chkMail 1"}), f.log);
}

TEST_F(FormViewTest, AModalFormHoldsItsCallerAndAnErrorInItIsShown) {
    Card& f = ShowCard();
    ask = std::make_unique<Ask>(*host);
    f.ask = ask.get();

    // The routine that showed it goes on once the form is gone, reading what it left;
    // an error in a handler shows its number and the program goes on.
    QString error;
    WhenModal<FormView>([&](FormView*) {
        OkNextBox(&error);
        W<QPushButton>(ask->btnFail)->click();
        QTest::mouseClick(W<QPushButton>(ask->btnOK), Qt::LeftButton);
    });
    QTest::mouseClick(W<QPushButton>(f.btnGo), Qt::LeftButton);
    EXPECT_TRUE(error.contains("53") && error.contains("File not found")) << error.toStdString();
    EXPECT_FALSE(ask->Loaded());
    // The form beneath is active again.
    EXPECT_EQ((std::vector<std::string>{"MouseDown btnGo 1", "Lost Name", "Activate Card", "after modal yes"}), f.log);
    EXPECT_EQ(&f, host->ActiveForm());
}

TEST_F(FormViewTest, RunLastsWhileAFormIsUpAndEndLeavesEveryLoop) {
    QTimer guard;   // a Run that never ends fails instead of hanging
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    guard.start(5000);

    // The operator closes the last form: the program is over.
    card = std::make_unique<Card>(*host);
    QTimer::singleShot(20, [this] { View()->close(); });
    EXPECT_EQ(0, host->Run([this] { card->Show(); }));
    EXPECT_FALSE(card->Loaded());

    // End in a modal form shown from the main loop leaves both loops.
    ask = std::make_unique<Ask>(*host);
    card->ask = ask.get();
    card->log.clear();
    WhenModal<FormView>([this](FormView*) { W<QPushButton>(ask->btnQuit)->click(); });
    QTimer::singleShot(20, [this] { W<QPushButton>(card->btnGo)->click(); });
    EXPECT_EQ(0, host->Run([this] { card->Show(); }));
    EXPECT_TRUE(host->Ending());
    // Shown anew after its unload: activated, the first box has the focus, and nothing after the Show ran,
    // nor does anything more of the program.
    EXPECT_FALSE(host->Call([this] { card->log.push_back("ran"); }));
    EXPECT_EQ((std::vector<std::string>{"Activate Card", "Got Name"}), card->log);
}

TEST_F(FormViewTest, BoxesAndDialogsAnswerWithTheClassicValues) {
    WhenModal<QMessageBox>([](QMessageBox* box) {
        EXPECT_EQ(std::make_tuple(QString("Line one\nLine two"), QString("Delete"), QMessageBox::Question, 3, true),
                  std::make_tuple(box->text(), box->windowTitle(), box->icon(), static_cast<int>(box->buttons().size()),
                                  box->button(QMessageBox::No) == box->defaultButton()));
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(host::vbYes, host->MsgBox("Line one\r\nLine two",
                                        host::vbYesNoCancel + host::vbQuestion + host::vbDefaultButton2, "Delete"));
    // Escape is No when there is no Cancel.
    WhenModal<QMessageBox>([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); });
    EXPECT_EQ(host::vbNo, host->MsgBox("Sure?", host::vbYesNo));

    WhenModal<QInputDialog>([](QInputDialog* d) {
        EXPECT_EQ("3", d->textValue());
        d->setTextValue("7");
        d->accept();
    });
    EXPECT_EQ("7", host->InputBox("How many?", "Add Names", "3"));
    WhenModal<QInputDialog>([](QInputDialog* d) { d->reject(); });
    EXPECT_EQ("", host->InputBox("How many?", "Add Names", "3"));

    // The open dialog takes a typed new name unless the file must exist.
    host::FileDialog open;
    open.DialogTitle = "Open a Crusade";
    open.Filter = "Crusade Files (*.dta)|*.dta|Crusade Files";
    open.InitDir = dir.path().toStdString();
    QStringList filters;
    WhenModal<QFileDialog>([&](QFileDialog* d) {
        filters = d->nameFilters();
        auto* edit = d->findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClicks(edit, "Spring.dta");
        QTest::keyClick(edit, Qt::Key_Return);
    });
    ASSERT_TRUE(host->ShowOpen(open));
    EXPECT_EQ(dir.filePath("Spring.dta").toStdString(), open.FileName);
    EXPECT_EQ(QStringList{"Crusade Files (*.dta)"}, filters);

    open.MustExist = true;
    bool stayed = false;
    WhenModal<QFileDialog>([&](QFileDialog* d) {
        WhenModal<QMessageBox>([](QMessageBox* warning) { warning->close(); });
        auto* edit = d->findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClicks(edit, "Autumn.dta");
        QTest::keyClick(edit, Qt::Key_Return);
        stayed = d->isVisible();
        d->reject();
    });
    EXPECT_FALSE(host->ShowOpen(open));
    EXPECT_TRUE(stayed);
}

TEST_F(FormViewTest, SettingsAndHelpGoThroughTheDesktop) {
    host->SaveSetting("MDINote", "Recent Files", "File1", "/data/Spring.dta");
    host->SaveSetting("MDINote", "Recent Files", "File2", "/data/Caf\xE9.dta");
    {
        QtHost again(Settings(), dir.path().toStdString());   // it is on disk
        EXPECT_EQ((std::vector<std::pair<std::string, std::string>>{{"File1", "/data/Spring.dta"},
                                                                     {"File2", "/data/Caf\xE9.dta"}}),
                  again.GetAllSettings("MDINote", "Recent Files"));
    }
    host->DeleteSetting("MDINote", "Recent Files", "File1");
    EXPECT_EQ("none", host->GetSetting("MDINote", "Recent Files", "File1", "none"));
    host->DeleteSetting("MDINote", "Recent Files", "");
    EXPECT_TRUE(host->GetAllSettings("MDINote", "Recent Files").empty());

    EXPECT_EQ(2, host->OpenDocument(dir.filePath("missing.doc").toStdString()));
    host->PlayWave(dir.filePath("missing.wav").toStdString());   // silent
}

TEST_F(FormViewTest, AKeyHeldFromElsewhereNeverPressesAButtonAndBoxesTypeOnlyWhereTheModelLetsThem) {
    Card& f = ShowCard();
    QPushButton* go = W<QPushButton>(f.btnGo);
    f.btnGo.SetFocus();
    ASSERT_EQ(go, QApplication::focusWidget());
    f.log.clear();
    // Enter went down over a box that has closed since, and repeats here.
    auto repeat = [go](QEvent::Type t) {
        QKeyEvent e(t, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(go, &e);
    };
    for (int i = 0; i < 3; ++i) {
        repeat(QEvent::KeyRelease);
        repeat(QEvent::KeyPress);
    }
    EXPECT_TRUE(f.log.empty());
    // Nor does the form or a box hear of such a key.
    f.Name.SetFocus();
    f.keys.clear();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(W<QLineEdit>(f.Name), &held);
    EXPECT_TRUE(f.keys.empty());
    f.btnGo.SetFocus();
    f.log.clear();
    // A click is one step, whatever came before; Enter pressed here is one more, held or not.
    QTest::mouseClick(go, Qt::LeftButton);
    QTest::sendKeyEvent(QTest::Press, go, Qt::Key_Return, QString("\r"), Qt::NoModifier);
    repeat(QEvent::KeyPress);
    QTest::sendKeyEvent(QTest::Release, go, Qt::Key_Return, QString("\r"), Qt::NoModifier);
    EXPECT_EQ((std::vector<std::string>{"MouseDown btnGo 1", "Click btnGo", "Click btnGo"}), f.log);

    // Settings changed while the form is on screen reach its boxes.
    QLineEdit* name = W<QLineEdit>(f.Name);
    f.Name.SetFocus();
    struct Case { bool locked; int maxLength; const char *typed, *shown; } cases[] = {
        {true, 0, "ab", ""}, {false, 0, "ab", "ab"}, {false, 3, "ab", "aba"}, {true, 3, "c", "aba"}};
    for (const Case& c : cases) {
        f.Name.Locked = c.locked;
        f.Name.MaxLength = c.maxLength;
        QTest::keyClicks(name, c.typed);
        EXPECT_EQ(c.shown, f.Name.Text()) << c.typed;
        EXPECT_EQ(QString(c.shown), name->text()) << c.typed;
    }
    f.Name.Alignment = 1;
    f.cboReligion.Locked = true;
    f.hsbSpeed.Max = 10;
    EXPECT_EQ(std::make_tuple(true, true, 10),
              std::make_tuple(bool(name->alignment() & Qt::AlignRight),
                              W<QComboBox>(f.cboReligion)->lineEdit()->isReadOnly(),
                              W<QScrollBar>(f.hsbSpeed)->maximum()));
}

TEST_F(FormViewTest, AReportThatCannotBeWrittenSaysWhereItWasGoing) {
    auto& surface = dynamic_cast<QtPrintSurface&>(host->Printer());
    const std::string lost = dir.filePath("no such folder/report.pdf").toStdString();
    surface.SetOutputPdf(lost);
    surface.Print("Lost");
    QString shown;
    OkNextBox(&shown);
    surface.EndDoc();
    EXPECT_TRUE(shown.contains(QString::fromStdString(lost))) << shown.toStdString();
    EXPECT_FALSE(surface.DocumentOpen());

    // The next document starts afresh and goes out without a word.
    const std::string kept = dir.filePath("report.pdf").toStdString();
    surface.SetOutputPdf(kept);
    surface.Print("Kept");
    surface.EndDoc();
    EXPECT_TRUE(QFileInfo::exists(QString::fromStdString(kept)));
    EXPECT_TRUE(surface.LastError().empty()) << surface.LastError();
}

TEST_F(FormViewTest, TheHelpWindowOpensCentredAtItsTopicAndClosesFromTheKeyboard) {
    QFile help(dir.filePath("help.html"));
    ASSERT_TRUE(help.open(QIODevice::WriteOnly));
    help.write("<html><body><p>Contents</p><a name=\"c340\"></a><p>Shortcuts</p></body></html>");
    help.close();
    for (QKeySequence close : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        host->ShowHelp(dir.filePath("help.html").toStdString(), 1, 340);
        QTextBrowser* browser = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* b = qobject_cast<QTextBrowser*>(w); b && b->isVisible()) browser = b;
        ASSERT_NE(nullptr, browser);
        ASSERT_TRUE(QTest::qWaitForWindowActive(browser));
        EXPECT_EQ("c340", browser->source().fragment());
        QPoint off = browser->frameGeometry().center() - browser->screen()->availableGeometry().center();
        EXPECT_LE(off.manhattanLength(), 10) << off.x() << "," << off.y();   // a frame's width
        QTest::keySequence(browser, close);
        EXPECT_FALSE(browser->isVisible()) << close.toString().toStdString();
    }
}
