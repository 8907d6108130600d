#pragma once
// A form owns its controls, the focus and the keyboard routing; the host shows it.
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/forms/Control.h"

namespace host { class Host; }

namespace forms {

// A view of a form (the Qt window) follows the model through these calls.
class FormObserver {
public:
    virtual ~FormObserver() = default;
    virtual void ControlChanged(Control& c, Prop p) = 0;
    virtual void ControlAdded(Control& c) = 0;
    virtual void ControlRemoved(Control& c) = 0;
    virtual void FocusChanged(Control* c) = 0;
    virtual void FormChanged(Prop p) = 0;
};

class Form {
public:
    Form(host::Host& host, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    host::Host& Host() const { return host_; }
    const std::string& Name() const { return name_; }

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& c);
    int Left() const { return left_; }
    int Top() const { return top_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    void Move(int left, int top, int width = -1, int height = -1);
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color c);
    bool KeyPreview = false;

    bool Loaded() const { return loaded_; }
    bool Visible() const { return visible_; }

    // Loads the form when needed (Form_Load), then shows it. A modal show
    // returns once the form is hidden or unloaded.
    void Show(bool modal = false);
    void Hide();
    // Form_Unload may cancel; then the form stays. Returns true when unloaded.
    bool Unload();
    void Load();
    void Refresh();

    const std::vector<Control*>& Controls() const { return controls_; }
    Control* FindControl(const std::string& name, int index = -1) const;
    Control* ActiveControl() const { return active_; }
    // Moves the focus: LostFocus of the old control, then GotFocus of the new.
    // A LostFocus handler that moves the focus itself wins.
    void SetFocusTo(Control* c);
    Control* NextInTabOrder(Control* from, bool backwards = false) const;
    // The control a mouse button went down on, until its release is handled.
    Control* PressedControl() const { return pressed_; }
    void SetPressed(Control* c) { pressed_ = c; }

    // Keyboard routing. KeyPreview sends keys to the form first. A handler that
    // sets the code to 0 swallows the key: the return is then false.
    bool RouteKeyDown(Control* target, int& keyCode, int shift);
    bool RouteKeyPress(Control* target, int& keyAscii);
    void RouteKeyUp(Control* target, int& keyCode, int shift);
    // A whole key stroke on the control with the focus, with the default action a
    // box takes for a key nobody swallowed (typing, backspace, Tab). For tests.
    void PressKey(int keyCode, int shift = 0, int keyAscii = 0);
    void TypeText(const std::string& text);

    void SetObserver(FormObserver* o) { observer_ = o; }
    FormObserver* Observer() const { return observer_; }

    // Form events.
    virtual void Form_Load() {}
    virtual void Form_Unload(int& /*Cancel*/) {}
    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_GotFocus() {}
    virtual void Form_LostFocus() {}
    virtual void Form_KeyDown(int& /*KeyCode*/, int /*Shift*/) {}
    virtual void Form_KeyPress(int& /*KeyAscii*/) {}
    virtual void Form_KeyUp(int& /*KeyCode*/, int /*Shift*/) {}
    virtual void Form_Click() {}
    virtual void Form_MouseUp(int /*Button*/, int /*Shift*/, float /*X*/, float /*Y*/) {}

    // Used by Control.
    void Register(Control* c);
    void Deregister(Control* c);
    void Notify(Control& c, Prop p);
    // Used by the host when it shows or hides the window.
    void SetVisibleFlag(bool v) { visible_ = v; }

private:
    host::Host& host_;
    std::string name_;
    std::string caption_;
    int left_ = 0, top_ = 0, width_ = 6000, height_ = 4500;
    Color backColor_ = vbButtonFace;
    bool loaded_ = false, visible_ = false;
    std::vector<Control*> controls_;
    Control* active_ = nullptr;
    Control* pressed_ = nullptr;
    FormObserver* observer_ = nullptr;
    int nextTabIndex_ = 0;
};

// A control array: elements by Index, grown at run time with Load. Its handlers
// receive the Index of the element.
template <class T>
class ControlArray {
public:
    // Its handlers hold its address.
    ControlArray(const ControlArray&) = delete;
    ControlArray& operator=(const ControlArray&) = delete;

    template <class... Args>
    ControlArray(Form& f, std::string name, int count, Args... args)
        : form_(f), name_(std::move(name)) {
        maker_ = [this, args...](int i) { return std::make_unique<T>(form_, name_, args..., i); };
        for (int i = 0; i < count; ++i) Load(i);
    }
    T& operator[](int i) {
        auto it = items_.find(i);
        if (it == items_.end()) throw std::out_of_range(name_ + "(" + std::to_string(i) + ") is not loaded");
        return *it->second;
    }
    const T& operator[](int i) const { return const_cast<ControlArray*>(this)->operator[](i); }
    bool Exists(int i) const { return items_.count(i) != 0; }
    int LBound() const { return items_.empty() ? 0 : items_.begin()->first; }
    int UBound() const { return items_.empty() ? -1 : items_.rbegin()->first; }
    int Count() const { return static_cast<int>(items_.size()); }
    // Load(i) makes a new element; from the second on it takes element 0's place,
    // size and container, and starts hidden, as the runtime does.
    T& Load(int i) {
        if (items_.count(i)) return *items_[i];
        auto el = maker_(i);
        T& ref = *el;
        if (!items_.empty()) {
            T& first = *items_.begin()->second;
            ref.SetContainer(first.Container());
            ref.Move(first.Left(), first.Top(), first.Width(), first.Height());
            ref.SetVisible(false);
        }
        Wire(ref, i);
        items_[i] = std::move(el);
        return ref;
    }
    void Unload(int i) { items_.erase(i); }
    template <class F>
    void ForEach(F f) { for (auto& [i, el] : items_) f(i, *el); }

    std::function<void(int)> Click, DblClick, Change, GotFocus, LostFocus;
    std::function<void(int, int& KeyCode, int Shift)> KeyDown, KeyUp;
    std::function<void(int, int& KeyAscii)> KeyPress;
    std::function<void(int, int Button, int Shift, float X, float Y)> MouseDown, MouseUp;

private:
    void Wire(T& el, int i) {
        el.Click = [this, i] { if (Click) Click(i); };
        el.DblClick = [this, i] { if (DblClick) DblClick(i); };
        el.Change = [this, i] { if (Change) Change(i); };
        el.GotFocus = [this, i] { if (GotFocus) GotFocus(i); };
        el.LostFocus = [this, i] { if (LostFocus) LostFocus(i); };
        el.KeyDown = [this, i](int& k, int s) { if (KeyDown) KeyDown(i, k, s); };
        el.KeyUp = [this, i](int& k, int s) { if (KeyUp) KeyUp(i, k, s); };
        el.KeyPress = [this, i](int& k) { if (KeyPress) KeyPress(i, k); };
        el.MouseDown = [this, i](int b, int s, float x, float y) { if (MouseDown) MouseDown(i, b, s, x, y); };
        el.MouseUp = [this, i](int b, int s, float x, float y) { if (MouseUp) MouseUp(i, b, s, x, y); };
    }
    Form& form_;
    std::string name_;
    std::function<std::unique_ptr<T>(int)> maker_;
    std::map<int, std::unique_ptr<T>> items_;
};

// Brings f forward as the host's active form. Activate and Deactivate fire only on a
// change between the program's own forms, never for a message box or dialog.
void ActivateForm(host::Host& host, Form* f);

}  // namespace forms
