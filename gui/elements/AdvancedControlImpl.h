#pragma once

#include "core/base/String.h"
#include "core/component/Component.h"
#include "gui/elements/Accessible.h"
#include "gui/elements/KeyState.h"
#include "gui/elements/description/Description.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"

#include <utility>

namespace GUI {

class DropDataObject;
class Pane;

/// The window behind a pane. A pane asks the directory for the component "AdvancedControlImpl", hands
/// itself over with `SetPane`, then calls `Initialize`, and works through it from then on. What happens
/// to the window comes back through the forwarders, each of which does nothing while there is no pane.
class AdvancedControlImpl : public Utilities::Component {
public:
    virtual void Initialize(PlatformIndependentWindowID const& parent,
                            DescriptionTree const& description) = 0;
    virtual void SetSize(long width, long height) = 0;
    virtual void SetPosition(long x, long y) = 0;
    /// Paints before it returns. While the window or one that holds it is being painted, it paints at
    /// the end of that paint instead. Where a paint of its own is slow (Wayland), only a few panes are
    /// painted at once in one turn of the event loop, and the others together at its end.
    virtual void Repaint() = 0;
    virtual void SetFocus() = 0;
    virtual void SetID(unsigned short id) = 0;
    virtual void UpdateDeviceContext() = 0;
    virtual void SetMouseCapture(bool capture) = 0;
    virtual Utilities::String GetToolTipText(unsigned short x, unsigned short y);
    /// A pane gets the system's dialog colour as its background.
    virtual void SetPane(Pane* pane);
    virtual void Show(bool visible) = 0;
    /// What the pane tells assistive technology has changed.
    virtual void TellAccessibleChange() {}

    void OnPaint(PlatformIndependentDeviceContext& context);
    /// Whether the pane may leave pixels alone, which are the window's then.
    bool LeavesPixels() const;
    bool OnLeftButtonDown(bool controlKey, long x, long y);
    bool OnLeftButtonUp(long x, long y);
    bool OnMouseMove(long x, long y);
    bool OnMouseLeave();
    void OnGetDeviceContext(PlatformIndependentDeviceContext& context);
    void OnSelectionChanged(Utilities::String const& name, bool selected);
    bool IsDragable(std::pair<long, long> const& point);
    /// What assistive technology is told.
    Accessible GetAccessible();
    /// Something is dragged over the window, leaves it, or is dropped on it.
    DropEffect OnDragOver(DropDataObject const& data, bool controlKey, long x, long y);
    void OnDragLeave();
    bool OnDrop(DropDataObject const& data, DropEffect effect, long x, long y);

protected:
    Pane* GetPane() const { return pane_; }

private:
    Pane* pane_ = nullptr;
};

} // namespace GUI
