#include "gui/layout/GUIDSwitcher.h"

#include "gui/elements/CustomControl.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

ElementRegistration<GUIDSwitcher, Pane> const registration({"GUIDSwitcher", "$Revision: 1.8 $", "GUI"});

constexpr char const* currentViewKey = "CurrentView";

String NameOf(DescriptionTree const& node) {
    return AttributeReader(node).Text(CommonAttributes::elementName);
}

/// Sends "OnUpdate" to each element below one that has registered it.
void UpdateBelow(GUIElement const& element, GUIElement const& but, DialogDataSource const* source) {
    for (auto it = element.GetChildrenList().Begin(); it.IsValid(); ++it) {
        // Held: what it is told may release it.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        SmartPointer<GUIElement> const child = it.Current();
        // What is inside a control has the control as its data source.
        if (child->GetDataSource() != source) continue;
        if (child.Get() != &but)
            child->GetDataSource()->GetCallback(child->GetElementName(), Events::update).Execute({});
        if (child->IsAttached()) UpdateBelow(*child, but, source);
        if (!it.IsValid()) return;
    }
}

} // namespace

void GUIDSwitcher::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    RegisterOnUpdate();
    viewDescriptions_ = description;
    auto const first = viewDescriptions_.GetChildren();
    if (first.IsValid()) MakeView(NameOf(*first.Current()));
}

bool GUIDSwitcher::MakeView(String const& name) {
    ReleaseChildren();
    if (!IsAttached()) return false;
    for (auto it = viewDescriptions_.GetChildren(); it.IsValid(); ++it) {
        if (!it.Current()->FindValue(CommonAttributes::elementName.key) || !(NameOf(*it.Current()) == name))
            continue;
        currentView_ = name;
        // Kept while the view is made: an element may insert nodes behind its own.
        DescriptionTree view;
        view.AddChild(Utilities::MakeSmart<DescriptionTree>(*it.Current()));
        CreateChildren(*GetWindowID(), view, GetDataSource());
        return IsAttached();
    }
    return false;
}

long GUIDSwitcher::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    Anything const asked = GetValue(currentViewKey);
    if (!IsAttached()) return 0;
    bool const isEmpty = GetChildrenList().GetSize() == 0;
    bool const stays = !asked.IsOfTypeString() ||
                       (asked.GetString() == currentView_ && (!isEmpty || currentView_.Length() == 0));
    if (stays) return Pane::OnUpdate(command), 0;
    if (!MakeView(asked.GetString())) {
        if (IsAttached()) Pane::OnUpdate({});
        return isEmpty ? 0 : 1;
    }
    UpdateDialog();
    if (IsAttached()) LayOutView();
    if (IsAttached()) Pane::OnUpdate({});
    return 1;
}

void GUIDSwitcher::UpdateDialog() {
    DialogDataSource* const source = GetDataSource();
    if (!source) return;
    if (auto* const control = dynamic_cast<CustomControl*>(source)) return control->UpdateElements();
    GUIElement const* const root = source->GetDialogRootElement();
    GUIElement const& top = root ? *root : *this;
    CallScope const call(top);
    UpdateBelow(top, *this, source);
}

void GUIDSwitcher::LayOutView() {
    GUIElement* const view = GetFirstChild();
    if (!view) return;
    CallScope const call(*view);
    view->RecalculateSize();
    if (!call.IsAttached()) return;
    view->SetPosition(0, 0);
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    SetSize(width, height);
}

} // namespace GUI
