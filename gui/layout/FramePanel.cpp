#include "gui/layout/FramePanel.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/description/Attributes.h"

#include <tuple>

namespace GUI {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

constexpr char const* face = "Noto Sans";
constexpr short titleSize = 14;
constexpr short conditionSize = 12;
constexpr short padding = 12;
/// Of the texts in the head, from the panel's upper edge.
constexpr short baseLine = 21;
/// What a rounded corner takes of an edge.
constexpr long corner = 3;

/// Texts are placed by their upper edge; four fifths of a line are above the base line.
short TopOf(long height) { return static_cast<short>(baseLine - height * 4 / 5); }

} // namespace

bool FramePanel::IsIn(DescriptionTree const& description) {
    AttributeReader const reader(description);
    return reader.Has(title) || reader.Has(condition) || reader.Has(surround);
}

void FramePanel::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    titleKey_ = reader.Text(title);
    conditionKey_ = reader.Text(condition);
    surround_ = reader.Flag(surround);
    RegisterOnUpdate();
    ReadTexts();
}

void FramePanel::ReadTexts() {
    CallScope const call(*this);
    for (auto const& [attribute, key, text] :
         {std::tuple(&title, &titleKey_, &title_), std::tuple(&condition, &conditionKey_, &condition_)}) {
        Anything const value = GetElementName().Length() != 0 ? GetValue(String(attribute->key)) : Anything();
        if (!call.IsAttached()) return;
        *text = value.IsOfTypeString() ? value.GetString() : LanguageServiceInterface::GetTranslation(*key);
    }
}

long FramePanel::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    ReadTexts();
    return call.IsAttached() ? Pane::OnUpdate(command) : 0;
}

void FramePanel::OnLanguageChanged() {
    CallScope const call(*this);
    ReadTexts();
    if (call.IsAttached()) Pane::OnLanguageChanged();
}

void FramePanel::OnPaint(PlatformIndependentDeviceContext& context) {
    unsigned long paneWidth = 0;
    unsigned long paneHeight = 0;
    GetSize(paneWidth, paneHeight);
    auto const width = static_cast<long>(paneWidth);
    auto const height = static_cast<long>(paneHeight);
    RGBVector const window = Themed(ThemeRole::Window);
    context.SetPen(window, 1, PlatformIndependentDeviceContext::solid);
    context.SetBrush(window);
    context.FillRectangle(0, 0, static_cast<short>(width), static_cast<short>(height));
    RGBVector const ground = Themed(surround_ ? ThemeRole::Surround : ThemeRole::Panel);
    context.SetBrush(ground);
    context.SetPen(surround_ ? ground : Themed(ThemeRole::Line), 1, PlatformIndependentDeviceContext::solid);
    long const right = width - 1;
    long const bottom = height - 1;
    long const corners[][2] = {{corner, 0},
                               {right - corner, 0},
                               {right, corner},
                               {right, bottom - corner},
                               {right - corner, bottom},
                               {corner, bottom},
                               {0, bottom - corner},
                               {0, corner}};
    PlatformIndependentDeviceContext::Points outline(std::size(corners));
    for (std::uint32_t i = 0; i < std::size(corners); ++i) outline[i] = {corners[i][0], corners[i][1]};
    context.FillPolygon(outline);

    long titleWidth = 0;
    long lineHeight = 0;
    if (title_.Length() != 0) {
        context.SetFont(-titleSize, 0, 0, face, PlatformIndependentDeviceContext::boldFont);
        context.GetTextExtent(title_, titleWidth, lineHeight);
        context.SetTextColor(Themed(ThemeRole::Ink));
        context.DrawText(padding, TopOf(lineHeight), title_);
    }
    if (condition_.Length() == 0) return;
    long textWidth = 0;
    context.SetFont(-conditionSize, 0, 0, face, 0);
    context.GetTextExtent(condition_, textWidth, lineHeight);
    long const left = width - padding - textWidth;
    if (left < padding + titleWidth + padding) return;
    context.SetTextColor(Themed(ThemeRole::Ink2));
    context.DrawText(static_cast<short>(left), TopOf(lineHeight), condition_);
}

String FramePanel::GetToolTipText(unsigned short x, unsigned short y) {
    constexpr unsigned short head = 32;
    return y < head && condition_.Length() != 0 ? condition_ : Pane::GetToolTipText(x, y);
}

Accessible FramePanel::GetAccessible() {
    Accessible told;
    told.role = Accessible::Role::Group;
    told.name = title_;
    told.description = condition_;
    return told;
}

} // namespace GUI
