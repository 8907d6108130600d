#include "platform/forms/Form.h"

#include <algorithm>

#include "platform/host/Host.h"
#include "platform/vb/Strings.h"

namespace forms {

Form::Form(host::Host& host, std::string name) : host_(host), name_(std::move(name)) {}

Form::~Form() {
    // Controls are members of the derived form and are gone by now.
    host_.ForgetForm(this);
}

void Form::SetCaption(const std::string& c) {
    if (caption_ == c) return;
    caption_ = c;
    if (observer_) observer_->FormChanged(Prop::Caption);
}

void Form::Move(int left, int top, int width, int height) {
    left_ = left;
    top_ = top;
    if (width >= 0) width_ = width;
    if (height >= 0) height_ = height;
    if (observer_) observer_->FormChanged(Prop::Geometry);
}

void Form::SetBackColor(Color c) {
    backColor_ = c;
    if (observer_) observer_->FormChanged(Prop::Colors);
}

void Form::Load() {
    if (loaded_) return;
    loaded_ = true;
    Form_Load();
}

void Form::Show(bool modal) {
    Load();
    if (!loaded_) return;   // Form_Load unloaded it again
    visible_ = true;
    host_.ShowForm(*this, modal);
}

void Form::Hide() {
    if (!visible_) return;
    visible_ = false;
    host_.HideForm(*this);
}

bool Form::Unload() {
    if (!loaded_) return true;
    int cancel = 0;
    Form_Unload(cancel);
    if (cancel) return false;
    loaded_ = false;
    visible_ = false;
    active_ = nullptr;
    pressed_ = nullptr;
    host_.UnloadForm(*this);
    host_.ForgetForm(this);
    return true;
}

void Form::Refresh() { host_.Refresh(*this); }

void Form::Register(Control* c) {
    c->SetTabIndex(nextTabIndex_++);
    controls_.push_back(c);
    if (observer_) observer_->ControlAdded(*c);
}

void Form::Deregister(Control* c) {
    if (active_ == c) active_ = nullptr;
    if (pressed_ == c) pressed_ = nullptr;
    if (observer_) observer_->ControlRemoved(*c);
    controls_.erase(std::remove(controls_.begin(), controls_.end(), c), controls_.end());
}

void Form::Notify(Control& c, Prop p) {
    if (observer_) observer_->ControlChanged(c, p);
}

Control* Form::FindControl(const std::string& name, int index) const {
    for (Control* c : controls_)
        if (c->Name() == name && c->Index() == index) return c;
    return nullptr;
}

void Form::SetFocusTo(Control* c) {
    if (c == active_) return;
    Control* old = active_;
    active_ = nullptr;
    if (old) old->Fire(old->LostFocus);
    if (active_) return;   // the LostFocus handler moved the focus itself
    active_ = c;
    if (observer_) observer_->FocusChanged(c);
    if (c) c->Fire(c->GotFocus);
}

Control* Form::NextInTabOrder(Control* from, bool backwards) const {
    std::vector<Control*> order;
    for (Control* c : controls_)
        if (c->TabStop() && c->CanFocus()) order.push_back(c);
    if (order.empty()) return nullptr;
    std::stable_sort(order.begin(), order.end(),
                     [](Control* a, Control* b) { return a->TabIndex() < b->TabIndex(); });
    auto it = std::find(order.begin(), order.end(), from);
    if (it == order.end()) return backwards ? order.back() : order.front();
    long i = it - order.begin();
    long n = static_cast<long>(order.size());
    i = backwards ? (i + n - 1) % n : (i + 1) % n;
    return order[i];
}

bool Form::RouteKeyDown(Control* target, int& keyCode, int shift) {
    if (KeyPreview) {
        Form_KeyDown(keyCode, shift);
        if (keyCode == 0) return false;
    }
    if (target && target->KeyDown && target->Enabled()) {
        target->KeyDown(keyCode, shift);
        if (keyCode == 0) return false;
    }
    return true;
}

bool Form::RouteKeyPress(Control* target, int& keyAscii) {
    if (KeyPreview) {
        Form_KeyPress(keyAscii);
        if (keyAscii == 0) return false;
    }
    if (target && target->KeyPress && target->Enabled()) {
        target->KeyPress(keyAscii);
        if (keyAscii == 0) return false;
    }
    return true;
}

void Form::RouteKeyUp(Control* target, int& keyCode, int shift) {
    if (KeyPreview) {
        Form_KeyUp(keyCode, shift);
        if (keyCode == 0) return;
    }
    if (target && target->KeyUp && target->Enabled()) target->KeyUp(keyCode, shift);
}

void Form::PressKey(int keyCode, int shift, int keyAscii) {
    Control* target = active_;
    int code = keyCode;
    if (code == vbKeyTab) {
        // Tab belongs to the form: it never reaches the control's key events.
        SetFocusTo(NextInTabOrder(target, shift & vbShiftMask));
        return;
    }
    if (!RouteKeyDown(target, code, shift)) return;
    if (keyAscii) {
        int ascii = keyAscii;
        if (RouteKeyPress(target, ascii) && target && !target->Locked &&
            (target->kind() == Kind::TextBox || target->kind() == Kind::ComboBox)) {
            std::string t = target->Text();
            int s = target->SelStart(), n = target->SelLength();
            if (ascii == vbKeyBack) {
                if (n > 0) t.erase(s, n);
                else if (s > 0) t.erase(--s, 1);
                target->UserTyped(t, s);
            } else if (ascii >= 32 || ascii < 0) {
                t.replace(s, n, 1, static_cast<char>(ascii));
                if (target->MaxLength == 0 || static_cast<int>(t.size()) <= target->MaxLength)
                    target->UserTyped(t, s + 1);
            }
        }
    } else if (code == vbKeyDelete && target && target->kind() == Kind::TextBox && !target->Locked) {
        std::string t = target->Text();
        int s = target->SelStart(), n = target->SelLength();
        if (n > 0) t.erase(s, n);
        else if (s < static_cast<int>(t.size())) t.erase(s, 1);
        target->UserTyped(t, s);
    }
    code = keyCode;
    RouteKeyUp(target, code, shift);
}

void Form::TypeText(const std::string& text) {
    for (char ch : text) {
        int code = static_cast<unsigned char>(vb::UCaseChar(ch));
        PressKey(code, 0, static_cast<unsigned char>(ch));
    }
}

void ActivateForm(host::Host& host, Form* f) {
    Form* old = host.ActiveForm();
    if (f == old) return;
    host.SetActiveForm(f);
    if (old && old->Loaded()) old->Form_Deactivate();
    if (f && f->Loaded()) f->Form_Activate();
}

}  // namespace forms
