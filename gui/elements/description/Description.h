#pragma once

#include "Utilities/Tools/Map.h"
#include "Utilities/Tools/Tree.h"
#include "core/values/Anything.h"

namespace GUI {

/// The attributes of one node. All values that a reader or an element produces are strings, numbers
/// and flags too; a nested map such as "Properties" is a map.
using AttributeMap = Utilities::Map<Utilities::String, Utilities::Anything>;

/// A description of a window or of a part of one: each node describes one element, its children the
/// element's children in order.
using DescriptionTree = Utilities::Tree<AttributeMap>;

} // namespace GUI
