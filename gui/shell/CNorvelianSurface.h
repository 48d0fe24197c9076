#pragma once

#include "gui/platform/CNorvelianStyle.h"
#include "gui/platform/LightWindow.h"

#include <QBasicTimer>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

namespace GUI {

class CNorvelianAdvancedControl;
class PlatformIndependentDeviceContext;
struct SurfaceBacking;

/// What a surface shows besides its panes.
class SurfaceBackdrop {
public:
    virtual ~SurfaceBackdrop() = default;
    /// Under the panes, over the background colour.
    virtual void PaintBackground(PlatformIndependentDeviceContext& context) = 0;
    /// Over the panes.
    virtual void PaintDecorators(PlatformIndependentDeviceContext& context) = 0;
    /// The window that this one belongs to has another theme.
    virtual void OnOuterThemeChanged() = 0;
};

/// The one Qt widget of a window that paints: it shows all panes of the window, and passes paint, mouse,
/// focus, tool tip, drag and key events on to them. Native controls are real child widgets of it.
///
/// The panes are light windows in a tree. A repaint visits only those that meet the region asked for and
/// aren't covered by one above them; each is painted into its own box and nowhere else.
class CNorvelianSurface : public QWidget {
public:
    /// The surface of a window: its own if it has one, else one that is made to cover it.
    static CNorvelianSurface& Of(QWidget& window);

    explicit CNorvelianSurface(QWidget& window);
    ~CNorvelianSurface() override;

    LightWindowTree& GetTree() { return tree_; }
    void SetBackdrop(SurfaceBackdrop* backdrop) { backdrop_ = backdrop; }

    /// The colours of everything on the surface, and the style of its native controls; none for the
    /// platform's. What is there already takes it at once.
    void SetTheme(std::optional<Theme> const& theme);
    Theme const* GetTheme() const { return theme_ ? &*theme_ : nullptr; }
    /// Null without a theme.
    CNorvelianStyle* GetStyle() const { return theme_ ? style_ : nullptr; }
    /// Gives what is beside the surface, or over it, the look of its window: bars and menus.
    void Dress(QWidget& widget) const;
    static void DressMenu(QWidget& menu);
    /// With a theme, a native control that has the focus has a ring around it.
    void RepaintFocusRing();

    /// Paints a part before it returns; while the surface is being painted, that part is painted at the end
    /// of this paint, unless its turn in it is still to come.
    void RepaintNow(LightWindow& window);
    void RepaintNow(PixelBox const& box);
    /// So many repaints of one turn of the event loop are painted before they return, the rest together at
    /// the turn's end. Only on Wayland is there such a bound at first: a paint of its own costs 450 us there,
    /// 8 us on X11.
    void SetPaintsATurn(int count) { paintsATurn_ = count; }
    /// Some windows have moved: they are placed and the surface is painted at the next turn of the event
    /// loop, or by `Settle`.
    void SettleLater();
    void Settle();
    bool IsPainting() const { return painting_ != nullptr; }

    /// @name What a pane asks for
    /// @{
    void TakeFocus(CNorvelianAdvancedControl& control, Qt::FocusReason reason);
    void Capture(CNorvelianAdvancedControl& control, bool capture);
    /// Hears of a pane that is going away, or was hidden.
    void Forget(CNorvelianAdvancedControl& control);
    /// @}
    /// The pane that has the keyboard focus, while this window has it.
    std::shared_ptr<CNorvelianAdvancedControl> GetFocusControl() const {
        return focused_ ? focus_.lock() : nullptr;
    }
    bool HasFocus(CNorvelianAdvancedControl const& control) const {
        return GetFocusControl().get() == &control;
    }
    bool IsUnderMouse(CNorvelianAdvancedControl const& control) const {
        return hover_.lock().get() == &control;
    }
    /// The mouse has gone over to a native control.
    void LeavePane();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    using Control = std::shared_ptr<CNorvelianAdvancedControl>;
    using WeakControl = std::weak_ptr<CNorvelianAdvancedControl>;
    struct Pass;

    void PaintPanes(QRegion const& region);
    void PaintBackground(QRegion const& region);
    void Fill(QRegion const& region);
    /// Whether a pane has nothing but the background under it.
    bool IsLowest(LightWindow const& window);
    SurfaceBacking GetBacking() const;
    void PaintDecorators(QRect const& rect);
    void PaintFocusMark(QRect const& rect);
    void PaintFocusRing(QRect const& rect);
    QRect GetFocusRing() const;
    /// For a paint that begins.
    void TakeTheme(PlatformIndependentDeviceContext& context) const;
    void RepaintFocusMark();
    /// Whether this turn of the event loop has had its share of paints.
    bool IsToBatch();
    void QueuePaintLater();
    void PaintLater();
    PixelBox GetFocusMark() const;
    /// The pane under a place, or the one that holds the mouse.
    Control FindTarget(QPoint const& place);
    static Control ControlOf(LightWindow const* window);
    void EnterPane(Control const& control);
    void SetFocusPane(Control const& control, Qt::FocusReason reason);
    LightWindow* GetFocusWindow();
    /// Where Tab goes from a window, which may be null for the beginning or end; null past the last stop.
    LightWindow* FindStop(LightWindow const* from, bool next);
    bool FocusStop(LightWindow& stop, Qt::FocusReason reason);
    /// Of the pane, or of the nearest one around it that has a menu; false if there is none.
    bool OpenContextMenu(LightWindow const* window, QPoint const& place);
    void ShowToolTip();
    void ShowDragCursor(bool dragable);
    /// Begins to drag what was pressed, once the mouse has moved far enough.
    bool DragsOut(QMouseEvent const& event);
    void LeaveDrag();
    /// Shows where what is dragged would be dropped; nothing for an empty box.
    void SetDropMark(QRect const& mark);
    void PaintDropMark(QRect const& rect);

    LightWindowTree tree_;
    std::optional<Theme> theme_;
    /// Made for the first theme. Controls keep it as long as they live.
    QPointer<CNorvelianStyle> style_;
    /// As it was painted last.
    QRect focusRing_;
    SurfaceBackdrop* backdrop_ = nullptr;
    Pass* painting_ = nullptr;
    /// Asked for during a paint.
    std::vector<QRect> later_;
    /// What the decorators drew at the last whole paint decides whether a partial one asks them.
    bool decorated_ = true;
    int paintsATurn_;
    int paintsInTurn_ = 0;
    bool paintsLater_ = false;
    bool settlesLater_ = false;
    /// A paint that was asked for by `RepaintNow`, which sees to what is asked for in it.
    bool repainting_ = false;
    bool focusByKey_ = false;
    bool focused_ = false;
    bool dragCursor_ = false;
    WeakControl focus_;
    WeakControl hover_;
    /// Has taken the button down and gets what follows, or has asked for the mouse.
    WeakControl pressed_;
    WeakControl captured_;
    WeakControl draggedOver_;
    QRect dropMark_;
    /// Where the button went down on what may be dragged; none for a button that isn't down.
    std::optional<QPoint> pressedAt_;
    QBasicTimer toolTipTimer_;
    QPoint mouse_;
};

} // namespace GUI
