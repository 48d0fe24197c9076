#include "gui/elements/GUIElement.h"

#include "Utilities/NamingService.h"
#include "gui/elements/Attributes.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::Anything;
using Utilities::String;

namespace {

std::uint32_t Pixels(unsigned long value) { return static_cast<std::uint32_t>(value); }

} // namespace

std::uint64_t GUIElement::layoutRevision = 0;

GUIElement::~GUIElement() { ReleaseChildren(); }

void GUIElement::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    parentWindow_ = &parent;
    dataSource_ = dataSource;
    SetAttributes(description);
}

void GUIElement::SetAttributes(DescriptionTree const& description) {
    AttributeReader const attributes(description);
    name_ = attributes.Text(CommonAttributes::elementName);
    registered_ = attributes.FlagUnlessNo(CommonAttributes::registered);
    minimalWidth_ = Pixels(attributes.Unsigned(CommonAttributes::minimalWidth));
    maximalWidth_ = Pixels(attributes.Unsigned(CommonAttributes::maximalWidth));
    minimalHeight_ = Pixels(attributes.Unsigned(CommonAttributes::minimalHeight));
    maximalHeight_ = Pixels(attributes.Unsigned(CommonAttributes::maximalHeight));
    AdvanceLayoutRevision();
    helpFile_ = attributes.Text(CommonAttributes::helpFile);
    helpTopic_ = attributes.Unsigned(CommonAttributes::helpTopic);
}

void GUIElement::SetPosition(unsigned long x, unsigned long y) {
    x_ = Pixels(x);
    y_ = Pixels(y);
}

void GUIElement::GetPosition(unsigned long& x, unsigned long& y) const {
    x = x_;
    y = y_;
}

void GUIElement::SetSize(unsigned long width, unsigned long height) {
    width_ = Pixels(width);
    height_ = Pixels(height);
}

void GUIElement::GetSize(unsigned long& width, unsigned long& height) const {
    width = width_;
    height = height_;
}

void GUIElement::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                    unsigned long& minimalHeight, unsigned long& maximalHeight) {
    minimalWidth = minimalWidth_;
    maximalWidth = maximalWidth_;
    minimalHeight = minimalHeight_;
    maximalHeight = maximalHeight_;
}

void GUIElement::SetSizeInformation(unsigned long minimalWidth, unsigned long maximalWidth,
                                    unsigned long minimalHeight, unsigned long maximalHeight) {
    minimalWidth_ = Pixels(minimalWidth);
    maximalWidth_ = Pixels(maximalWidth);
    minimalHeight_ = Pixels(minimalHeight);
    maximalHeight_ = Pixels(maximalHeight);
    AdvanceLayoutRevision();
}

void GUIElement::RecalculateSize() {
    AdvanceLayoutRevision();
    if (parentElement_) parentElement_->RecalculateSize();
}

long GUIElement::OnUpdate(Anything const& /*command*/) { return 0; }

void GUIElement::Enable(bool enabled) {
    for (auto it = children_.Begin(); it.IsValid(); ++it) it.Current()->Enable(enabled);
}

String GUIElement::GetRegion(unsigned long /*x*/, unsigned long /*y*/) { return {}; }
String GUIElement::GetCurrentRegion() { return {}; }

void GUIElement::OnPaintWindowDecorators(PlatformIndependentDeviceContext& /*context*/,
                                         GUIElement const& /*element*/) const {}

void GUIElement::OnLanguageChanged() {
    for (auto it = children_.Begin(); it.IsValid(); ++it) it.Current()->OnLanguageChanged();
}

void GUIElement::PassOnPaintWindowDecorators(PlatformIndependentDeviceContext& context) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it)
        it.Current()->OnPaintWindowDecorators(context, *this);
}

void GUIElement::CreateChildren(PlatformIndependentWindowID const& window, DescriptionTree const& description,
                                DialogDataSource* dataSource) {
    for (auto node = description.GetChildren(); node.IsValid(); ++node) {
        DescriptionTree const& child = *node.Current();
        String const type = AttributeReader(child).Text(CommonAttributes::elementType);
        auto element = Utilities::ResolveComponent<GUIElement>(type);
        if (element.IsNull())
            throw RuntimeException("The component \"" + type.GetStdString() + "\" is not a GUI element");
        element->parentElement_ = this;
        element->Initialize(window, child, dataSource);
        children_.Append(element);
        OnChildrenChanged();
    }
}

void GUIElement::ReleaseChildren() {
    // Somebody may hold a child longer than its parent lives.
    for (auto it = children_.Begin(); it.IsValid(); ++it) it.Current()->parentElement_ = nullptr;
    children_.Clear();
    OnChildrenChanged();
}

void GUIElement::OnChildrenChanged() {
    ++childrenRevision_;
    AdvanceLayoutRevision();
}

GUIElement* GUIElement::GetFirstChild() const {
    auto const first = children_.Begin();
    return first.IsValid() ? first.Current().Get() : nullptr;
}

GUIElement& GUIElement::FindElement(String const& name) const {
    if (GUIElement* const found = FindRegistered(name)) return *found;
    throw OutOfRangeException("There is no element named \"" + name.GetStdString() + "\"");
}

GUIElement* GUIElement::FindRegistered(String const& name) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it) {
        GUIElement& child = *it.Current();
        if (child.registered_ && child.GetElementName() == name) return &child;
        if (GUIElement* const found = child.FindRegistered(name)) return found;
    }
    return nullptr;
}

bool GUIElement::GetHelpInfo(String& file, unsigned long& topic, unsigned long x, unsigned long y) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it) {
        GUIElement const& child = *it.Current();
        bool const inside = x - child.x_ < child.width_ && y - child.y_ < child.height_;
        if (!inside) continue;
        // A child with a window of its own counts from that window's corner.
        bool const hasWindow = !child.window_.IsNull();
        if (child.GetHelpInfo(file, topic, hasWindow ? x - child.x_ : x, hasWindow ? y - child.y_ : y))
            return true;
    }
    if (helpFile_.Length() == 0) return false;
    file = helpFile_;
    topic = helpTopic_;
    return true;
}

} // namespace GUI
