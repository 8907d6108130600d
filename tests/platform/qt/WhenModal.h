#pragma once
#include <functional>
#include <memory>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

// Boxes, dialogs and modal forms run loops of their own: this acts on the
// next modal window of the given kind once it is up.
template <class T>
void WhenModal(std::function<void(T*)> act) {
    auto* timer = new QTimer;
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    QObject::connect(timer, &QTimer::timeout, [timer, clock, act] {
        QWidget* m = QApplication::activeModalWidget();
        T* t = m && m->isVisible() ? dynamic_cast<T*>(m) : nullptr;
        if (!t && clock->elapsed() <= 5000) return;
        timer->stop();
        timer->deleteLater();
        if (t) {
            act(t);
        } else {
            ADD_FAILURE() << "the expected modal window never came up";
            if (m) m->close();
        }
    });
    timer->start(5);
}
