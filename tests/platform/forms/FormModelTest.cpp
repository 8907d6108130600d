#include <gtest/gtest.h>

#include "platform/forms/Form.h"
#include "support/ScriptedHost.h"

using namespace forms;

namespace {
struct TestForm : Form {
    explicit TestForm(host::Host& h) : Form(h, "TestForm") {}
    TextBox A{*this, "A"}, B{*this, "B"};
    CommandButton Go{*this, "Go", "&Go"};
    Label Caption{*this, "Caption", "text"};
    Frame Box{*this, "Box", "Options"};
    OptionButton One{*this, "One", "One"}, Two{*this, "Two", "Two"};
    ControlArray<CheckBox> Dec{*this, "Dec", 2, std::string()};
    std::vector<std::string> log;
    bool previewSwallowsF2 = false;
    void Form_KeyDown(int& code, int) override {
        log.push_back("Form_KeyDown " + std::to_string(code));
        if (previewSwallowsF2 && code == vbKeyF2) code = 0;
    }
    void Form_Activate() override { log.push_back("Activate"); }
    void Form_Deactivate() override { log.push_back("Deactivate"); }
};

class FormModel : public ::testing::Test {
protected:
    ScriptedHost host;
    TestForm f{host};
};
}  // namespace


TEST_F(FormModel, KeysReachPreviewThenControlAndAZeroSwallowsThem) {
    f.KeyPreview = true;
    int changes = 0;
    f.A.Change = [&] { ++changes; };
    f.A.KeyPress = [&](int& k) {
        if (k == 'x') k = 0;                 // swallowed
        if (k >= 'a' && k <= 'z') k -= 32;   // upper-cased on the way in
    };
    f.A.SetFocus();
    f.TypeText("abx");
    EXPECT_EQ("AB", f.A.Text());
    EXPECT_EQ(2, changes);

    f.previewSwallowsF2 = true;
    bool controlSaw = false;
    f.A.KeyDown = [&](int&, int) { controlSaw = true; };
    f.PressKey(vbKeyF2);
    EXPECT_FALSE(controlSaw);
    f.PressKey(vbKeyBack, 0, vbKeyBack);
    EXPECT_EQ("A", f.A.Text());
    EXPECT_TRUE(controlSaw);
}

TEST_F(FormModel, TypingKeepsToTheBoxsSettingsAndTabWalksBothWays) {
    struct Case { int maxLength; bool locked; const char* typed; const char* kept; };
    const Case cases[] = {{4, false, "abcdef", "abcd"}, {0, false, "abcdef", "abcdef"}, {0, true, "abc", ""}};
    for (const Case& c : cases) {
        f.A.Locked = false;
        f.A.SetText("");
        f.A.MaxLength = c.maxLength;
        f.A.Locked = c.locked;
        f.A.SetFocus();
        f.TypeText(c.typed);
        EXPECT_EQ(c.kept, f.A.Text()) << c.typed << " into MaxLength " << c.maxLength;
    }

    // Shift+Tab walks the tab order backwards, round past the first control.
    f.Go.SetFocus();
    std::vector<std::string> walked;
    for (int i = 0; i < 4; ++i) {
        f.PressKey(vbKeyTab, vbShiftMask);
        walked.push_back(f.ActiveControl()->Name());
    }
    EXPECT_EQ((std::vector<std::string>{"B", "A", "Dec", "Two"}), walked);
    // Hidden controls and labels take no focus, and Tab skips them.
    f.A.SetFocus();
    f.B.SetVisible(false);
    f.B.SetFocus();
    f.Caption.SetFocus();
    EXPECT_EQ(&f.A, f.ActiveControl());
    f.PressKey(vbKeyTab);
    EXPECT_EQ(&f.Go, f.ActiveControl());
}

TEST_F(FormModel, PropertiesFireTheirEventsAsTheRuntimeDoes) {
    int changes = 0, clicks = 0, twoClicks = 0;
    f.A.Change = [&] { ++changes; };
    for (int i = 0; i < 2; ++i) f.A.SetText("same");
    EXPECT_EQ(1, changes);   // no Change when nothing changed
    EXPECT_EQ(0, f.A.SelStart());

    f.One.SetContainer(&f.Box);
    f.Two.SetContainer(&f.Box);
    f.One.Click = [&] { ++clicks; };
    f.Two.Click = [&] { ++twoClicks; };
    f.One.UserClick();
    f.Two.UserClick();
    // Values, then the Click count of each.
    EXPECT_EQ((std::vector<int>{0, -1, 1, 1}), (std::vector<int>{f.One.Value(), f.Two.Value(), clicks, twoClicks}));

    // Control arrays grow at run time, hidden, in the place of element 0, and pass their Index.
    std::vector<int> clicked;
    f.Dec.Click = [&](int i) { clicked.push_back(i); };
    f.Dec[0].Move(100, 200, 300, 400);
    CheckBox& third = f.Dec.Load(2);
    EXPECT_EQ(std::make_tuple(false, 200), std::make_tuple(third.Visible(), third.Top()));
    third.SetValue(vbChecked);   // a value set from code fires Click
    f.Dec[0].UserClick();
    EXPECT_EQ((std::vector<int>{2, 0}), clicked);
    EXPECT_EQ(2, f.Dec.UBound());
    EXPECT_THROW(f.Dec[5], std::out_of_range);
}

TEST_F(FormModel, ActivateFiresOnceForTheFormThatComesForward) {
    TestForm other(host);
    f.Show();
    other.Show();
    f.log.clear();
    for (int i = 0; i < 2; ++i) forms::ActivateForm(host, &f);
    EXPECT_EQ((std::vector<std::string>{"Activate"}), f.log);
    EXPECT_EQ((std::vector<std::string>{"Activate", "Deactivate"}), other.log);
}

TEST_F(FormModel, AClickComesInTheOrderTheRulesReadIt) {
    // Every event says what the rules could read then: the value, and who is being pressed.
    auto pressed = [this] { return f.PressedControl() ? f.PressedControl()->Name() : std::string("-"); };
    for (Control* c : std::initializer_list<Control*>{&f.A, &f.Go, &f.Caption, &f.One}) {
        std::string n = c->Name();
        c->GotFocus = [this, n] { f.log.push_back("Got " + n); };
        c->LostFocus = [this, n, pressed] { f.log.push_back("Lost " + n + " " + pressed()); };
        auto note = [this, n, c](const std::string& what, const std::string& more = "") {
            f.log.push_back(what + n + more + " " + std::to_string(c->Value()));
        };
        c->MouseDown = [note](int b, int, float, float) { note("Down ", " " + std::to_string(b)); };
        c->MouseUp = [note](int, int, float, float) { note("Up "); };
        c->Click = [note] { note("Click "); };
    }
    struct Case { Control* target; bool enabled; std::vector<std::string> log; };
    const Case cases[] = {
        {&f.One, true, {"Down One 1 0", "Lost A One", "Got One", "Up One -1", "Click One -1"}},
        {&f.One, true, {"Down One 1 -1", "Lost A One", "Got One", "Up One -1", "Click One -1"}},
        // A label takes no focus; a disabled control hears nothing.
        {&f.Caption, true, {"Down Caption 1 0", "Up Caption 0", "Click Caption 0"}},
        {&f.Go, false, {}},
    };
    for (const Case& k : cases) {
        f.A.SetFocus();
        k.target->SetEnabled(k.enabled);
        f.log.clear();
        k.target->UserClick();
        EXPECT_EQ(k.log, f.log) << k.target->Name();
        EXPECT_EQ(nullptr, f.PressedControl()) << k.target->Name();
        k.target->SetEnabled(true);
    }
}
