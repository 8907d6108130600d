#include "platform/forms/Control.h"

#include <algorithm>

#include "platform/forms/Form.h"

namespace forms {

long ResolveColor(Color c) {
    switch (static_cast<unsigned long>(c)) {
    case 0x80000005UL: return 0xFFFFFF;   // window
    case 0x80000008UL: return 0x000000;   // window text
    case 0x8000000FUL: return 0xC0C0C0;   // button face
    case 0x80000012UL: return 0x000000;   // button text
    default: return c & 0xFFFFFF;
    }
}

Control::Control(Form& owner, Kind kind, std::string name, int index)
    : owner_(owner), kind_(kind), name_(std::move(name)), index_(index) {
    bool boxLike = kind == Kind::TextBox || kind == Kind::ComboBox || kind == Kind::ListBox;
    backColor_ = boxLike ? vbWindowBackground : vbButtonFace;
    foreColor_ = boxLike ? vbWindowText : vbButtonText;
    tabStop_ = !(kind == Kind::Label || kind == Kind::Frame || kind == Kind::Menu);
    owner_.Register(this);
}

Control::~Control() { owner_.Deregister(this); }

void Control::Changed(Prop p) { owner_.Notify(*this, p); }

void Control::SetContainer(Control* c) {
    container_ = c;
    Changed(Prop::Geometry);
}

void Control::Move(int left, int top, int width, int height) {
    left_ = left;
    top_ = top;
    if (width >= 0) width_ = width;
    if (height >= 0) height_ = height;
    Changed(Prop::Geometry);
}

void Control::SetVisible(bool v) {
    if (visible_ == v) return;
    visible_ = v;
    Changed(Prop::Visible);
}

void Control::SetEnabled(bool e) {
    if (enabled_ == e) return;
    enabled_ = e;
    Changed(Prop::Enabled);
}

void Control::SetBackColor(Color c) {
    if (backColor_ == c) return;
    backColor_ = c;
    Changed(Prop::Colors);
}

void Control::SetForeColor(Color c) {
    if (foreColor_ == c) return;
    foreColor_ = c;
    Changed(Prop::Colors);
}

void Control::SetFontBold(bool b) {
    if (fontBold_ == b) return;
    fontBold_ = b;
    Changed(Prop::Font);
}

void Control::SetFont(const std::string& name, float size) {
    fontName_ = name;
    fontSize_ = size;
    Changed(Prop::Font);
}

void Control::SetToolTipText(const std::string& t) {
    toolTip_ = t;
    Changed(Prop::ToolTip);
}

void Control::SetCaption(const std::string& c) {
    if (caption_ == c) return;
    caption_ = c;
    Changed(Prop::Caption);
}

void Control::SetText(const std::string& t) {
    std::string v = t;
    if (MaxLength > 0 && static_cast<int>(v.size()) > MaxLength) v.resize(MaxLength);
    if (kind_ == Kind::ListBox) return;
    if (v == text_) return;
    text_ = v;
    selStart_ = 0;
    selLength_ = 0;
    Changed(Prop::Text);
    Fire(Change);
}

void Control::SetSelStart(int s) {
    selStart_ = std::clamp(s, 0, static_cast<int>(text_.size()));
    selLength_ = 0;
    Changed(Prop::Selection);
}

void Control::SetSelLength(int n) {
    selLength_ = std::clamp(n, 0, static_cast<int>(text_.size()) - selStart_);
    Changed(Prop::Selection);
}

std::string Control::SelText() const { return text_.substr(selStart_, selLength_); }

bool Control::StoreValue(int v) {
    if (kind_ == Kind::OptionButton) v = v ? -1 : 0;
    if (value_ == v) return false;
    value_ = v;
    if (kind_ == Kind::OptionButton && v) {
        // One option of a container is on at a time.
        for (Control* c : owner_.Controls())
            if (c != this && c->kind_ == Kind::OptionButton && c->container_ == container_ && c->value_) {
                c->value_ = 0;
                c->Changed(Prop::Value);
            }
    }
    Changed(Prop::Value);
    return true;
}

void Control::SetValue(int v) {
    if (!StoreValue(v)) return;
    if (kind_ == Kind::HScrollBar || kind_ == Kind::VScrollBar) {
        Fire(Change);
        return;
    }
    if (kind_ != Kind::OptionButton || value_) Fire(Click);
}

void Control::SetListIndex(int i) {
    if (i < -1 || i >= ListCount()) i = -1;
    if (listIndex_ == i) return;
    listIndex_ = i;
    Changed(Prop::ListIndex);
    if (kind_ == Kind::ComboBox && i >= 0 && text_ != list_[i]) {
        text_ = list_[i];
        Changed(Prop::Text);
    }
    Fire(Click);
}

void Control::AddItem(const std::string& item) {
    list_.push_back(item);
    Changed(Prop::List);
}

void Control::RemoveItem(int i) {
    if (i < 0 || i >= ListCount()) return;
    list_.erase(list_.begin() + i);
    if (listIndex_ >= ListCount()) listIndex_ = -1;
    Changed(Prop::List);
}

void Control::Clear() {
    list_.clear();
    listIndex_ = -1;
    Changed(Prop::List);
}

void Control::SetTabs(std::vector<std::string> tabs) {
    tabs_ = std::move(tabs);
    Changed(Prop::Tabs);
}

void Control::SetSelectedTab(int i) {
    if (selectedTab_ == i) return;
    selectedTab_ = i;
    Changed(Prop::Tabs);
    Fire(Click);
}

void Control::SetChecked(bool c) {
    if (checked_ == c) return;
    checked_ = c;
    Changed(Prop::Checked);
}

void Control::SetPicture(const std::string& p) {
    picture_ = p;
    Changed(Prop::Picture);
}

bool Control::CanFocus() const {
    switch (kind_) {
    case Kind::Label: case Kind::Frame: case Kind::Menu: case Kind::TabStrip: return false;
    default: break;
    }
    for (const Control* c = this; c; c = c->container_)
        if (!c->visible_ || !c->enabled_) return false;
    return true;
}

void Control::SetFocus() {
    if (!CanFocus()) return;
    owner_.SetFocusTo(this);
}

bool Control::HasFocus() const { return owner_.ActiveControl() == this; }

void Control::ClickValue() {
    if (kind_ == Kind::CheckBox) StoreValue(value_ == vbChecked ? vbUnchecked : vbChecked);
    else if (kind_ == Kind::OptionButton) StoreValue(-1);
}

void Control::UserClick() {
    if (kind_ == Kind::Menu) {
        if (enabled_) Fire(Click);
        return;
    }
    UserPress(vbLeftButton, 0, 0, 0, CanFocus());
    UserRelease(vbLeftButton, 0, 0, 0, true);
}

void Control::UserPress(int button, int shift, float x, float y, bool takeFocus) {
    if (!enabled_) return;
    owner_.SetPressed(this);
    if (MouseDown) MouseDown(button, shift, x, y);
    // A word the MouseDown leaves reaches the LostFocus of the box being left.
    if (takeFocus && enabled_) SetFocus();
}

void Control::UserRelease(int button, int shift, float x, float y, bool clicked) {
    struct Done {
        Form& f;
        ~Done() { f.SetPressed(nullptr); }
    } done{owner_};
    if (!enabled_) return;
    // MouseUp reads the state after the click.
    if (clicked) ClickValue();
    if (MouseUp) MouseUp(button, shift, x, y);
    if (clicked && enabled_) Fire(Click);
}

void Control::UserKeyClick() {
    if (!enabled_) return;
    ClickValue();
    Fire(Click);
}

bool Control::Pressed() const { return owner_.PressedControl() == this; }

void Control::UserDblClick() { if (enabled_) Fire(DblClick); }

void Control::UserTyped(const std::string& text, int selStart) {
    SetText(text);
    selStart_ = std::clamp(selStart, 0, static_cast<int>(text_.size()));
    selLength_ = 0;
}

void Control::UserSelect(int selStart, int selLength) {
    selStart_ = std::clamp(selStart, 0, static_cast<int>(text_.size()));
    selLength_ = std::clamp(selLength, 0, static_cast<int>(text_.size()) - selStart_);
}

void Control::UserMouseDown(int button, int shift, float x, float y) {
    if (enabled_ && MouseDown) MouseDown(button, shift, x, y);
}

void Control::UserMouseUp(int button, int shift, float x, float y) {
    if (enabled_ && MouseUp) MouseUp(button, shift, x, y);
}

void Control::UserListIndex(int i) { SetListIndex(i); }

Label::Label(Form& f, const std::string& name, const std::string& caption, int index)
    : Control(f, Kind::Label, name, index) { SetCaption(caption); }
CommandButton::CommandButton(Form& f, const std::string& name, const std::string& caption, int index)
    : Control(f, Kind::CommandButton, name, index) { SetCaption(caption); }
CheckBox::CheckBox(Form& f, const std::string& name, const std::string& caption, int index)
    : Control(f, Kind::CheckBox, name, index) { SetCaption(caption); }
OptionButton::OptionButton(Form& f, const std::string& name, const std::string& caption, int index)
    : Control(f, Kind::OptionButton, name, index) { SetCaption(caption); }
Frame::Frame(Form& f, const std::string& name, const std::string& caption, int index)
    : Control(f, Kind::Frame, name, index) { SetCaption(caption); }
Menu::Menu(Form& f, const std::string& name, const std::string& caption, Menu* parent, int index)
    : Control(f, Kind::Menu, name, index) {
    SetCaption(caption);
    if (parent) SetContainer(parent);
}

void Place(Control& c, int x, int y, int w, int h, Control* in) {
    if (in) c.SetContainer(in);
    c.Move(x * TwipsPerPixel, y * TwipsPerPixel, w * TwipsPerPixel, h * TwipsPerPixel);
}

}  // namespace forms
