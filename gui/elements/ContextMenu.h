#pragma once

#include "gui/elements/description/Attributes.h"

namespace GUI {

/// Of panes; see `Menu`.
inline constexpr Attribute contextMenuAttribute{
    "ContextMenu", AttributeType::ElementName, "",
    "Element name of the menu that the right mouse button and the menu key open"};

} // namespace GUI
