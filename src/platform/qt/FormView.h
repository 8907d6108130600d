#pragma once
// Any form of the model as a real window. The model is the truth: the view
// follows it through FormObserver, and hands what the operator does back to
// it through the controls' User* entry points and the form's key routing.
#include <functional>
#include <map>
#include <set>
#include <vector>

#include <QFont>
#include <QMainWindow>

#include "platform/forms/Form.h"

class QtHost;
class QAction;
class QKeyEvent;
class QMouseEvent;
class QFocusEvent;

class FormView : public QMainWindow, private forms::FormObserver {
    Q_OBJECT

public:
    FormView(QtHost& host, forms::Form& form);
    ~FormView() override;

    forms::Form* Model() const { return form_; }
    // The form is unloaded or gone: the window never calls into it again.
    void Detach();
    // Shows the window, application-modal or not, in front and active.
    void ShowWindow(bool modal);
    // Gives the widget of the model's active control the focus, without model events.
    void SyncFocus();

    // The widget of a control, the entry of a menu; null when there is none.
    QWidget* WidgetOf(const forms::Control& c) const;
    QAction* ActionOf(const forms::Control& c) const;

protected:
    bool event(QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void ControlChanged(forms::Control& c, forms::Prop p) override;
    void ControlAdded(forms::Control& c) override;
    void ControlRemoved(forms::Control& c) override;
    void FocusChanged(forms::Control* c) override;
    void FormChanged(forms::Prop p) override;

    // The classic key code of a Qt key (0 when it has none) and the Shift mask.
    static int KeyCodeOf(int qtKey, Qt::KeyboardModifiers mods);
    static int ShiftOf(Qt::KeyboardModifiers mods);
    // The face and size a control's font stands for on this desktop.
    static QFont FontFor(const std::string& name, float size, bool bold, bool fixedPitch);

    // Widgets (FormView.cpp).
    QWidget* Make(forms::Control& c);
    void Own(QObject* part, forms::Control& c);
    forms::Control* ControlOf(const QObject* o) const;
    void ApplyAll(const forms::Control& c);
    void Apply(const forms::Control& c, forms::Prop p);
    void ApplyFields(const forms::Control& c, QWidget* w);
    void ApplyGeometry(const forms::Control& c, QWidget* w);
    void ApplyText(const forms::Control& c, QWidget* w);
    void ApplySelection(const forms::Control& c, QWidget* w);
    void ApplyCaption(const forms::Control& c, QWidget* w);
    void ApplyValue(const forms::Control& c, QWidget* w);
    void ApplyColors(const forms::Control& c, QWidget* w);
    void ApplyList(const forms::Control& c, QWidget* w);
    void ApplyListIndex(const forms::Control& c, QWidget* w);
    void ApplyTabs(const forms::Control& c, QWidget* w);
    void ApplyPicture(const forms::Control& c, QWidget* w);
    void ApplyFormGeometry();
    void ApplyFormColors();
    QString PicturePath(const std::string& name) const;
    // After the operator acted on a control, the widget shows what the model made of it.
    void Resync(const QObject* part);
    // A button, check box or option clicked: by the mouse (handed over at the
    // release) or from the keyboard.
    void Clicked(const QObject* button);

    // Menus (FormViewMenus.cpp).
    void RebuildMenus();
    void ScheduleMenuRebuild();
    void AddMenuItems(QWidget* into, forms::Control* parent);
    void UpdateAction(forms::Control& c);

    // Input (FormViewInput.cpp).
    bool KeyPress(QObject* watched, forms::Control* target, QKeyEvent* e);
    bool KeyRelease(forms::Control* target, QKeyEvent* e);
    void FocusIn(QObject* watched, QFocusEvent* e);
    bool Mouse(QObject* watched, QMouseEvent* e);
    bool Release(QObject* watched, QMouseEvent* e, forms::Control* c, int button, int shift, float x, float y);
    bool IsKeyTarget(QObject* watched) const;
    void Reinject(QObject* watched, int keyAscii);

    // An operator action on a widget, through the host's boundary; then the
    // widget shows what the model made of it (not for caret moves, which come
    // before the edit they belong to).
    void Act(const QObject* part, const std::function<void(forms::Control&)>& f, bool resync = true);

    struct Item {
        QWidget* widget = nullptr;   // null for menus
        QAction* action = nullptr;   // menus
    };

    QtHost& host_;
    forms::Form* form_;
    QWidget* content_;
    std::map<const forms::Control*, Item> items_;
    std::map<const QObject*, forms::Control*> owners_;   // a widget and its inner parts
    std::vector<QObject*> menuObjects_;
    bool hasMenus_ = false;
    bool shownOnce_ = false;
    bool menuRebuildPending_ = false;
    int applying_ = 0;          // the model is being shown: widget signals are not the operator
    bool focusing_ = false;     // the view moves the focus for the model
    bool reinjecting_ = false;  // a key a KeyPress handler changed is on its way to the widget
    std::set<int> swallowed_;   // keys whose KeyDown was swallowed: no KeyUp either
    std::set<int> held_;        // keys pressed while this window had them, not yet let go
    // Qt moves the focus before a press reaches the control; the model hears of
    // the move from the press, after the control's MouseDown.
    forms::Control* mouseFocus_ = nullptr;
    // A release the widget is handling now, and whether it clicked.
    forms::Control* releasing_ = nullptr;
    bool releaseClicked_ = false;
    const QEvent* lastMouse_ = nullptr;
    int lastMouseType_ = 0;
    quint64 lastMouseTime_ = 0;
};
