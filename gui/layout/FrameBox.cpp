#include "gui/layout/FrameBox.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;

namespace {

constexpr Attribute topKey{"Top", AttributeType::Number, "0", "Upper margin in pixels"};
constexpr Attribute leftKey{"Left", AttributeType::Number, "0", "Left margin in pixels"};
constexpr Attribute rightKey{"Right", AttributeType::Number, "0", "Right margin in pixels"};
constexpr Attribute bottomKey{"Bottom", AttributeType::Number, "0", "Lower margin in pixels"};
constexpr char const* notRead = "No effect: a frame has no name and no size range of its own";
constexpr Attribute ownAttributes[] = {
    topKey, leftKey, rightKey, bottomKey, FramePanel::title, FramePanel::condition, FramePanel::surround};
constexpr auto attributeList = CommonAttributes::WithUnusedSizes(ownAttributes, notRead);

ElementRegistration<FrameBox, GUIElement> const registration({"FrameBox", "$Revision: 1.12 $", "GUI"},
                                                             attributeList);

/// Sizes are 32 bits wide and wrap.
unsigned long Add(unsigned long size, std::uint32_t first, std::uint32_t second = 0) {
    return static_cast<std::uint32_t>(size) + first + second;
}
unsigned long Subtract(unsigned long size, std::uint32_t first, std::uint32_t second) {
    return static_cast<std::uint32_t>(size) - first - second;
}

} // namespace

void FrameBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    try {
        AttributeReader const attributes(description);
        top_ = static_cast<std::uint32_t>(attributes.Unsigned(topKey));
        left_ = static_cast<std::uint32_t>(attributes.Unsigned(leftKey));
        right_ = static_cast<std::uint32_t>(attributes.Unsigned(rightKey));
        bottom_ = static_cast<std::uint32_t>(attributes.Unsigned(bottomKey));
    } catch (OutOfRangeException const&) {
        Diagnostics::DropException("FrameBox::Initialize");
    }
    try {
        if (FramePanel::IsIn(description)) {
            // Before the child, so that it is behind it.
            DescriptionTree panel;
            static_cast<AttributeMap&>(panel) = description;
            panel_ = Utilities::MakeSmart<FramePanel>();
            panel_->Initialize(parent, panel, dataSource);
        }
        CreateChildren(parent, description, dataSource);
    } catch (...) {
        Diagnostics::DropException("FrameBox::Initialize");
    }
}

void FrameBox::SetPosition(unsigned long x, unsigned long y) {
    GUIElement::SetPosition(x, y);
    if (!panel_.IsNull()) panel_->SetPosition(x, y);
    if (GUIElement* const child = GetFirstChild()) child->SetPosition(Add(x, left_), Add(y, top_));
}

void FrameBox::SetSize(unsigned long width, unsigned long height) {
    GUIElement::SetSize(width, height);
    if (!panel_.IsNull()) panel_->SetSize(width, height);
    if (GUIElement* const child = GetFirstChild())
        child->SetSize(Subtract(width, left_, right_), Subtract(height, top_, bottom_));
}

void FrameBox::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                  unsigned long& minimalHeight, unsigned long& maximalHeight) {
    minimalWidth = maximalWidth = minimalHeight = maximalHeight = 0;
    if (GUIElement* const child = GetFirstChild())
        child->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    minimalWidth = Add(minimalWidth, left_, right_);
    maximalWidth = Add(maximalWidth, left_, right_);
    minimalHeight = Add(minimalHeight, top_, bottom_);
    maximalHeight = Add(maximalHeight, top_, bottom_);
}

void FrameBox::OnLanguageChanged() {
    if (auto const panel = panel_; !panel.IsNull()) panel->OnLanguageChanged();
    GUIElement::OnLanguageChanged();
}

void FrameBox::OnDetach() {
    panel_ = {};
    GUIElement::OnDetach();
}

void FrameBox::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                       GUIElement const& /*element*/) const {
    PassOnPaintWindowDecorators(context);
}

} // namespace GUI
