#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/PaintedPart.h"
#include "gui/elements/Pane.h"
#include "gui/elements/description/Description.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <utility>

namespace TestSupport {

/// A node of a description: {"GUIElementType", "HBox"} and so on, then its children.
Utilities::SmartPointer<GUI::DescriptionTree>
Node(std::initializer_list<std::pair<char const*, char const*>> attributes,
     std::initializer_list<Utilities::SmartPointer<GUI::DescriptionTree>> children = {});

/// Stands for the platform's windows while it lives: the components "AdvancedControlImpl" and
/// "PlatformIndependentWindowID" are its own. Panes get windows that know their parents, events are
/// delivered by hand, and paints are counted.
///
/// The rule of repainting is kept: a repaint paints before it returns, the windows inside included;
/// while the window or one that holds it is being painted, it comes at the end of that paint, once.
class FakeWindowHost {
public:
    FakeWindowHost();
    FakeWindowHost(FakeWindowHost const&) = delete;
    FakeWindowHost& operator=(FakeWindowHost const&) = delete;
    ~FakeWindowHost();

    /// The window in which elements without a parent live.
    GUI::PlatformIndependentWindowID const& GetWindow() const;

    /// Creates the component of a node and initialises it.
    Utilities::SmartPointer<GUI::GUIElement> Create(Utilities::SmartPointer<GUI::DescriptionTree> const& node,
                                                    GUI::DialogDataSource* dataSource = nullptr);

    /// The platform asks the window to paint itself, and then what is in it, on one surface.
    void Paint(GUI::Pane const& pane, GUI::PlatformIndependentDeviceContext& context);
    /// What paints a part of a pane that has changed; without it the whole pane is painted.
    void SetPartPainter(std::function<void(GUI::Pane&, GUI::PaneBox const&)> paint);
    bool Click(GUI::Pane const& pane, long x, long y, bool controlKey = false);
    bool Move(GUI::Pane const& pane, long x, long y);
    Utilities::String GetToolTip(GUI::Pane const& pane, unsigned short x, unsigned short y);

    /// Paints of the pane's window so far, for whatever reason.
    int GetPaintCount(GUI::Pane const& pane) const;
    /// Windows that are alive.
    int GetWindowCount() const;

    struct State;

private:
    std::unique_ptr<State> state_;
};

} // namespace TestSupport
