#pragma once

#include <QBasicTimer>
#include <QPoint>
#include <QPointer>
#include <QWidget>

namespace GUI {

class AdvancedControlImpl;

/// The window of a pane: paints all its pixels, and passes paint, mouse, focus and tool tip events on
/// to the pane. An exception from the pane is dropped here and the event counts as not handled. Whatever
/// the pane is told may make it vanish, and this window with it.
class CNorvelianAdvancedControl : public QWidget {
public:
    CNorvelianAdvancedControl(AdvancedControlImpl& impl, QWidget* parent, bool tabStop);
    ~CNorvelianAdvancedControl() override;

    /// Paints before it returns; while the top-level window is being painted, the repaint becomes part of
    /// that paint or of the next one. Painting a window inside its own paint recurses until the stack is
    /// gone.
    void RepaintNow();
    /// The impl is going away.
    void Detach() { impl_ = nullptr; }
    bool IsHandlingEvent() const { return eventDepth_ != 0; }
    void UpdateDeviceContext();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    using Self = QPointer<CNorvelianAdvancedControl>;
    /// Whether a window is still there, and has its pane.
    static bool IsAttached(Self const& self) { return self && self->impl_; }

    void ShowToolTip();
    void DrawFocusMark();
    void ShowDragCursor(bool dragable);
    /// Runs a handler; false if it threw.
    template <class Handler> bool Guarded(char const* where, Handler handler);

    AdvancedControlImpl* impl_;
    int eventDepth_ = 0;
    bool painting_ = false;
    bool focusByKey_ = false;
    bool dragCursor_ = false;
    QBasicTimer toolTipTimer_;
    QPoint toolTipPosition_;
};

} // namespace GUI
