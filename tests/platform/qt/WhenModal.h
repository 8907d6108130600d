#pragma once
#include <functional>
#include <memory>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

// Boxes, dialogs and modal forms run loops of their own: this acts on the
// next modal window once it is up.
inline void WhenModal(std::function<bool(QWidget*)> is, std::function<void(QWidget*)> act) {
    auto* timer = new QTimer;
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    QObject::connect(timer, &QTimer::timeout, [timer, clock, is, act] {
        QWidget* m = QApplication::activeModalWidget();
        if (m && m->isVisible() && is(m)) {
            timer->stop();
            timer->deleteLater();
            act(m);
        } else if (clock->elapsed() > 5000) {
            timer->stop();
            timer->deleteLater();
            ADD_FAILURE() << "the expected modal window never came up";
            if (m) m->close();
        }
    });
    timer->start(5);
}

template <class T>
void WhenModal(std::function<void(T*)> act) {
    WhenModal([](QWidget* w) { return dynamic_cast<T*>(w) != nullptr; },
              [act](QWidget* w) { act(dynamic_cast<T*>(w)); });
}
