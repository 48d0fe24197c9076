#pragma once

#include "gui/elements/TreeViewNode.h"

namespace GUI {

/// Opens and selects in a tree what is so in another one, wherever the keys on the way agree. With `several`
/// all selected nodes count, else the first.
void CopyTreeState(TreeViewNode const& from, TreeViewNode& to, bool several);

/// Makes the children of a node those of a vector of entries, as a tree view is given them by its data
/// source. Children that are still among them stay the same nodes, with all that is below them unless the
/// entry tells that too. Entries that are no texts and no maps are left out, as is what is beyond the limit
/// of elements.
void ReadTreeEntries(TreeViewNode& node, Utilities::Anything const& entries);

} // namespace GUI
