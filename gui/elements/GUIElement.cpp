#include "gui/elements/GUIElement.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "Utilities/NamingService.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/Attributes.h"

#include <exception>
#include <string>
#include <unordered_map>
#include <utility>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::Anything;
using Utilities::String;

namespace {

std::size_t living = 0;
std::size_t failed = 0;
/// The exception that was told last, by the innermost element that it came from. It is let go with the
/// outermost creation: its class may belong to a module that is unloaded afterwards.
std::exception_ptr told;

class Creation {
public:
    Creation() { ++depth; }
    ~Creation() {
        if (--depth == 0) told = nullptr;
    }
    Creation(Creation const&) = delete;
    Creation& operator=(Creation const&) = delete;

private:
    static int depth;
};

int Creation::depth = 0;

/// Boxes drop what goes wrong while they create their children. The sink hears of it once, with the place in
/// the description.
void ReportFailedChild(String const& type, DescriptionTree const& description) {
    if (std::exchange(told, std::current_exception()) == std::current_exception()) return;
    ++failed;
    std::string where = "<" + type.GetStdString() + ">";
    String const name = AttributeReader(description).Text(CommonAttributes::elementName);
    if (name.Length() != 0) where += " \"" + name.GetStdString() + "\"";
    if (!(description.GetName() == " ")) where += " in " + description.GetName().GetStdString();
    Diagnostics::DropException(where.c_str());
}

Utilities::SmartPointer<GUIElement> MakeElement(String const& type) {
    if (auto const most = Utilities::Limits::Get().elements; living >= most)
        throw RuntimeException(Utilities::Limits::Passed("elements", most, "elements in all windows"));
    auto element = Utilities::ResolveComponent<GUIElement>(type);
    if (element.IsNull())
        throw RuntimeException("The component \"" + type.GetStdString() + "\" is not a GUI element");
    return element;
}

namespace Common = CommonAttributes;

constexpr Attribute attributeList[] = {
    Common::elementType,  Common::elementName,   Common::registered,    Common::minimalWidth,
    Common::maximalWidth, Common::minimalHeight, Common::maximalHeight, Common::justificationOnX,
    Common::helpFile,     Common::helpTopic,     Common::properties,
};

std::uint32_t Pixels(unsigned long value) { return static_cast<std::uint32_t>(value); }

} // namespace

AttributesOf<GUIElement> const GUIElement::attributeTable("GUIElement", nullptr, attributeList);

std::uint64_t GUIElement::layoutRevision = 0;
std::uint64_t GUIElement::namesRevision = 0;

/// The registered elements below one element by name, as long as no name and no list of children changes.
struct GUIElement::NameIndex {
    std::uint64_t revision = 0;
    /// The first search after a change walks the tree; a second one is worth an index.
    bool isBuilt = false;
    std::unordered_map<std::string, GUIElement*> elements;
};

GUIElement::GUIElement() { ++living; }

GUIElement::~GUIElement() {
    released_ = true;
    ReleaseChildren();
    ReleasedElements::Forget(*this);
    --living;
}

std::size_t GUIElement::GetLivingCount() { return living; }
std::size_t GUIElement::GetFailedCount() { return failed; }

void GUIElement::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    KeepParentWindow(parent);
    dataSource_ = dataSource;
    SetAttributes(description);
}

void GUIElement::KeepParentWindow(PlatformIndependentWindowID const& parent) {
    auto const keep = [this, &parent](GUIElement const* other) {
        if (!other || !other->parentWindow_ || other->parentWindow_->GetID() != parent.GetID()) return false;
        parentWindow_ = other->parentWindow_;
        return true;
    };
    if (&parent == parentWindow_.get() || keep(parentElement_)) return;
    if (parentElement_ && parentElement_->children_.GetSize() != 0 &&
        keep(parentElement_->children_.Last().Current().Get()))
        return;
    auto const copy = Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID");
    *copy = parent;
    parentWindow_ =
        std::shared_ptr<PlatformIndependentWindowID const>(copy.Get(), [copy](auto const*) { /* holds */ });
}

void GUIElement::Detach() {
    if (released_) return;
    released_ = true;
    try {
        OnDetach();
    } catch (...) {
        Diagnostics::DropException("GUIElement: releasing an element");
    }
    for (auto it = children_.Begin(); it.IsValid(); ++it) it.Current()->Detach();
    dataSource_ = nullptr;
}

void GUIElement::OnDetach() {
    if (!onUpdate_) return;
    onUpdate_->Release(dataSource_, name_, Events::update);
    onUpdate_.reset();
}

void GUIElement::RegisterOnUpdate() {
    if (!dataSource_ || GetElementName().Length() == 0) return;
    if (!onUpdate_) onUpdate_ = std::make_unique<OwnedCallback<GUIElement>>(this, &GUIElement::OnUpdate);
    CallScope const call(*this);
    dataSource_->SetCallback(GetElementName(), Events::update, onUpdate_->Get());
}

Anything GUIElement::GetValue(String const& key) {
    if (!dataSource_) return {};
    CallScope const call(*this);
    return dataSource_->GetValue(GetElementName(), key);
}

void GUIElement::TellValue(String const& key, Anything const& value) {
    if (!dataSource_) return;
    CallScope const call(*this);
    dataSource_->SetValue(GetElementName(), key, value);
}

long GUIElement::Fire(String const& event, Anything const& argument) {
    if (!dataSource_) return 0;
    CallScope const call(*this);
    auto const callback = dataSource_->GetCallback(GetElementName(), event);
    return callback.Execute(argument);
}

void GUIElement::SetAttributes(DescriptionTree const& description) {
    AttributeReader const attributes(description);
    name_ = attributes.Text(CommonAttributes::elementName);
    ++namesRevision;
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
    CallScope const call(*this);
    for (auto it = children_.Begin(); it.IsValid(); ++it) it.Current()->OnLanguageChanged();
}

void GUIElement::PassOnPaintWindowDecorators(PlatformIndependentDeviceContext& context) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it)
        it.Current()->OnPaintWindowDecorators(context, *this);
}

void GUIElement::CreateChildren(PlatformIndependentWindowID const& window, DescriptionTree const& description,
                                DialogDataSource* dataSource) {
    CallScope const call(*this);
    Creation const creation;
    for (auto node = description.GetChildren(); node.IsValid() && IsAttached(); ++node) {
        DescriptionTree const& child = *node.Current();
        String const type = AttributeReader(child).Text(CommonAttributes::elementType);
        if (AttributeTable::IsPartOfElement(type.GetStdString())) continue;
        Utilities::SmartPointer<GUIElement> element;
        try {
            element = MakeElement(type);
            element->parentElement_ = this;
            element->Initialize(window, child, dataSource);
        } catch (...) {
            ReportFailedChild(type, child);
            throw;
        }
        // What the child asked for may have released this element, or had other children made meanwhile.
        if (!IsAttached() || !node.IsValid()) break;
        children_.Append(element);
        OnChildrenChanged();
    }
}

void GUIElement::Adopt(Utilities::SmartPointer<GUIElement> const& child) {
    child->parentElement_ = this;
    children_.Append(child);
    OnChildrenChanged();
}

void GUIElement::ReleaseChild(GUIElement const& child) {
    for (auto it = children_.Begin(); it.IsValid(); ++it) {
        if (it.Current().Get() != &child) continue;
        auto const released = it.Current();
        ReleasedElements::KeepParentOf(child, *this);
        released->Detach();
        released->parentElement_ = nullptr;
        children_.Remove(it);
        OnChildrenChanged();
        return;
    }
}

void GUIElement::ReleaseChildren() {
    if (children_.GetSize() == 0) return;
    // The list is empty before the first child is told: who asks meanwhile finds none of them.
    Children const released = std::move(children_);
    children_ = Children();
    OnChildrenChanged();
    for (auto it = released.Begin(); it.IsValid(); ++it) {
        GUIElement& child = *it.Current();
        ReleasedElements::KeepParentOf(child, *this);
        // Someone may hold a child longer than its parent lives.
        child.Detach();
        child.parentElement_ = nullptr;
    }
}

void GUIElement::OnChildrenChanged() {
    ++childrenRevision_;
    ++namesRevision;
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
    if (name.Length() == 0) return nullptr;
    if (!names_) names_ = std::make_unique<NameIndex>();
    if (names_->revision == namesRevision) {
        if (!names_->isBuilt) EnterNames(*names_);
        names_->isBuilt = true;
        auto const found = names_->elements.find(name.GetStdString());
        return found == names_->elements.end() ? nullptr : found->second;
    }
    *names_ = {namesRevision, false, {}};
    return Search(name);
}

GUIElement* GUIElement::Search(String const& name) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it) {
        GUIElement& child = *it.Current();
        if (child.registered_ && child.GetElementName() == name) return &child;
        if (GUIElement* const found = child.Search(name)) return found;
    }
    return nullptr;
}

void GUIElement::EnterNames(NameIndex& index) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it) {
        GUIElement& child = *it.Current();
        // The first of one name wins.
        if (child.registered_) index.elements.emplace(child.GetElementName().GetStdString(), &child);
        child.EnterNames(index);
    }
}

bool GUIElement::GetHelpInfo(String& file, unsigned long& topic, unsigned long x, unsigned long y) const {
    for (auto it = children_.Begin(); it.IsValid(); ++it) {
        GUIElement const& child = *it.Current();
        bool const inside = x - child.x_ < child.width_ && y - child.y_ < child.height_;
        if (!inside) continue;
        // A child with a window of its own counts from that window's corner. Some elements hand on the
        // window that they were given as theirs.
        bool const hasWindow =
            !child.window_.IsNull() &&
            !(child.parentWindow_ && child.window_->GetID() == child.parentWindow_->GetID());
        if (child.GetHelpInfo(file, topic, hasWindow ? x - child.x_ : x, hasWindow ? y - child.y_ : y))
            return true;
    }
    if (helpFile_.Length() == 0) return false;
    file = helpFile_;
    topic = helpTopic_;
    return true;
}

} // namespace GUI
