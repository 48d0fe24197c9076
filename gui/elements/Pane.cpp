#include "gui/elements/Pane.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/ContextMenu.h"
#include "gui/elements/ElementDrops.h"
#include "gui/elements/LayoutScope.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/description/GUIDescriptionReader.h"

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

namespace Common = CommonAttributes;

constexpr Attribute attributeList[] = {Common::paneName,         Common::frame,      Common::backgroundColor,
                                       Common::backgroundBitmap, Common::selectable, contextMenuAttribute};

/// Null in a host or test that has no such service.
SmartPointer<SelectionServiceInterface> FindSelectionService() {
    constexpr char const* name = "SelectionService";
    if (!Utilities::NamingService::Instance()->IsRegistered(name)) return {};
    return Utilities::ResolveComponent<SelectionServiceInterface>(name);
}

} // namespace

AttributesOf<Pane> const Pane::attributeTable("Pane", &GUIElement::attributeTable, attributeList);

Pane::~Pane() {
    // For a pane that no smart pointer held; one that was released has let go already.
    Pane::OnDetach();
    ReleaseChildren();
}

void Pane::OnDetach() {
    if (!control_.IsNull()) {
        control_->Show(false);
        control_->SetPane(nullptr);
    }
    auto const topics = std::move(topics_);
    topics_ = {};
    if (topics.GetSize() != 0) {
        auto const service = FindSelectionService();
        for (auto topic = topics.Begin(); !service.IsNull() && topic.IsValid(); ++topic)
            if (service->GetSelection(topic.Current()) == this)
                service->SetSelection(topic.Current(), nullptr);
    }
    GUIElement::OnDetach();
}

void Pane::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);

    SetWindowID(Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    control_ = Utilities::ResolveComponent<AdvancedControlImpl>("AdvancedControlImpl");
    control_->SetPane(this);
    control_->Initialize(parent, description);

    SetFrame(attributes.Flag(CommonAttributes::frame));
    if (attributes.HasColour(CommonAttributes::backgroundColor))
        SetBackgroundColor(attributes.Colour(CommonAttributes::backgroundColor));
    SetBackgroundBitmap(attributes.Text(CommonAttributes::backgroundBitmap));
    if (description.HasChildren()) CreateDescribedChildren(description);
}

void Pane::SetPosition(unsigned long x, unsigned long y) {
    if (IfPositionEqual(x, y)) return;
    GUIElement::SetPosition(x, y);
    if (!control_.IsNull()) control_->SetPosition(static_cast<long>(x), static_cast<long>(y));
}

void Pane::SetSize(unsigned long width, unsigned long height) {
    if (!IfSizeEqual(width, height)) {
        GUIElement::SetSize(width, height);
        if (!control_.IsNull()) control_->SetSize(static_cast<long>(width), static_cast<long>(height));
    }
    // What is inside may want another layout in the same room.
    LayOutFirstChild();
}

void Pane::LayOutFirstChild() {
    GUIElement* const child = GetFirstChild();
    if (!child) return;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    // Before the first layout there is nothing to share, and margins would make it less than nothing.
    if (width == 0 || height == 0) return;
    LayoutScope const layout;
    child->SetPosition(0, 0);
    child->SetSize(width, height);
}

long Pane::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    long const result = ReadUpdate(command);
    if (!HasNoRepaint(command)) Repaint();
    return result;
}

long Pane::ReadUpdate(Anything const& command) {
    Anything const bitmap = GetValue(CommonAttributes::backgroundBitmap.key);
    if (bitmap.IsOfTypeString()) SetBackgroundBitmap(bitmap.GetString());
    return GUIElement::OnUpdate(command);
}

void Pane::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                   GUIElement const& /*element*/) const {
    PassOnPaintWindowDecorators(context);
}

void Pane::OnLanguageChanged() {
    GUIElement::OnLanguageChanged();
    Repaint();
}

Pane const& Pane::operator=(Pane const& other) {
    backgroundColor_ = other.backgroundColor_;
    backgroundBitmap_ = other.backgroundBitmap_;
    frame_ = other.frame_;
    return *this;
}

void Pane::SetGUIDescriptionTree(String const& fileName) {
    // The file's root node describes the one child that fills the pane.
    DescriptionTree wrapper;
    wrapper.AddChild(
        Utilities::MakeSmart<DescriptionTree>(GUIDescriptionReader::GetGUIDescriptionTree(fileName)));
    SetGUIDescriptionTree(wrapper, GetDataSource());
}

void Pane::SetGUIDescriptionTree(DescriptionTree const& description, DialogDataSource* dataSource) {
    CallScope const call(*this);
    ReleaseChildren();
    // Who heard of the release may have released this pane too.
    if (!IsAttached()) return;
    childDescription_ = description;
    CreateChildren(*GetWindowID(), childDescription_, dataSource);
    LayOutFirstChild();
}

void Pane::SetBackgroundColor(RGBVector const& color) { backgroundColor_ = color; }
void Pane::SetFrame(bool frame) { frame_ = frame; }
String Pane::GetToolTipText(unsigned short /*x*/, unsigned short /*y*/) {
    Anything const text = GetValue(Values::toolTipText);
    return text.IsOfTypeString() ? text.GetString() : String();
}

Accessible Pane::GetAccessible() {
    Accessible told;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    String const toolTip =
        GetToolTipText(static_cast<unsigned short>(width / 2), static_cast<unsigned short>(height / 2));
    std::string const& text = toolTip.GetStdString();
    std::size_t const end = text.find('\n');
    Anything const name = GetValue(Values::accessibleName);
    told.name = name.IsOfTypeString() ? name.GetString() : String(text.substr(0, end));
    if (end != std::string::npos) told.description = String(text.substr(end + 1));
    return told;
}

long Pane::Select(Anything const& /*argument*/) {
    OnSelectionChanged(Topics::propertyInspector, true);
    return 0;
}

void Pane::OnSelectionChanged(String const& elementName, bool selected) {
    CallScope const call(*this);
    if (!IsAttached()) return;
    auto const service = FindSelectionService();
    bool const isInspected = elementName == Topics::propertyInspector;
    bool const changed = isInspected && selected_ != selected;
    if (isInspected) selected_ = selected;
    if (!service.IsNull()) {
        SelectableObject* const holder = service->GetSelection(elementName);
        if (selected) {
            // The one that loses the selection hears of it before the new holder is published.
            if (auto* const loser = dynamic_cast<Pane*>(holder); loser && loser != this)
                loser->OnSelectionChanged(elementName, false);
            if (!IsAttached()) return;
            auto known = topics_.Begin();
            while (known.IsValid() && !(known.Current() == elementName)) ++known;
            if (!known.IsValid()) topics_.Append(elementName);
            service->SetSelection(elementName, this);
        } else if (holder == this) {
            service->SetSelection(elementName, nullptr);
        }
    }
    if (changed) Repaint();
}

void Pane::OnPaint(PlatformIndependentDeviceContext& context) {
    static RGBVector const frameColor{ThemeRole::Line, RGBVector(128, 128, 128)};
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    context.SetBrush(backgroundColor_);
    context.SetPen(frame_ ? frameColor : backgroundColor_, 1, PlatformIndependentDeviceContext::solid);
    context.FillRectangle(0, 0, static_cast<short>(width), static_cast<short>(height));
    if (backgroundBitmap_.Length() != 0) context.DrawImage(0, 0, backgroundBitmap_);
}

bool Pane::OnLeftButtonDown(KeyState /*keyState*/, long /*x*/, long /*y*/) { return false; }
bool Pane::OnLeftButtonUp(long /*x*/, long /*y*/) { return false; }
bool Pane::OnMouseMove(long /*x*/, long /*y*/) { return false; }
bool Pane::OnMouseLeave() { return false; }
void Pane::OnGetDeviceContext(PlatformIndependentDeviceContext& /*context*/) {}
bool Pane::IsDragable(std::pair<long, long> const& /*point*/) { return false; }

Anything Pane::GetProperties() { return GetValue("PropertyContent"); }

void Pane::Repaint() {
    if (!control_.IsNull()) control_->Repaint();
}

void Pane::TellAccessibleChange() {
    if (!control_.IsNull()) control_->TellAccessibleChange();
}

void Pane::SetMouseCapture(bool capture) {
    if (!control_.IsNull()) control_->SetMouseCapture(capture);
}

void Pane::Show(bool visible) {
    if (!control_.IsNull()) control_->Show(visible);
}

void Pane::SetFocus() {
    if (!control_.IsNull()) control_->SetFocus();
}

void Pane::UpdateDeviceContext() {
    if (!control_.IsNull()) control_->UpdateDeviceContext();
}

DropEffect Pane::OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y) {
    CallScope const call(*this);
    ElementDrops const drops(*this, *GetWindowID());
    if (auto* const outer = dynamic_cast<Pane*>(GetDataSource()); outer && !drops.HasTaker()) {
        auto const [left, top] = GetPlace();
        return outer->OnDragOver(data, keyState, x + left, y + top);
    }
    DropEffect const effect = drops.OnDragOver(data, keyState, x, y);
    if (!IsAttached()) return DropEffect::None;
    SetDragMouseOver(effect == DropEffect::None ? noDrag : std::pair(x, y));
    return effect;
}

void Pane::OnDragLeave() {
    CallScope const call(*this);
    SetDragMouseOver(noDrag);
    if (auto* const outer = dynamic_cast<Pane*>(GetDataSource())) outer->OnDragLeave();
}

std::pair<long, long> Pane::GetPlace() const {
    unsigned long x = 0;
    unsigned long y = 0;
    GetPosition(x, y);
    return {static_cast<long>(x), static_cast<long>(y)};
}

bool Pane::OnDrop(DropDataObject const& data, DropEffect effect, long x, long y) {
    CallScope const call(*this);
    ElementDrops const drops(*this, *GetWindowID());
    if (auto* const outer = dynamic_cast<Pane*>(GetDataSource()); outer && !drops.HasTaker()) {
        auto const [left, top] = GetPlace();
        return outer->OnDrop(data, effect, x + left, y + top);
    }
    bool const taken = drops.OnDrop(data, effect, x, y);
    if (IsAttached()) SetDragMouseOver(noDrag);
    return taken;
}

void Pane::SetDragMouseOver(std::pair<long, long> const& position) {
    if (std::exchange(dragMouseOverPosition_, position) != position) Repaint();
}

bool Pane::HasNoRepaint(Anything const& command) {
    return command.IsOfTypeString() && command.GetString().FindSubstring("|NoRepaint", 0) >= 0;
}

String Pane::GetCommand(Anything const& command) {
    if (!command.IsOfTypeString()) return {};
    String const& message = command.GetString();
    long const suffix = message.FindSubstring("|NoRepaint", 0);
    return suffix < 0 ? message : message.Mid(0, suffix);
}

} // namespace GUI
