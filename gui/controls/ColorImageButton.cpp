#include "gui/controls/ColorImageButton.h"

#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute attributes[] = {ColorImageButton::fieldUp, ColorImageButton::fieldOver,
                                    ColorImageButton::fieldDown, ColorImageButton::fieldDisabled};
ElementRegistration<ColorImageButton, ImageButton> const
    registration({"ColorImageButton", "$Revision: 1.2 $", "GUI"}, attributes);

constexpr char const* states[] = {"Up", "Over", "Down", "Disabled"};

} // namespace

std::optional<ColorImageButton::Field> ColorImageButton::ReadField(String const& text) {
    constexpr long count = 4;
    if (text.Length() == 0) return std::nullopt;
    if (text.GetTokenCount(',') != count)
        throw OutOfRangeException("\"" + text.GetStdString() + "\" is not a field: x,y,width,height is");
    auto const number = [&text](long index) { return text.GetToken(index, ',').GetShort(); };
    return Field{number(0), number(1), number(2), number(3)};
}

void ColorImageButton::Initialize(PlatformIndependentWindowID const& parent,
                                  DescriptionTree const& description, DialogDataSource* dataSource) {
    AttributeReader const reader(description);
    for (std::size_t i = 0; i < stateCount; ++i) fields_[i] = ReadField(reader.Text(attributes[i]));
    ImageButton::Initialize(parent, description, dataSource);
}

std::optional<ColorImageButton::Field> const& ColorImageButton::GetField() {
    String const state = GetState();
    std::size_t index = 0;
    while (index + 1 < stateCount && !(state == states[index])) ++index;
    return fields_[index];
}

void ColorImageButton::OnPaint(PlatformIndependentDeviceContext& context) {
    ImageButton::OnPaint(context);
    auto const& field = GetField();
    if (!field) return;
    context.SetBrush(color_);
    context.SetPen(color_, 1, PlatformIndependentDeviceContext::noPen);
    context.FillRectangle(field->x, field->y, static_cast<short>(field->x + field->width),
                          static_cast<short>(field->y + field->height));
}

long ColorImageButton::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue("ButtonColor"); value.IsValid()) color_ = RGBVector(value);
    return ImageButton::OnUpdate(command);
}

} // namespace GUI
