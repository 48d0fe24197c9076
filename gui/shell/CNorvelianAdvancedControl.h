#pragma once

#include "gui/elements/Accessible.h"
#include "gui/elements/KeyState.h"
#include "gui/elements/KeyboardGroup.h"
#include "gui/elements/ViewInput.h"
#include "gui/platform/LightWindow.h"
#include "gui/shell/CNorvelianSurface.h"

#include <QPoint>
#include <QPointer>
#include <memory>

namespace GUI {

class AdvancedControlImpl_PC;
class DropDataObject;

/// The window of a pane: a light window on the surface of its top-level window. It passes on what the
/// surface tells it. An exception from the pane is dropped here and the event counts as not handled.
/// Whatever the pane is told may make it vanish, and this window with it: who calls holds a shared pointer.
class CNorvelianAdvancedControl : public LightWindowOwner,
                                  public std::enable_shared_from_this<CNorvelianAdvancedControl> {
public:
    CNorvelianAdvancedControl(AdvancedControlImpl_PC& impl, CNorvelianSurface& surface, LightWindow& parent,
                              bool tabStop, Utilities::String const& contextMenu = {});
    ~CNorvelianAdvancedControl() override;
    CNorvelianAdvancedControl(CNorvelianAdvancedControl const&) = delete;
    CNorvelianAdvancedControl& operator=(CNorvelianAdvancedControl const&) = delete;

    /// The impl is going away: leaves the surface at once.
    void Detach();
    bool IsAttached() const { return impl_ != nullptr; }
    LightWindow& GetWindow() const { return *window_; }
    std::shared_ptr<LightWindow> const& GetSharedWindow() const { return window_; }
    CNorvelianSurface* GetSurface() const { return surface_; }

    void RepaintNow();
    void RepaintPart(PixelBox const& box) override;
    /// Its place has changed: what is on the screen follows at the next turn of the event loop, and native
    /// controls in it too.
    void Moved();
    void Show(bool visible);
    void SetFocus();
    void SetMouseCapture(bool capture);
    void UpdateDeviceContext();
    Accessible GetAccessible();
    /// Qt's number for the pane's accessible interface; 0 if nobody has asked for one.
    unsigned GetAccessibleId() const { return accessibleId_; }
    void SetAccessibleId(unsigned id) { accessibleId_ = id; }
    void TellAccessibleChange();
    /// A place of the surface in the pane's coordinates.
    QPoint FromSurface(QPoint const& place) const;

    /// @name What the surface tells
    /// @{
    void OnPaint(PlatformIndependentDeviceContext& context);
    bool LeavesPixels() const;
    bool OnMouseMove(QPoint const& place);
    bool IsDragable(QPoint const& place);
    bool OnLeftButtonDown(bool controlKey, QPoint const& place);
    bool OnLeftButtonUp(QPoint const& place);
    bool OnMouseLeave();
    void OnFocus(bool focused);
    /// A key that clicks a pane in its middle.
    void OnClickKey(bool controlKey);
    /// False leaves the key to the window.
    bool OnNavigationKey(NavigationKey key);
    /// Of panes that show a part of their data; false from others.
    bool OnViewKey(ViewKey key);
    bool OnWheel(double steps, QPoint const& place);
    /// Opens the pane's own context menu at a place of the screen; false if it has none. See `Menu`.
    bool OpenContextMenu(QPoint const& place);
    /// Whether Tab stops here, as far as the group says that the pane is in.
    bool IsTabStopOfGroup();
    QString GetToolTipText(QPoint const& place);
    DropEffect OnDragOver(DropDataObject const& data, bool controlKey, QPoint const& place);
    void OnDragLeave();
    bool OnDrop(DropDataObject const& data, DropEffect effect, QPoint const& place);
    /// @}

private:
    /// An event of `QAccessible`, for screen readers.
    void TellAssistiveTechnology(int event);
    /// Runs a handler; its default answer if it threw or the pane is gone.
    template <class Handler> auto Guarded(char const* where, Handler handler) -> decltype(handler());
    /// The nearest one around the pane; null for none.
    KeyboardGroup* FindGroup() const;

    AdvancedControlImpl_PC* impl_;
    QPointer<CNorvelianSurface> surface_;
    std::shared_ptr<LightWindow> window_;
    /// Name of a menu of the window; empty for none.
    Utilities::String contextMenu_;
    unsigned accessibleId_ = 0;
    bool painting_ = false;
};

} // namespace GUI
