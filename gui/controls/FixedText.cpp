#include "gui/controls/FixedText.h"

namespace GUI {

namespace {

constexpr Attribute attributes[] = {FixedText::caption, FixedText::fontName,  FixedText::fontSize,
                                    FixedText::bold,    FixedText::italic,    FixedText::underline,
                                    FixedText::fontColor, FixedText::backgroundColor};
AttributeTable const table("FixedText", "GUIElement", attributes);

} // namespace

void FixedText::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    if (dataSource && GetElementName().Length() != 0)
        dataSource->SetCallback(GetElementName(), "OnUpdate", Utilities::MakeCallback(this, &FixedText::OnUpdate));
}

Utilities::Anything FixedText::GetValue(char const* key) {
    return GetDataSource() ? GetDataSource()->GetValue(GetElementName(), key) : Utilities::Anything();
}

} // namespace GUI
