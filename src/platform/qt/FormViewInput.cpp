// What the operator does to a form's window, handed to the model: keys through
// the form's routing (KeyDown, KeyPress, KeyUp, Tab by the model's own order),
// focus moves between controls, mouse buttons, activation and the close box.
#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>

#include "platform/qt/FormView.h"
#include "platform/qt/QtHost.h"

using forms::Control;
using forms::Kind;

namespace {

// A fixed-pitch box is a table of columns: the model is told where its
// characters and lines stand, in twips of the box, as the box draws them now.
void Measure(Control& c, QPlainTextEdit* e) {
    const QFontMetricsF fm(e->font());
    QTextCursor at(e->document());
    const QRect first = e->cursorRect(at);
    double charWidth = fm.horizontalAdvance(QLatin1Char('0'));
    double lineHeight = fm.lineSpacing();
    const QTextBlock block = e->document()->firstBlock();
    if (block.length() > 10) {
        at.setPosition(block.position() + 10);
        charWidth = (e->cursorRect(at).left() - first.left()) / 10.0;
    }
    if (block.next().isValid()) {
        at.setPosition(block.next().position());
        lineHeight = e->cursorRect(at).top() - first.top();
    }
    const QPoint origin = e->viewport()->mapTo(e, first.topLeft());
    constexpr double t = forms::TwipsPerPixel;
    c.Metrics = {static_cast<float>(charWidth * t), static_cast<float>(lineHeight * t),
                 static_cast<float>(origin.x() * t), static_cast<float>(origin.y() * t)};
}

// The character a key stroke types, as a Windows-1252 code; 0 for none.
int AsciiOf(const QKeyEvent* e) {
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return forms::vbKeyReturn;
    case Qt::Key_Escape: return forms::vbKeyEscape;
    case Qt::Key_Backspace: return forms::vbKeyBack;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Delete: return 0;
    default: break;
    }
    const Qt::KeyboardModifiers mods = e->modifiers();
    if (mods & Qt::AltModifier) return 0;
    if ((mods & Qt::ControlModifier) && e->key() >= Qt::Key_A && e->key() <= Qt::Key_Z) return e->key() - Qt::Key_A + 1;
    QString t = e->text();
    if (t.isEmpty()) return 0;
    char16_t u = t.at(0).unicode();
    if (u == 127) return 0;
    if (u < 32) return u;
    std::string b = FromQString(t.left(1));
    return b.empty() ? 0 : static_cast<unsigned char>(b[0]);
}

// Labels, frames and pictures: Qt gives them no click of their own.
bool Passive(Kind k) { return k == Kind::Label || k == Kind::Frame || k == Kind::PictureBox; }

bool IsWindowChange(Qt::FocusReason r) {
    return r == Qt::ActiveWindowFocusReason || r == Qt::PopupFocusReason || r == Qt::MenuBarFocusReason;
}

}  // namespace

int FormView::ShiftOf(Qt::KeyboardModifiers mods) {
    int s = 0;
    if (mods & Qt::ShiftModifier) s |= forms::vbShiftMask;
    if (mods & Qt::ControlModifier) s |= forms::vbCtrlMask;
    if (mods & Qt::AltModifier) s |= forms::vbAltMask;
    return s;
}

int FormView::KeyCodeOf(int k, Qt::KeyboardModifiers mods) {
    const bool pad = mods & Qt::KeypadModifier;
    if (k >= Qt::Key_A && k <= Qt::Key_Z) return k;
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return pad ? forms::vbKeyNumpad0 + (k - Qt::Key_0) : k;
    if (k >= Qt::Key_F1 && k <= Qt::Key_F12) return forms::vbKeyF1 + (k - Qt::Key_F1);
    switch (k) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return forms::vbKeyReturn;
    case Qt::Key_Escape: return forms::vbKeyEscape;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return forms::vbKeyTab;
    case Qt::Key_Backspace: return forms::vbKeyBack;
    case Qt::Key_Space: return forms::vbKeySpace;
    case Qt::Key_PageUp: return forms::vbKeyPageUp;
    case Qt::Key_PageDown: return forms::vbKeyPageDown;
    case Qt::Key_End: return forms::vbKeyEnd;
    case Qt::Key_Home: return forms::vbKeyHome;
    case Qt::Key_Left: return forms::vbKeyLeft;
    case Qt::Key_Up: return forms::vbKeyUp;
    case Qt::Key_Right: return forms::vbKeyRight;
    case Qt::Key_Down: return forms::vbKeyDown;
    case Qt::Key_Insert: return forms::vbKeyInsert;
    case Qt::Key_Delete: return forms::vbKeyDelete;
    case Qt::Key_Clear: return 12;
    case Qt::Key_Shift: return forms::vbKeyShift;
    case Qt::Key_Control: return forms::vbKeyControl;
    case Qt::Key_Alt: return forms::vbKeyMenu;
    case Qt::Key_Pause: return 19;
    case Qt::Key_CapsLock: return 20;
    case Qt::Key_NumLock: return 144;
    case Qt::Key_ScrollLock: return 145;
    // The keypad's operators have codes of their own; on the main keys the
    // code is the key's, whatever character Shift makes of it.
    case Qt::Key_Asterisk: return pad ? static_cast<int>(forms::vbKeyMultiply) : '8';
    case Qt::Key_Plus: return pad ? forms::vbKeyAdd : 187;
    case Qt::Key_Minus: return pad ? forms::vbKeySubtract : 189;
    case Qt::Key_Period: return pad ? forms::vbKeyDecimal : 190;
    case Qt::Key_Slash: return pad ? forms::vbKeyDivide : 191;
    case Qt::Key_Comma: return pad ? forms::vbKeyDecimal : 188;
    case Qt::Key_Equal: return 187;
    case Qt::Key_Underscore: return 189;
    case Qt::Key_Less: return 188;
    case Qt::Key_Greater: return 190;
    case Qt::Key_Question: return 191;
    case Qt::Key_Semicolon:
    case Qt::Key_Colon: return 186;
    case Qt::Key_QuoteLeft:
    case Qt::Key_AsciiTilde: return 192;
    case Qt::Key_BracketLeft:
    case Qt::Key_BraceLeft: return 219;
    case Qt::Key_Backslash:
    case Qt::Key_Bar: return 220;
    case Qt::Key_BracketRight:
    case Qt::Key_BraceRight: return 221;
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteDbl: return 222;
    case Qt::Key_Exclam: return '1';
    case Qt::Key_At: return '2';
    case Qt::Key_NumberSign: return '3';
    case Qt::Key_Dollar: return '4';
    case Qt::Key_Percent: return '5';
    case Qt::Key_AsciiCircum: return '6';
    case Qt::Key_Ampersand: return '7';
    case Qt::Key_ParenLeft: return '9';
    case Qt::Key_ParenRight: return '0';
    default: return 0;
    }
}

bool FormView::event(QEvent* e) {
    if (form_) {
        switch (e->type()) {
        case QEvent::WindowActivate: host_.WindowActivated(*this); break;
        // What is let go from now on is let go in another window.
        case QEvent::WindowDeactivate: held_.clear(); break;
        // Keys reach the window itself only when no control has the focus.
        case QEvent::KeyPress:
            if (IsKeyTarget(this) && KeyPress(this, nullptr, static_cast<QKeyEvent*>(e))) return true;
            break;
        case QEvent::KeyRelease:
            if (IsKeyTarget(this) && KeyRelease(nullptr, static_cast<QKeyEvent*>(e))) return true;
            break;
        default: break;
        }
    }
    return QMainWindow::event(e);
}

void FormView::closeEvent(QCloseEvent* e) {
    // The window stays unless the form unloads (Form_Unload may cancel);
    // unloading hides it.
    e->ignore();
    if (form_) host_.Call([this] { form_->Unload(); });
}

bool FormView::eventFilter(QObject* watched, QEvent* e) {
    if (!form_) return false;
    switch (e->type()) {
    case QEvent::KeyPress:
        if (reinjecting_ || !IsKeyTarget(watched)) return false;
        if (Control* c = ControlOf(watched)) return KeyPress(watched, c, static_cast<QKeyEvent*>(e));
        return false;
    case QEvent::KeyRelease:
        if (reinjecting_ || !IsKeyTarget(watched)) return false;
        if (Control* c = ControlOf(watched)) return KeyRelease(c, static_cast<QKeyEvent*>(e));
        return false;
    case QEvent::FocusIn: FocusIn(watched, static_cast<QFocusEvent*>(e)); return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: return Mouse(watched, static_cast<QMouseEvent*>(e));
    default: return false;
    }
}

bool FormView::IsKeyTarget(QObject* watched) const {
    // A key a widget left unused travels on to its parents; it counts only
    // where it was first delivered, the widget with the focus.
    QWidget* fw = QApplication::focusWidget();
    if (watched == this) return !fw || fw == this;
    return watched == fw;
}

bool FormView::KeyPress(QObject* watched, Control* target, QKeyEvent* e) {
    const int key = e->key();
    const Qt::KeyboardModifiers mods = e->modifiers();
    const int shift = ShiftOf(mods);
    // A key that was already down when it reached this window (its press went
    // to a box, its release got lost) repeats here without the operator
    // touching anything: none of its repeats count.
    if (e->isAutoRepeat() && !held_.count(key)) return true;
    held_.insert(key);
    swallowed_.erase(key);   // its last release went to another window

    // Tab belongs to the form: its own tab order, never the control's key events.
    if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && !(mods & (Qt::ControlModifier | Qt::AltModifier))) {
        bool back = key == Qt::Key_Backtab || (mods & Qt::ShiftModifier);
        host_.Call([&] {
            Control* from = form_->ActiveControl() ? form_->ActiveControl() : target;
            if (Control* next = form_->NextInTabOrder(from, back)) form_->SetFocusTo(next);
        });
        return true;
    }

    if (const int code = KeyCodeOf(key, mods)) {
        int k = code;
        bool pass = false;
        bool ran = host_.Call([&] { pass = form_->RouteKeyDown(target, k, shift); });
        if (!form_ || !ran || !pass) {
            swallowed_.insert(key);
            return true;
        }
    }
    if (const int ascii = AsciiOf(e)) {
        int a = ascii;
        bool pass = false;
        bool ran = host_.Call([&] { pass = form_->RouteKeyPress(target, a); });
        if (!form_ || !ran || !pass) return true;
        if (a != ascii) {
            // The handler changed the character: the box gets the new one.
            Reinject(watched, a);
            return true;
        }
    }
    // Enter on a command button presses it, once for each time it goes down.
    if (target && target->kind() == Kind::CommandButton && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        if (auto* b = qobject_cast<QPushButton*>(watched); b && !e->isAutoRepeat()) b->click();
        return true;
    }
    return false;
}

void FormView::Reinject(QObject* watched, int keyAscii) {
    QString text = ToQString(std::string(1, static_cast<char>(keyAscii)));
    int key = 0;
    switch (keyAscii) {
    case forms::vbKeyReturn: key = Qt::Key_Return; break;
    case forms::vbKeyBack: key = Qt::Key_Backspace; break;
    case forms::vbKeyEscape: key = Qt::Key_Escape; break;
    default:
        if (keyAscii >= 32 && !text.isEmpty()) key = text.at(0).toUpper().unicode();
        break;
    }
    QKeyEvent changed(QEvent::KeyPress, key, Qt::NoModifier, text);
    reinjecting_ = true;
    QCoreApplication::sendEvent(watched, &changed);
    reinjecting_ = false;
}

bool FormView::KeyRelease(Control* target, QKeyEvent* e) {
    // A held key repeats its KeyDown; KeyUp comes once, when it is let go.
    if (e->isAutoRepeat()) return false;
    const int key = e->key();
    held_.erase(key);
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) return true;
    if (swallowed_.erase(key)) return true;
    const int code = KeyCodeOf(key, e->modifiers());
    if (!code) return false;
    int k = code;
    host_.Call([&] { form_->RouteKeyUp(target, k, ShiftOf(e->modifiers())); });
    return !form_;
}

void FormView::FocusIn(QObject* watched, QFocusEvent* e) {
    // Moves the view makes for the model, and the focus coming back with a
    // window (a box closing over a box), fire nothing.
    if (focusing_ || applying_ || IsWindowChange(e->reason())) return;
    Control* c = ControlOf(watched);
    if (!c || form_->ActiveControl() == c) return;
    if (e->reason() == Qt::MouseFocusReason) {
        // The press that moved it is on its way: the model moves the focus
        // after the control's MouseDown. A press that never reaches a control
        // (a box's own scroll bar) moves it on the next turn of the loop.
        mouseFocus_ = c;
        QMetaObject::invokeMethod(this, [this] {
            Control* pending = std::exchange(mouseFocus_, nullptr);
            if (form_ && pending) host_.Call([&] { form_->SetFocusTo(pending); });
        }, Qt::QueuedConnection);
        return;
    }
    mouseFocus_ = nullptr;
    host_.Call([&] { form_->SetFocusTo(c); });
}

bool FormView::Release(QObject* watched, QMouseEvent* e, Control* c, int button, int shift, float x, float y) {
    const Kind kind = c->kind();
    bool clicked = false;
    if (button == forms::vbLeftButton && (kind == Kind::CommandButton || kind == Kind::CheckBox || kind == Kind::OptionButton)) {
        // Qt toggles and clicks inside the release; the model must see the
        // value change, then MouseUp, then Click. The widget has the release
        // first (it comes back here as one already seen), and only then the model.
        releasing_ = c;
        releaseClicked_ = false;
        QCoreApplication::sendEvent(watched, e);
        releasing_ = nullptr;
        clicked = releaseClicked_;
    } else if (Passive(kind) || kind == Kind::TextBox) {
        // A text box clicks too (the attendance boxes open their dialog on a click).
        QWidget* w = WidgetOf(*c);
        clicked = button == forms::vbLeftButton && w && w->rect().contains(w->mapFromGlobal(e->globalPosition()).toPoint());
    } else {
        host_.Call([&] { c->UserRelease(button, shift, x, y, false); });
        return false;
    }
    if (Control* still = ControlOf(watched)) host_.Call([&] { still->UserRelease(button, shift, x, y, clicked); });
    if (kind == Kind::TextBox || Passive(kind)) return Passive(kind);
    Resync(watched);
    return true;
}

bool FormView::Mouse(QObject* watched, QMouseEvent* e) {
    if (applying_) return false;
    // A press a widget leaves unused travels on to its parents: only its first
    // receiver counts.
    if (e == lastMouse_ && e->type() == lastMouseType_ && e->timestamp() == lastMouseTime_) return false;
    lastMouse_ = e;
    lastMouseType_ = e->type();
    lastMouseTime_ = e->timestamp();

    int button = 0;
    switch (e->button()) {
    case Qt::LeftButton: button = forms::vbLeftButton; break;
    case Qt::RightButton: button = forms::vbRightButton; break;
    case Qt::MiddleButton: button = forms::vbMiddleButton; break;
    default: return false;
    }
    const int shift = ShiftOf(e->modifiers());

    if (watched == content_) {
        // The form itself, between its controls.
        if (e->type() != QEvent::MouseButtonRelease) return false;
        QPointF p = e->position();
        host_.Call([&] {
            form_->Form_MouseUp(button, shift, static_cast<float>(p.x() * forms::TwipsPerPixel),
                                static_cast<float>(p.y() * forms::TwipsPerPixel));
            if (button == forms::vbLeftButton) form_->Form_Click();
        });
        return false;
    }

    Control* c = ControlOf(watched);
    QWidget* w = c ? WidgetOf(*c) : nullptr;
    if (!w) return false;
    const Kind kind = c->kind();
    QPointF p = w->mapFromGlobal(e->globalPosition());
    const float x = static_cast<float>(p.x() * forms::TwipsPerPixel), y = static_cast<float>(p.y() * forms::TwipsPerPixel);
    switch (e->type()) {
    case QEvent::MouseButtonPress: {
        if (auto* pe = qobject_cast<QPlainTextEdit*>(w); pe && c->FixedPitch) Measure(*c, pe);
        const bool focus = mouseFocus_ == c;
        if (focus) mouseFocus_ = nullptr;
        host_.Call([&] { c->UserPress(button, shift, x, y, focus); });
        break;
    }
    case QEvent::MouseButtonRelease: return Release(watched, e, c, button, shift, x, y);
    case QEvent::MouseButtonDblClick: host_.Call([&] { c->UserDblClick(); }); break;
    default: break;
    }
    return Passive(kind);
}
