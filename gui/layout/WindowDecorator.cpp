#include "gui/layout/WindowDecorator.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/DecoratedWindow.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"

#include <algorithm>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::LanguageServiceInterface;

namespace {

constexpr Attribute targetKey{"Target", AttributeType::ElementName, "",
                              "Element that is decorated; the box around the decorator if absent"};
constexpr Attribute kindKey{"Kind", AttributeType::Text, "Focus", "Focus, Guides or Badge"};
constexpr Attribute colorKey{"Color", AttributeType::Colour, "29,95,166", "Of the lines, and of a badge"};
constexpr Attribute textColorKey{"TextColor", AttributeType::Colour, "255,255,255", "Of a badge's text"};
constexpr Attribute textKey{"Text", AttributeType::Text, "", "Of a badge; a key of the language service"};
constexpr Attribute visibleKey{"Visible", AttributeType::Flag, "Yes", "Whether it is drawn"};
constexpr Attribute decoratorAttributes[] = {targetKey, kindKey, colorKey, textColorKey, textKey, visibleKey};
constexpr auto attributeList =
    CommonAttributes::WithUnusedSizes(decoratorAttributes, "No effect: a decorator takes no room");
ElementRegistration<WindowDecorator, GUIElement> const
    registration({"WindowDecorator", "$Revision: 1.6 $", "GUI"}, attributeList);

constexpr long solid = PlatformIndependentDeviceContext::solid;

short Pixel(long place) { return static_cast<short>(std::clamp(place, -32768L, 32767L)); }

} // namespace

void WindowDecorator::Initialize(PlatformIndependentWindowID const& parent,
                                 DescriptionTree const& description, DialogDataSource* dataSource) {
    CallScope const call(*this);
    GUIElement::Initialize(parent, description, dataSource);
    SetSizeInformation(0, 0, 0, 0);
    AttributeReader const reader(description);
    target_ = reader.Text(targetKey);
    kind_ = reader.Text(kindKey);
    color_ = reader.Colour(colorKey);
    textColor_ = reader.Colour(textColorKey);
    textKey_ = reader.Text(textKey);
    text_ = LanguageServiceInterface::GetTranslation(textKey_);
    visible_ = reader.Flag(visibleKey);
    RegisterOnUpdate();
    OnUpdate("|NoRepaint");
}

long WindowDecorator::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (Anything const value = GetValue(targetKey.key); value.IsOfTypeString()) target_ = value.GetString();
    if (Anything const value = GetValue(textKey.key); value.IsOfTypeString()) {
        text_ = value.GetString();
        textKey_ = {};
    }
    if (Anything const value = GetValue(colorKey.key); value.IsValid()) color_ = RGBVector(value);
    if (Anything const value = GetValue(visibleKey.key); value.IsValid()) visible_ = value.GetBool();
    long const result = GUIElement::OnUpdate(command);
    bool const isQuiet = command.IsOfTypeString() && command.GetString().FindSubstring("|NoRepaint", 0) >= 0;
    if (!isQuiet && IsAttached()) RepaintWindow();
    return result;
}

void WindowDecorator::OnLanguageChanged() {
    if (textKey_.Length() != 0) text_ = LanguageServiceInterface::GetTranslation(textKey_);
    GUIElement::OnLanguageChanged();
}

GUIElement const& WindowDecorator::GetRoot() const {
    GUIElement const* root = this;
    while (GUIElement const* const outer = root->GetParentElement()) root = outer;
    return *root;
}

void WindowDecorator::RepaintWindow() {
    if (auto const* const window = dynamic_cast<DecoratedWindow const*>(&GetRoot()))
        window->RepaintDecorations();
}

WindowDecorator::Box WindowDecorator::GetBox(GUIElement const& element) {
    unsigned long x = 0;
    unsigned long y = 0;
    unsigned long width = 0;
    unsigned long height = 0;
    element.GetPosition(x, y);
    element.GetSize(width, height);
    Box box{static_cast<long>(x), static_cast<long>(y), 0, 0};
    // Places count from the pane that an element is in.
    for (GUIElement const* outer = element.GetParentElement(); outer; outer = outer->GetParentElement()) {
        if (!dynamic_cast<Pane const*>(outer)) continue;
        outer->GetPosition(x, y);
        box.left += static_cast<long>(x);
        box.top += static_cast<long>(y);
    }
    box.right = box.left + static_cast<long>(width);
    box.bottom = box.top + static_cast<long>(height);
    return box;
}

void WindowDecorator::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                              GUIElement const& element) const {
    if (!visible_) return;
    GUIElement const* target = &element;
    if (target_.Length() != 0) {
        try {
            target = &GetRoot().FindElement(target_);
        } catch (OutOfRangeException const&) {
            // There may be one by that name later.
            return;
        }
    }
    Box const box = GetBox(*target);
    if (box.right <= box.left || box.bottom <= box.top) return;
    if (kind_ == "Guides")
        DrawGuides(context, box);
    else if (kind_ == "Badge")
        DrawBadge(context, box);
    else
        DrawFocus(context, box);
}

void WindowDecorator::DrawFocus(PlatformIndependentDeviceContext& context, Box const& box) const {
    long distance = 2;
    for (RGBVector const& tone : {RGBVector(255, 255, 255), color_}) {
        context.SetPen(tone, 1, solid);
        context.DrawRectangle(Pixel(box.left - distance), Pixel(box.top - distance),
                              Pixel(box.right + distance), Pixel(box.bottom + distance));
        --distance;
    }
}

void WindowDecorator::DrawGuides(PlatformIndependentDeviceContext& context, Box const& box) const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetRoot().GetSize(width, height);
    context.SetPen(color_, 1, solid);
    for (long const x : {box.left, box.right - 1})
        context.DrawLine(Pixel(x), 0, Pixel(x), Pixel(static_cast<long>(height)));
    for (long const y : {box.top, box.bottom - 1})
        context.DrawLine(0, Pixel(y), Pixel(static_cast<long>(width)), Pixel(y));
}

void WindowDecorator::DrawBadge(PlatformIndependentDeviceContext& context, Box const& box) const {
    constexpr long radius = 8;
    context.SetFont(8, 0, 0, "Arial", PlatformIndependentDeviceContext::boldFont);
    long textWidth = 0;
    long textHeight = 0;
    context.GetTextExtent(text_, textWidth, textHeight);
    // As wide as its text, and at least round.
    long const half = std::max(radius, (textWidth + 8) / 2);
    context.SetBrush(color_);
    context.SetPen(RGBVector(255, 255, 255), 1, solid);
    context.FillEllipse(Pixel(box.right - half), Pixel(box.top - radius), Pixel(box.right + half),
                        Pixel(box.top + radius));
    context.SetTextColor(textColor_);
    context.DrawText(Pixel(box.right - textWidth / 2), Pixel(box.top - textHeight / 2), text_);
}

} // namespace GUI
