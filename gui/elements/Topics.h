#pragma once

namespace GUI {

/// Names that `Pane::OnSelectionChanged` and the selection service use.
namespace Topics {

/// The keyboard focus. Not a topic of the selection service by itself; hosts may follow it there.
inline constexpr char const* focus = "Focus";
/// What the property inspector shows.
inline constexpr char const* propertyInspector = "PropertyInspector";

} // namespace Topics

/// Names of callbacks and of values that many elements use.
namespace Events {

inline constexpr char const* update = "OnUpdate";
inline constexpr char const* click = "OnClick";
inline constexpr char const* close = "OnClose";

} // namespace Events

namespace Values {

inline constexpr char const* caption = "Caption";
inline constexpr char const* state = "State";
inline constexpr char const* visible = "Visible";
inline constexpr char const* enable = "Enable";
inline constexpr char const* enabled = "Enabled";
/// Of a function that menus and tool bars offer.
inline constexpr char const* itemEnabled = "ItemEnabled";
/// What assistive technology calls an element that draws itself.
inline constexpr char const* accessibleName = "AccessibleName";
inline constexpr char const* toolTipText = "ToolTipText";

} // namespace Values

} // namespace GUI
