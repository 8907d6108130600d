// The menu bar of a form, made from its Menu controls: a menu's container is
// the menu it drops from, a caption "-" is a separator.
#include <algorithm>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include "platform/qt/FormView.h"
#include "platform/qt/QtHost.h"

using forms::Control;
using forms::Kind;

void FormView::ScheduleMenuRebuild() {
    // Later, once: a control array growing adds its entries one by one, and the
    // action being triggered may be one of those that go.
    if (menuRebuildPending_) return;
    menuRebuildPending_ = true;
    QTimer::singleShot(0, this, [this] {
        menuRebuildPending_ = false;
        if (form_) RebuildMenus();
    });
}

void FormView::RebuildMenus() {
    for (auto it = owners_.begin(); it != owners_.end();) {
        if (qobject_cast<const QAction*>(it->first)) it = owners_.erase(it);
        else ++it;
    }
    for (QObject* o : menuObjects_) o->deleteLater();
    menuObjects_.clear();
    for (auto it = items_.begin(); it != items_.end();) {
        if (it->second.action) it = items_.erase(it);
        else ++it;
    }
    QMenuBar* bar = menuBar();
    bar->setNativeMenuBar(false);
    bar->clear();
    AddMenuItems(bar, nullptr);
}

void FormView::AddMenuItems(QWidget* into, Control* parent) {
    std::vector<Control*> kids;
    for (Control* c : form_->Controls())
        if (c->kind() == Kind::Menu && c->Container() == parent) kids.push_back(c);
    // An array grown at run time keeps its place: its elements stand together
    // where its first one stands, in the order of their Index.
    auto rank = [&kids](const Control* c) {
        for (std::size_t i = 0; i < kids.size(); ++i)
            if (kids[i]->Name() == c->Name()) return i;
        return kids.size();
    };
    std::stable_sort(kids.begin(), kids.end(), [&rank](const Control* a, const Control* b) {
        std::size_t ra = rank(a), rb = rank(b);
        return ra != rb ? ra < rb : a->Index() < b->Index();
    });

    for (Control* c : kids) {
        bool hasKids = std::any_of(form_->Controls().begin(), form_->Controls().end(), [c](const Control* k) {
            return k->kind() == Kind::Menu && k->Container() == c;
        });
        QAction* action;
        if (hasKids) {
            auto* menu = new QMenu(this);
            action = menu->menuAction();
            // Opening a menu is a click on its title, as the old menus had it.
            connect(menu, &QMenu::aboutToShow, menu, [this, action] {
                Act(action, [](Control& m) { m.UserClick(); });
            });
            menuObjects_.push_back(menu);
            owners_[action] = c;
            items_[c].action = action;
            AddMenuItems(menu, c);
        } else {
            action = new QAction(this);
            connect(action, &QAction::triggered, action, [this, action] {
                Act(action, [](Control& m) { m.UserClick(); });
                if (Control* m = ControlOf(action)) UpdateAction(*m);
            });
            menuObjects_.push_back(action);
            owners_[action] = c;
            items_[c].action = action;
        }
        into->addAction(action);
        UpdateAction(*c);
    }
}

void FormView::UpdateAction(Control& c) {
    QAction* a = ActionOf(c);
    if (!a) return;
    if (c.IsSeparator()) {
        a->setSeparator(true);
    } else {
        a->setSeparator(false);
        a->setText(ToQString(c.Caption()));
    }
    a->setVisible(c.Visible());
    a->setEnabled(c.Enabled());
    if (!a->menu()) {
        a->setCheckable(c.Checked());
        a->setChecked(c.Checked());
    }
}
