#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace Bench {

/// Counts the paints of a widget.
class Paints : public QObject {
public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    bool WaitFor(int wanted) const {
        for (int i = 0; i < 1000 && count < wanted; ++i) QApplication::processEvents();
        return count >= wanted;
    }
    int count = 0;
};

/// Delivers updates at once, without the platform's timer.
inline void Flush(QWidget& widget) {
    QCoreApplication::sendPostedEvents();
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(widget.window(), &update);
}

} // namespace Bench
