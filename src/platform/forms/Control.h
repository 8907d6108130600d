#pragma once
// The form model: controls with the properties and events of the classic
// desktop runtime, in plain C++. A view (the Qt layer, or nothing in tests)
// observes the model; the model is the truth.
#include <functional>
#include <string>
#include <vector>

namespace forms {

class Form;

// Colours are the runtime's BGR longs; values with the top bit set name system colours.
using Color = long;
inline constexpr Color vbBlack = 0x000000;
inline constexpr Color vbWhite = 0xFFFFFF;      // 16777215
inline constexpr Color vbRed = 0x0000FF;        // 255
inline constexpr Color vbDarkBlue = 0xC00000;   // 12582912
inline constexpr Color HighlightColor = 0x80C0FF;  // &H80C0FF: add-mode focus and filter highlight
inline constexpr Color vbButtonFace = static_cast<Color>(0x8000000F);
inline constexpr Color vbWindowBackground = static_cast<Color>(0x80000005);
inline constexpr Color vbWindowText = static_cast<Color>(0x80000008);
inline constexpr Color vbButtonText = static_cast<Color>(0x80000012);
// The RGB value a colour stands for (system colours resolved to the usual desktop values).
long ResolveColor(Color c);

enum KeyCode : int {
    vbKeyBack = 8, vbKeyTab = 9, vbKeyReturn = 13, vbKeyShift = 16, vbKeyControl = 17, vbKeyMenu = 18,
    vbKeyEscape = 27, vbKeySpace = 32, vbKeyPageUp = 33, vbKeyPageDown = 34, vbKeyEnd = 35, vbKeyHome = 36,
    vbKeyLeft = 37, vbKeyUp = 38, vbKeyRight = 39, vbKeyDown = 40, vbKeyInsert = 45, vbKeyDelete = 46,
    vbKey0 = 48, vbKeyA = 65, vbKeyNumpad0 = 96, vbKeyMultiply = 106, vbKeyAdd = 107, vbKeySubtract = 109,
    vbKeyDecimal = 110, vbKeyDivide = 111,
    vbKeyF1 = 112, vbKeyF2, vbKeyF3, vbKeyF4, vbKeyF5, vbKeyF6, vbKeyF7, vbKeyF8, vbKeyF9, vbKeyF10,
    vbKeyF11, vbKeyF12,
};
enum ShiftMask : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };
enum MouseButton : int { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };
enum CheckValue : int { vbUnchecked = 0, vbChecked = 1, vbGrayed = 2 };

enum class Kind {
    TextBox, Label, CommandButton, CheckBox, OptionButton, ComboBox, ListBox, Frame,
    HScrollBar, VScrollBar, TabStrip, PictureBox, Menu,
};

// What changed, for the view. Fields: one of the plain settings (Locked,
// MaxLength, Alignment, Min, Max).
enum class Prop {
    Text, Caption, Value, Visible, Enabled, Colors, Font, Geometry, List, ListIndex, Checked,
    Selection, ToolTip, Picture, Tabs, Fields,
};

// Twips to the pixel on the usual 96 dpi desktop.
inline constexpr int TwipsPerPixel = 15;

class Control;

// Moves c to a place given in pixels, into the container `in` when one is given:
// the forms lay themselves out in pixels.
void Place(Control& c, int x, int y, int w, int h, Control* in = nullptr);

// Where a view draws the text of a box, in twips: the width of a character of a
// fixed-pitch face, the height of a line, and the text's origin in the box. All
// zero until a view has measured them.
struct TextMetrics {
    float CharWidth = 0, LineHeight = 0, Left = 0, Top = 0;
};

// A setting read and assigned like a plain member, which tells the view when
// it changes, so that it may change while the form is on screen.
template <class T>
class Setting {
public:
    Setting(Control* owner, T v) : owner_(owner), v_(v) {}
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting& o) { return *this = o.v_; }
    Setting& operator=(T v);
    operator T() const { return v_; }

private:
    Control* owner_;
    T v_;
};

class Control {
public:
    Control(Form& owner, Kind kind, std::string name, int index = -1);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& Parent() const { return owner_; }
    Kind kind() const { return kind_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }   // -1 outside a control array
    // The frame, picture box or menu this one stands in; null for the form itself.
    Control* Container() const { return container_; }
    void SetContainer(Control* c);

    // Geometry in twips, relative to the container.
    int Left() const { return left_; }
    int Top() const { return top_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    void Move(int left, int top, int width = -1, int height = -1);

    bool Visible() const { return visible_; }
    void SetVisible(bool v);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool e);
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color c);
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color c);
    bool FontBold() const { return fontBold_; }
    void SetFontBold(bool b);
    const std::string& FontName() const { return fontName_; }
    float FontSize() const { return fontSize_; }
    void SetFont(const std::string& name, float size);
    const std::string& ToolTipText() const { return toolTip_; }
    void SetToolTipText(const std::string& t);
    int TabIndex() const { return tabIndex_; }
    void SetTabIndex(int i) { tabIndex_ = i; }
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool t) { tabStop_ = t; }
    std::string Tag;

    // Caption of labels, buttons, check boxes, option buttons, frames, menus.
    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& c);

    // Text of text boxes and combo boxes. Setting it from code fires Change, as typing does,
    // but only when the text differs. The caret goes to the start, as the runtime does.
    const std::string& Text() const { return text_; }
    void SetText(const std::string& t);
    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    void SetSelStart(int s);
    void SetSelLength(int n);
    std::string SelText() const;
    // A locked box shows its text and takes no typing.
    Setting<bool> Locked{this, false};
    Setting<int> MaxLength{this, 0};      // 0: no limit
    Setting<int> Alignment{this, 0};      // 0 left, 1 right, 2 centre
    // Set before the form is first shown: a box does not change kind on screen.
    bool MultiLine = false;
    bool FixedPitch = false;   // shown in a fixed-pitch face
    TextMetrics Metrics;       // set by the view of a fixed-pitch box

    // Value of check boxes (0/1/2), option buttons (0 / -1 when on) and scroll bars.
    // Setting a different value fires Click; an option button turns its siblings off.
    int Value() const { return value_; }
    void SetValue(int v);
    Setting<int> Min{this, 0}, Max{this, 32767};
    int SmallChange = 1, LargeChange = 1;   // set before showing

    // Combo and list boxes. Setting ListIndex fires Click; for a combo it also sets Text.
    const std::vector<std::string>& List() const { return list_; }
    int ListCount() const { return static_cast<int>(list_.size()); }
    int ListIndex() const { return listIndex_; }
    void SetListIndex(int i);
    void AddItem(const std::string& item);
    void RemoveItem(int i);
    void Clear();

    // Tab strip: captions of the tabs and the selected one (1-based, fires Click).
    const std::vector<std::string>& Tabs() const { return tabs_; }
    void SetTabs(std::vector<std::string> tabs);
    int SelectedTab() const { return selectedTab_; }
    void SetSelectedTab(int i);

    // Menus.
    bool Checked() const { return checked_; }
    void SetChecked(bool c);
    bool IsSeparator() const { return kind_ == Kind::Menu && caption_ == "-"; }

    // A picture by the name of the program's own image resource.
    const std::string& Picture() const { return picture_; }
    void SetPicture(const std::string& p);

    // Focus: fires LostFocus of the control that had it, then GotFocus of this one.
    // Only visible, enabled controls that can hold the focus take it.
    void SetFocus();
    bool CanFocus() const;
    bool HasFocus() const;

    // Events. Handlers are wired by the form; a control array passes its Index.
    std::function<void()> Click, DblClick, Change, GotFocus, LostFocus;
    std::function<void(int& KeyCode, int Shift)> KeyDown, KeyUp;
    std::function<void(int& KeyAscii)> KeyPress;
    std::function<void(int Button, int Shift, float X, float Y)> MouseDown, MouseUp;

    // Entry points for a view and for tests: the operator did something.
    // A click with the left button, in the old runtime's order, which the rules
    // rely on: MouseDown; the focus comes here when the control takes it
    // (LostFocus of the box left, then GotFocus); a check box toggles, an option
    // turns on; MouseUp; Click. A menu entry only clicks.
    void UserClick();
    // The two halves of a click, for a view that sees them apart. The press moves
    // the focus when takeFocus; the release changes the value and clicks when
    // clicked (let go over the control).
    void UserPress(int button, int shift, float x, float y, bool takeFocus = true);
    void UserRelease(int button, int shift, float x, float y, bool clicked);
    // Space or Enter on the control with the focus: the value changes and Click
    // fires, with no mouse events.
    void UserKeyClick();
    // Between the press on this control and the end of its release.
    bool Pressed() const;
    void UserDblClick();
    void UserTyped(const std::string& text, int selStart);   // the box's text after an edit
    void UserSelect(int selStart, int selLength);
    // A lone MouseDown or MouseUp, with nothing else of a click.
    void UserMouseDown(int button, int shift, float x, float y);
    void UserMouseUp(int button, int shift, float x, float y);
    void UserListIndex(int i);

    void Fire(const std::function<void()>& f) { if (f) f(); }

    // The view is told that one of the settings changed.
    void SettingChanged() { Changed(Prop::Fields); }

private:
    void Changed(Prop p);
    // Stores a value and tells the view; true when it changed. No event.
    bool StoreValue(int v);
    // The value a click gives: a check box toggles, an option turns on.
    void ClickValue();

    Form& owner_;
    Kind kind_;
    std::string name_;
    int index_;
    Control* container_ = nullptr;
    int left_ = 0, top_ = 0, width_ = 1215, height_ = 285;
    bool visible_ = true, enabled_ = true;
    Color backColor_, foreColor_;
    bool fontBold_ = false;
    std::string fontName_ = "MS Sans Serif";
    float fontSize_ = 8.25f;
    std::string toolTip_;
    int tabIndex_ = 0;
    bool tabStop_ = true;
    std::string caption_, text_;
    int selStart_ = 0, selLength_ = 0;
    int value_ = 0;
    std::vector<std::string> list_;
    int listIndex_ = -1;
    std::vector<std::string> tabs_;
    int selectedTab_ = 1;
    bool checked_ = false;
    std::string picture_;
};

template <class T>
Setting<T>& Setting<T>::operator=(T v) {
    if (v_ == v) return *this;
    v_ = v;
    owner_->SettingChanged();
    return *this;
}

struct TextBox : Control {
    TextBox(Form& f, const std::string& name, int index = -1) : Control(f, Kind::TextBox, name, index) {}
};
struct Label : Control {
    Label(Form& f, const std::string& name, const std::string& caption = "", int index = -1);
};
struct CommandButton : Control {
    CommandButton(Form& f, const std::string& name, const std::string& caption = "", int index = -1);
};
struct CheckBox : Control {
    CheckBox(Form& f, const std::string& name, const std::string& caption = "", int index = -1);
};
struct OptionButton : Control {
    OptionButton(Form& f, const std::string& name, const std::string& caption = "", int index = -1);
};
struct ComboBox : Control {
    ComboBox(Form& f, const std::string& name, int index = -1) : Control(f, Kind::ComboBox, name, index) {}
};
struct ListBox : Control {
    ListBox(Form& f, const std::string& name, int index = -1) : Control(f, Kind::ListBox, name, index) {}
};
struct Frame : Control {
    Frame(Form& f, const std::string& name, const std::string& caption = "", int index = -1);
};
struct ScrollBar : Control {
    ScrollBar(Form& f, const std::string& name, bool vertical, int index = -1)
        : Control(f, vertical ? Kind::VScrollBar : Kind::HScrollBar, name, index) {}
};
struct TabStrip : Control {
    TabStrip(Form& f, const std::string& name, int index = -1) : Control(f, Kind::TabStrip, name, index) {}
};
struct PictureBox : Control {
    PictureBox(Form& f, const std::string& name, int index = -1) : Control(f, Kind::PictureBox, name, index) {}
};
// A menu entry; its container is the menu it drops from (none for the bar's titles).
struct Menu : Control {
    Menu(Form& f, const std::string& name, const std::string& caption, Menu* parent = nullptr, int index = -1);
};

}  // namespace forms
