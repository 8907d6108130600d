// The floor of the start-up measurement: an empty Qt window, started and
// painted the way the program's first window is, and stamped the same way.
#include <QApplication>
#include <QDateTime>
#include <QPainter>
#include <QWidget>
#include <cstdio>

namespace {

class Bare : public QWidget {
    bool painted_ = false;
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), palette().window());
        if (painted_) return;
        painted_ = true;
        std::fprintf(stderr, "stamp paint %lld %s\n", static_cast<long long>(QDateTime::currentMSecsSinceEpoch()),
                     qPrintable(windowTitle()));
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Bare w;
    w.setWindowTitle("Vestrel");
    w.resize(480, 360);
    w.show();
    return app.exec();
}
