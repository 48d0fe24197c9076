#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/values/Anything.h"
#include "gui/elements/TreeViewNode.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace GUI {

/// Makes the nodes of one property content. Linear in the size of the content, however many children a node
/// has.
class PropertyTree {
public:
    /// See `PropertyContentHelper::BuildTree`.
    Utilities::SmartPointer<TreeViewNode> Build(Utilities::Anything::MapOfAnythings const& entries);

private:
    struct Place {
        TreeViewNode const* parent;
        std::string name;
        bool operator==(Place const&) const = default;
    };
    struct HashOfPlace {
        std::size_t operator()(Place const& place) const {
            return std::hash<TreeViewNode const*>()(place.parent) * 31 + std::hash<std::string>()(place.name);
        }
    };

    using Entries = std::unordered_map<std::string_view, Utilities::Anything const*>;

    TreeViewNode& FindOrMake(TreeViewNode& parent, std::string_view name);
    static void ShowValue(TreeViewNode& node, char type, Utilities::Anything const* value);

    std::unordered_map<Place, TreeViewNode*, HashOfPlace> known_;
};

} // namespace GUI
