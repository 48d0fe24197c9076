#include "gui/layout/ViewSelector.h"

#include "Utilities/NamingService.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/description/GUIDescriptionReader.h"

namespace GUI {

using Utilities::Anything;
using Utilities::Callback;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

namespace Common = CommonAttributes;

constexpr Attribute justification{"Justification", AttributeType::Text, "",
                                  "\"Horizontal\" for a row; anything else is a column", true};
constexpr Attribute paneLink{"PaneLinkElementName", AttributeType::ElementName, "",
                             "Name under which the application knows the pane that shows the view", true};
constexpr Attribute ownAttributes[] = {justification, paneLink, Common::backgroundColor, Common::frame};
ElementRegistration<ViewSelector, GUIElement> const registration({"ViewSelector", "$Revision: 1.24 $", "GUI"},
                                                                 ownAttributes);

/// Width of a selector that gives no width.
constexpr unsigned long standardWidth = 83;

/// A pane that holds a box with the tools.
DescriptionTree DescribeTools(DescriptionTree const& description) {
    AttributeReader const reader(description);
    auto const box = Utilities::MakeSmart<DescriptionTree>();
    (*box)[Common::elementType.key] = reader.Text(justification) == "Horizontal" ? "HBox" : "VBox";
    for (auto tool = description.GetChildren(); tool.IsValid(); ++tool)
        box->AddChild(Utilities::MakeSmart<DescriptionTree>(*tool.Current()));
    DescriptionTree pane;
    pane[Common::elementType.key] = "Pane";
    for (Attribute const& attribute : {Common::minimalWidth, Common::maximalWidth, Common::minimalHeight,
                                       Common::maximalHeight, Common::backgroundColor, Common::frame})
        if (Anything const* const value = description.FindValue(attribute.key)) pane[attribute.key] = *value;
    pane.AddChild(box);
    return pane;
}

void UpdateBelow(GUIElement const& element, CallbackTable const& callbacks) {
    for (auto it = element.GetChildrenList().Begin(); it.IsValid(); ++it) {
        // Held: what it is told may release it.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        SmartPointer<GUIElement> const child = it.Current();
        callbacks.Find(child->GetElementName(), Events::update).Execute({});
        if (child->IsAttached()) UpdateBelow(*child, callbacks);
        if (!it.IsValid()) return;
    }
}

} // namespace

void ViewSelector::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                              DialogDataSource* dataSource) {
    CallScope const call(*this);
    GUIElement::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    reader.Text(justification);
    paneLinkElementName_ = reader.Text(paneLink);
    RegisterOnUpdate();
    if (!IsAttached()) return;
    SetWindowID(Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    *GetWindowID() = parent;
    pane_ = SmartPointer<Pane>(Utilities::ResolveComponent<GUIElement>("Pane"));
    Adopt(SmartPointer<GUIElement>(pane_));
    pane_->Initialize(*GetWindowID(), DescribeTools(description), this);
}

void ViewSelector::OnDetach() {
    onClick_.Release();
    GUIElement::OnDetach();
}

void ViewSelector::SetPosition(unsigned long x, unsigned long y) {
    GUIElement::SetPosition(x, y);
    if (!pane_.IsNull()) pane_->SetPosition(x, y);
}

void ViewSelector::SetSize(unsigned long width, unsigned long height) {
    CallScope const call(*this);
    GUIElement::SetSize(width, height);
    if (!pane_.IsNull()) pane_->SetSize(width, height);
}

void ViewSelector::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                      unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (pane_.IsNull())
        return GUIElement::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    pane_->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    if (minimalWidth == 0 && maximalWidth == 0) minimalWidth = maximalWidth = standardWidth;
}

long ViewSelector::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    UpdateTools();
    return GUIElement::OnUpdate(command);
}

void ViewSelector::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                           GUIElement const& /*element*/) const {
    PassOnPaintWindowDecorators(context);
}

void ViewSelector::SetValue(String const& element, String const& name, Anything const& value) {
    if (!GetDataSource()) return;
    CallScope const call(*this);
    GetDataSource()->SetValue(element, name, value);
}

Anything ViewSelector::GetValue(String const& element, String const& name) {
    if (name == "State") return element == currentView_;
    if (!GetDataSource()) return {};
    CallScope const call(*this);
    if (name == Values::enabled || name == "Enable")
        return GetDataSource()->GetValue(element, Values::itemEnabled);
    if (name == Values::toolTipText) return GetDataSource()->GetValue(element, name);
    return {};
}

void ViewSelector::SetCallback(String const& element, String const& name, Callback const& callback) {
    callbacks_.Set(element, name, callback);
}

Callback ViewSelector::GetCallback(String const& /*element*/, String const& name) {
    return name == Events::click && IsAttached() ? onClick_.Get() : Callback();
}

Pane* ViewSelector::FindLinkedPane() const {
    return dynamic_cast<Pane*>(Application::Instance().GetRegisteredComponent(paneLinkElementName_));
}

void ViewSelector::SetGUIDescriptionTree(DescriptionTree const& view) {
    CallScope const call(*this);
    currentView_ = AttributeReader(view).Text(Common::elementName);
    Pane* const linked = FindLinkedPane();
    if (!linked) return;
    CallScope const callOfPane(*linked);
    DescriptionTree content;
    content.AddChild(Utilities::MakeSmart<DescriptionTree>(view));
    linked->SetGUIDescriptionTree(content, linked->GetDataSource());
    if (linked->IsAttached()) linked->RecalculateSize();
}

void ViewSelector::ShowView(String const& view) {
    Anything const description =
        GetDataSource() ? GetDataSource()->GetValue(view, "ViewDescription") : Anything();
    if (!IsAttached() || !description.IsOfTypeString()) return;
    DescriptionTree tree = GUIDescriptionReader::GetGUIDescriptionTree(description.GetString());
    tree[Common::elementName.key] = view;
    SetGUIDescriptionTree(tree);
}

void ViewSelector::FireForView(String const& view, char const* event, Anything const& argument) {
    if (IsAttached() && GetDataSource()) GetDataSource()->GetCallback(view, event).Execute(argument);
}

long ViewSelector::OnClick(Anything const& argument) {
    CallScope const call(*this);
    if (!argument.IsOfTypeString()) return 0;
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the argument may go with its sender
    String const view = argument.GetString();
    Fire(Events::click, argument);
    if (!IsAttached() || view == currentView_) return 0;
    if (currentView_.Length() != 0) FireForView(currentView_, "OnHide", {});
    if (!IsAttached()) return 0;
    currentView_ = view;
    ShowView(view);
    FireForView(view, "SetUpdateHandler", GetElementName());
    if (IsAttached()) callbacks_.Find(GetElementName(), Events::update).Execute({});
    if (IsAttached()) Fire("OnAfterClick", argument);
    if (IsAttached()) UpdateTools();
    return 0;
}

void ViewSelector::UpdateTools() {
    if (pane_.IsNull()) return;
    CallScope const call(*pane_);
    UpdateBelow(*pane_, callbacks_);
}

} // namespace GUI
