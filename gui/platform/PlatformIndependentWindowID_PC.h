#pragma once

#include "gui/elements/PaintedPart.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"
#include "gui/platform/LightWindow.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace GUI {

/// A window's identity together with the platform's window, which is not owned. The window of a pane is a
/// light window on the surface of its top-level window: its platform window is that surface. Whoever needs a
/// platform window from an element goes through this class; only `_PC` files may.
class PlatformIndependentWindowID_PC : public PlatformIndependentWindowID, public PartlyPaintedWindow {
public:
    PlatformIndependentWindowID_PC() = default;
    PlatformIndependentWindowID_PC(std::uint32_t id, QWidget* window) : window_(window) { SetID(id); }
    PlatformIndependentWindowID_PC(PlatformIndependentWindowID_PC const&) = default;

    /// Copies both parts. An object of another class is a fault of the caller: `std::bad_cast`.
    PlatformIndependentWindowID_PC& operator=(PlatformIndependentWindowID const& other) override;
    PlatformIndependentWindowID_PC& operator=(PlatformIndependentWindowID_PC const& other) = default;
    Diagnostics::String GetValueString() override { return "PlatformIndependentWindowID_PC"; }
    bool PrepareForUnload() override { return true; }
    void Set(Utilities::SmartPointer<PlatformIndependentWindowID> other) override;

    void RepaintPart(PaneBox const& box) override;

    /// Null once the window is gone.
    QWidget* GetWindow() const { return window_; }
    void SetWindow(QWidget* window);
    /// A pane's window.
    void SetWindow(QWidget* surface, std::shared_ptr<LightWindow> const& pane);
    /// Null for a top-level window, and once the pane's window is gone.
    std::shared_ptr<LightWindow> GetLightWindow() const { return pane_.lock(); }

    /// The window behind an identity; null for one without a window.
    static QWidget* WindowOf(PlatformIndependentWindowID const& identity);

private:
    QPointer<QWidget> window_;
    std::weak_ptr<LightWindow> pane_;
};

} // namespace GUI
