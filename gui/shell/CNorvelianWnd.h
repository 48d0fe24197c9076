#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace GUI {

class Window_PC;

/// The platform window of a "Window": passes what the user does with it on to the element.
class CNorvelianWnd : public QWidget {
public:
    CNorvelianWnd(Window_PC& element, QWidget* parent, Qt::WindowFlags flags);

    void Detach() { element_ = nullptr; }

protected:
    bool event(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void TellPosition();

    Window_PC* element_;
    /// A window that is dragged about moves many times; its place is told once it rests.
    QBasicTimer moveTimer_;
};

} // namespace GUI
