#include "gui/layout/GumBox.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;

namespace {

constexpr Attribute maximalWidthKey{"MaximalWidth", AttributeType::Number, "0",
                                    "Largest width in pixels, and the weight when width is shared"};
constexpr Attribute maximalHeightKey{"MaximalHeight", AttributeType::Number, "0",
                                     "Largest height in pixels, and the weight when height is shared"};
constexpr char const* noMinimum = "No effect: a spacer has no minimal size";
constexpr Attribute attributeList[] = {maximalWidthKey, maximalHeightKey,
                                       Unused(CommonAttributes::minimalWidth, noMinimum),
                                       Unused(CommonAttributes::minimalHeight, noMinimum)};

ElementRegistration<GumBox, GUIElement> const registration({"GumBox", "$Revision: 1.8 $", "GUI"},
                                                           attributeList);

} // namespace

void GumBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                        DialogDataSource* dataSource) {
    try {
        GUIElement::Initialize(parent, description, dataSource);
    } catch (OutOfRangeException const&) {
        // Only the size range can't be read, which is read again here.
        Diagnostics::DropException("GumBox::Initialize");
    }
    unsigned long maximalWidth = 0;
    unsigned long maximalHeight = 0;
    try {
        AttributeReader const attributes(description);
        maximalWidth = attributes.Unsigned(maximalWidthKey);
        maximalHeight = attributes.Unsigned(maximalHeightKey);
    } catch (OutOfRangeException const&) {
        Diagnostics::DropException("GumBox::Initialize");
    }
    SetSizeInformation(0, maximalWidth, 0, maximalHeight);
}

} // namespace GUI
