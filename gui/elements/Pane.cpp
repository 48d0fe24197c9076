#include "gui/elements/Pane.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "gui/elements/Attributes.h"
#include "gui/elements/GUIDescriptionReader.h"
#include "gui/elements/SelectionServiceInterface.h"

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

constexpr char const* inspectorTopic = "PropertyInspector";

/// Null in a host or test that has no such service.
SmartPointer<SelectionServiceInterface> FindSelectionService() {
    constexpr char const* name = "SelectionService";
    if (!Utilities::NamingService::Instance()->IsRegistered(name)) return {};
    return Utilities::ResolveComponent<SelectionServiceInterface>(name);
}

} // namespace

Pane::~Pane() {
    onUpdate_.Release(GetDataSource(), GUIElement::GetElementName(), "OnUpdate");
    try {
        if (topics_.GetSize() != 0) {
            auto const service = FindSelectionService();
            for (auto topic = topics_.Begin(); !service.IsNull() && topic.IsValid(); ++topic)
                if (service->GetSelection(topic.Current()) == this)
                    service->SetSelection(topic.Current(), nullptr);
        }
    } catch (...) {
        Diagnostics::DropException("Pane: giving up the selection");
    }
    // Children hang in the pane's window and go first; the window must not call a half-dead pane.
    ReleaseChildren();
    if (!control_.IsNull()) control_->SetPane(nullptr);
}

void Pane::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    attributes.Text(CommonAttributes::paneName);

    SetWindowID(Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    control_ = Utilities::ResolveComponent<AdvancedControlImpl>("AdvancedControlImpl");
    control_->SetPane(this);
    control_->Initialize(parent, description);

    SetFrame(attributes.Flag(CommonAttributes::frame));
    if (attributes.HasColour(CommonAttributes::backgroundColor))
        SetBackgroundColor(attributes.Colour(CommonAttributes::backgroundColor));
    SetBackgroundBitmap(attributes.Text(CommonAttributes::backgroundBitmap));
    if (description.HasChildren()) CreateChildren(*GetWindowID(), description, dataSource);
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
    child->SetPosition(0, 0);
    child->SetSize(width, height);
}

long Pane::OnUpdate(Anything const& command) {
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
    ReleaseChildren();
    childDescription_ = description;
    CreateChildren(*GetWindowID(), childDescription_, dataSource);
    LayOutFirstChild();
}

void Pane::SetBackgroundColor(RGBVector const& color) { backgroundColor_ = color; }
void Pane::SetFrame(bool frame) { frame_ = frame; }
String Pane::GetToolTipText(unsigned short /*x*/, unsigned short /*y*/) {
    Anything const text = GetValue("ToolTipText");
    return text.IsOfTypeString() ? text.GetString() : String();
}
long Pane::Select(Anything const& /*argument*/) {
    OnSelectionChanged(inspectorTopic, true);
    return 0;
}

void Pane::OnSelectionChanged(String const& elementName, bool selected) {
    auto const service = FindSelectionService();
    bool const isInspected = elementName == inspectorTopic;
    bool const changed = isInspected && selected_ != selected;
    if (isInspected) selected_ = selected;
    if (!service.IsNull()) {
        SelectableObject* const holder = service->GetSelection(elementName);
        if (selected) {
            // The one that loses the selection hears of it before the new holder is published.
            if (auto* const loser = dynamic_cast<Pane*>(holder); loser && loser != this)
                loser->OnSelectionChanged(elementName, false);
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
    static RGBVector const frameColor(128, 128, 128);
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

void Pane::SetMouseCapture(bool capture) {
    if (!control_.IsNull()) control_->SetMouseCapture(capture);
}

bool Pane::HasNoRepaint(String const& message) { return message.FindSubstring("|NoRepaint", 0) > 0; }

String Pane::GetCommand(String const& message) {
    return HasNoRepaint(message) ? message.GetToken(0, '|') : message;
}

void Pane::RegisterOnUpdate() {
    if (GetDataSource()) GetDataSource()->SetCallback(GetElementName(), "OnUpdate", onUpdate_.Get());
}

Anything Pane::GetValue(String const& key) {
    return GetDataSource() ? GetDataSource()->GetValue(GetElementName(), key) : Anything();
}

} // namespace GUI
