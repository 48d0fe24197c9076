#pragma once

#include "gui/elements/PropertyInspectorImpl.h"

namespace GUI {

/// The name under which a page's tree view registers itself.
inline constexpr char const* inspectorTree = "PropertyInspectorTree";

/// Shows a property content in that tree view, if there is one.
void ShowInInspectorTree(Utilities::Anything const& content);
/// A content that says that there is none.
Utilities::Anything MakeNoInformation();

/// The page for any element: its property content as a tree. The component "PropertyInspectorDefault"; its
/// description is the file "PropertyInspector".
class PropertyInspectorDefault : public PropertyInspectorImpl {
public:
    static constexpr char const* componentName = "PropertyInspectorDefault";

    Diagnostics::String GetValueString() override { return componentName; }
    Utilities::String GetName() const override { return componentName; }
    DescriptionTree GetGUIDescription() override;
    void Update(SupportsPropertyInspector* element) override;
};

} // namespace GUI
