#include "gui/controls/TextImageButton.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

ElementRegistration<TextImageButton, ImageButton> const registration({"TextImageButton", "$Revision: 1.3 $",
                                                                      "GUI"});

constexpr Attribute text{"Text", AttributeType::Text, "", "Text; a key of the language service"};
constexpr Attribute color{"Color", AttributeType::Colour, "255,255,255", "Text colour"};
constexpr Attribute fontStyle{"FontStyle", AttributeType::Text, "Normal",
                              "Normal, Bold, Italic or Underline"};
constexpr Attribute fontName{"FontName", AttributeType::Text, "SystemFont", "Typeface"};
constexpr Attribute fontSize{"FontSize", AttributeType::Number, "10", "Height in points",
                             false,      {-32768, 32767}};
constexpr Attribute xOffset{"XOffset", AttributeType::Number, "0", "Shift from the middle to the right",
                            false,     {-32768, 32767}};
constexpr Attribute yOffset{"YOffset", AttributeType::Number, "0", "Shift from the middle downward",
                            false,     {-32768, 32767}};
constexpr Attribute styleAttributes[] = {text, color, fontStyle, fontName, fontSize, xOffset, yOffset};

constexpr char const* general = "General";
AttributeTable const generalTable(general, nullptr, styleAttributes, AttributeTable::Kind::Part);
AttributeTable const overTable("Over", &generalTable, {}, AttributeTable::Kind::Part);
AttributeTable const downTable("Down", &generalTable, {}, AttributeTable::Kind::Part);
AttributeTable const disabledTable("Disabled", &generalTable, {}, AttributeTable::Kind::Part);

short ToFontStyle(String const& name) {
    using Context = PlatformIndependentDeviceContext;
    if (name == "Bold") return Context::boldFont;
    if (name == "Italic") return Context::italicFont;
    if (name == "Underline") return Context::underlinedFont;
    return 0;
}

} // namespace

TextImageButton::Style TextImageButton::ReadStyle(DescriptionTree const& description) {
    AttributeReader const reader(description);
    String const key = reader.Text(text);
    return {key,
            LanguageServiceInterface::GetTranslation(key),
            reader.Colour(color),
            ToFontStyle(reader.Text(fontStyle)),
            reader.Text(fontName),
            reader.Text(fontSize).GetShort(),
            reader.Text(xOffset).GetShort(),
            reader.Text(yOffset).GetShort()};
}

void TextImageButton::Initialize(PlatformIndependentWindowID const& parent,
                                 DescriptionTree const& description, DialogDataSource* dataSource) {
    for (auto node = description.GetChildren(); node.IsValid(); ++node) {
        String const type = AttributeReader(*node.Current()).Text(CommonAttributes::elementType);
        styles_[type.GetStdString()] = ReadStyle(*node.Current());
    }
    hasName_ = AttributeReader(description).Has(ControlAttributes::accessibleName);
    ImageButton::Initialize(parent, description, dataSource);
}

TextImageButton::Style const* TextImageButton::GetStyle() {
    auto found = styles_.find(GetState().GetStdString());
    if (found == styles_.end()) found = styles_.find(general);
    return found == styles_.end() ? nullptr : &found->second;
}

Accessible TextImageButton::GetAccessible() {
    Accessible told = ImageButton::GetAccessible();
    if (Style const* const style = GetStyle(); style && !hasName_) told.name = style->text;
    return told;
}

void TextImageButton::OnPaint(PlatformIndependentDeviceContext& context) {
    ImageButton::OnPaint(context);
    if (!GetStyle()) return;
    Style const& style = *GetStyle();
    context.SetFont(style.fontSize, 0, 0, style.fontName, style.fontStyle);
    context.SetTextColor(style.color);
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    long textWidth = 0;
    long textHeight = 0;
    context.GetTextExtent(style.text, textWidth, textHeight);
    auto const half = [](long size) { return static_cast<long>(static_cast<unsigned long>(size) >> 1U); };
    context.DrawText(static_cast<short>(half(static_cast<long>(width)) - half(textWidth) + style.xOffset),
                     static_cast<short>(half(static_cast<long>(height)) - half(textHeight) + style.yOffset),
                     style.text);
}

void TextImageButton::OnLanguageChanged() {
    for (auto& [state, style] : styles_) style.text = LanguageServiceInterface::GetTranslation(style.key);
    ImageButton::OnLanguageChanged();
}

} // namespace GUI
