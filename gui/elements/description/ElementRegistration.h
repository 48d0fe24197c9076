#pragma once

#include "core/creators/ComponentCreator.h"
#include "gui/elements/description/Attributes.h"

#include <span>
#include <type_traits>

namespace GUI {

/// Registers the elements of one class as a component: enters a creator into the directory of components, and
/// tells which attributes they read beyond those of `Base`. One static object a component, in the unit of its
/// class, for the life of the module.
///
/// `Base` is the nearest base class that has a static member `AttributesOf<Base> const attributeTable`.
template <class Element, class Base> class ElementRegistration {
    static_assert(std::is_base_of_v<Base, Element>);
    static_assert(std::is_same_v<decltype(Base::attributeTable), AttributesOf<Base> const>,
                  "attributes are inherited from a class that has a table of its own");

public:
    explicit ElementRegistration(Utilities::ComponentDescription const& description,
                                 std::span<Attribute const> attributes = {},
                                 AttributeTable::Kind kind = AttributeTable::Kind::Element)
        : creator_(description), table_(description.name, &Base::attributeTable, attributes, kind) {}

private:
    Utilities::ComponentCreatorNormal<Element> creator_;
    AttributeTable table_;
};

} // namespace GUI
