// The floor for the start of a program with a window: one widget that says when it has been painted.
#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <cstdio>

namespace {

class Smallest : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), Qt::gray);
        QTimer::singleShot(0, [] {
            std::puts("painted");
            std::fflush(stdout);
            QApplication::quit();
        });
    }
};

} // namespace

int main(int argc, char** argv) {
    QApplication const application(argc, argv);
    Smallest widget;
    widget.resize(1120, 760);
    widget.show();
    return QApplication::exec();
}
