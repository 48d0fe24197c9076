#include "gui/press/ZonesPressSection.h"

#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/press/PressAttributes.h"
#include "gui/press/PressText.h"

namespace Ostrinda {

using Utilities::Anything;
using Utilities::String;

namespace {

using Context = GUI::PlatformIndependentDeviceContext;

constexpr GUI::Attribute attributeList[] = {PressAttributes::fontName, PressAttributes::fontSize,
                                            PressAttributes::bold};

GUI::ElementRegistration<ZonesPressSection, GUI::Pane> const
    registration({"ZonesPressSection", "$Revision: 1.5 $", "Ostrinda"}, attributeList);

GUI::RGBVector const lineColor{GUI::ThemeRole::Axis, GUI::RGBVector()};

} // namespace

void ZonesPressSection::Initialize(GUI::PlatformIndependentWindowID const& parent,
                                   GUI::DescriptionTree const& description,
                                   GUI::DialogDataSource* dataSource) {
    GUI::CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    GUI::AttributeReader const reader(description);
    fontName_ = reader.Text(PressAttributes::fontName);
    fontSize_ = reader.Text(PressAttributes::fontSize).GetShort();
    bold_ = reader.Flag(PressAttributes::bold);
    RegisterOnUpdate();
    OnUpdate("Properties");
}

long ZonesPressSection::OnUpdate(Anything const& command) {
    GUI::CallScope const call(*this);
    long const result = ReadUpdate(command);
    if (Anything const value = GetValue(GUI::Values::caption); value.IsOfTypeString())
        caption_ = value.GetString();
    if (Anything const value = GetValue("BackgroundColor"); value.IsValid())
        SetBackgroundColor(GUI::RGBVector(value));
    if (IsAttached() && !HasNoRepaint(command)) Repaint();
    return result;
}

void ZonesPressSection::OnPaint(Context& context) {
    Pane::OnPaint(context);
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const right = static_cast<short>(width);
    auto const bottom = static_cast<short>(height);
    context.SetPen(lineColor, 5, Context::solid);
    context.DrawLine(0, bottom, right, bottom);
    GUI::RGBVector const& ground = GetBackgroundColor();
    context.SetTextColor(InkOn(context.GetTheme() ? context.GetTheme()->Resolve(ground) : ground));
    context.SetFont(fontSize_, 0, 0, fontName_, bold_ ? Context::boldFont : short{0});
    String const text = Shortened(context, caption_, right);
    long const textWidth = ExtentOf(context, text).first;
    context.DrawText(static_cast<short>(((right - textWidth) >> 1) + 2), static_cast<short>(fontSize_ + 5),
                     text);
}

} // namespace Ostrinda
