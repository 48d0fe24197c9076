#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"
#include "gui/shell/EventGuard_PC.h"

#include <QAbstractScrollArea>
#include <QPointer>

class QKeyEvent;
class QLineEdit;

namespace GUI {

class GUIElement;

/// A control that is scrolled and draws itself through our device context, with a field in which one of its
/// texts is edited in place.
class CNorvelianScrollArea : public QAbstractScrollArea {
public:
    explicit CNorvelianScrollArea(QWidget* parent);

    /// Whose events these are; null once it is released.
    void SetElement(GUIElement const* element) { element_ = element; }

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Draws what a part of the viewport shows; where pixels of the screen are finer it is a little larger
    /// than what was asked for.
    virtual void OnPaintPart(PlatformIndependentDeviceContext& context, QRect const& part) = 0;
    virtual void OnViewportSize(long width, long height) = 0;
    /// Press, release, double click and move.
    virtual bool OnMouse(QEvent& event) = 0;
    /// Keys that come before shortcuts of the menu while the control has the focus.
    virtual bool IsOwnKey(QKeyEvent const& event) const = 0;
    virtual void OnEnabled(bool enabled) = 0;
    virtual void OnFocusChange(bool focused) = 0;
    /// The user has moved a scroll bar.
    virtual void OnScrolled() = 0;
    /// The field gets a key; true if it isn't to see it.
    virtual bool OnEditorKey(QKeyEvent& event) = 0;
    /// The focus goes elsewhere.
    virtual void OnEditorLeft() = 0;

    /// Runs a handler as an event of the element.
    template <class Handler> void Run(Handler handler) {
        if (!element_) return;
        RunGuardedEvent(*element_, [&handler] { return handler(), true; });
    }
    /// Whether a logical pixel is a whole number of the screen's; not at a scale of 1.5.
    bool HasWholePixels() const;
    void ScrollViewport(QRect const& area, long dx, long dy);
    void SetBars(long y, long lastY, long yPage, long x, long lastX, long xPage);

    void ShowField(QRect const& box, QString const& text, QFont const& font, Qt::Alignment alignment,
                   bool selectAll);
    QString GetFieldText() const;
    void MoveField(QRect const& box);
    void HideField();

private:
    void PaintViewport(QPaintEvent const& event);

    GUIElement const* element_ = nullptr;
    QPointer<QLineEdit> field_;
    bool settingBars_ = false;
};

} // namespace GUI
