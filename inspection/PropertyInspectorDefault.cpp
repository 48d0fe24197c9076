#include "Utilities/NamingService.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/PropertyContentHelper.h"
#include "gui/elements/TreeHolder.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "inspection/PropertyPages.h"

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;

namespace {

Utilities::ComponentCreatorNormal<PropertyInspectorDefault> const
    creator({PropertyInspectorDefault::componentName, "$Revision: 1.2 $", "Tintorium"});

SmartPointer<PropertyContentHelper> MakeHelper() {
    return Utilities::ResolveComponent<PropertyContentHelper>("PropertyContentHelper");
}

} // namespace

void ShowInInspectorTree(Anything const& content) {
    auto* const tree =
        dynamic_cast<TreeHolder*>(Application::Instance().GetRegisteredComponent(inspectorTree));
    if (!tree) return;
    auto const root = MakeHelper()->BuildTree(content);
    // What is below the root is what was asked for.
    if (!root.IsNull()) root->SetExpanded(true);
    tree->SetRoot(root);
}

Anything MakeNoInformation() {
    auto const helper = MakeHelper();
    helper->AddPath("No Information");
    return helper->GetContent();
}

DescriptionTree PropertyInspectorDefault::GetGUIDescription() {
    return GUIDescriptionReader::GetGUIDescriptionTree("PropertyInspector");
}

void PropertyInspectorDefault::Update(SupportsPropertyInspector* element) {
    ShowInInspectorTree(element ? element->GetProperties() : MakeNoInformation());
}

} // namespace GUI
