#include "gui/press/TrendsPressSection.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/NamingService.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/press/PressAttributes.h"
#include "gui/press/PressText.h"

namespace Ostrinda {

using GUI::RGBVector;
using GUI::ThemeRole;
using Utilities::Anything;
using Utilities::String;

namespace {

using Context = GUI::PlatformIndependentDeviceContext;

constexpr GUI::Attribute barHeightKey{"BarHeight", GUI::AttributeType::Number, "10",
                                      "Height of the bar at the foot"};
constexpr GUI::Attribute cardKey{"Card", GUI::AttributeType::Flag, "No",
                                 "A card with patch and verdict in place of the picture"};
constexpr GUI::Attribute attributeList[] = {PressAttributes::fontName, PressAttributes::fontSize,
                                            PressAttributes::bold, barHeightKey, cardKey};

GUI::ElementRegistration<TrendsPressSection, GUI::Pane> const
    registration({"TrendsPressSection", "$Revision: 1.8 $", "Ostrinda"}, attributeList);

constexpr char const* pictureName = "TrendPressSection";
constexpr long pictureWidth = 57;
constexpr long pictureHeight = 75;
/// The band of the top line.
constexpr long bandHeight = 17;
constexpr long margin = 5;
constexpr long nameHeight = 20;

RGBVector const barColor(45, 57, 62);
RGBVector const white(255, 255, 255);
RGBVector const ink{ThemeRole::Ink, RGBVector()};
RGBVector const quietInk{ThemeRole::Ink2, RGBVector(74, 74, 74)};
RGBVector const cardColor{ThemeRole::Panel, white};
RGBVector const surround{ThemeRole::Surround, RGBVector(198, 198, 198)};
RGBVector const cardLine{ThemeRole::Line, RGBVector(207, 207, 207)};
RGBVector const cardOutline{ThemeRole::Border, RGBVector(122, 122, 122)};

short Short(long value) { return static_cast<short>(value); }

void FillBox(Context& context, RGBVector const& color, long left, long top, long right, long bottom) {
    context.SetBrush(color);
    context.SetPen(color, 1, Context::solid);
    context.FillRectangle(Short(left), Short(top), Short(right), Short(bottom));
}

/// Of the picture; without it what it has room for.
std::pair<long, long> PictureSize() {
    constexpr char const* service = "ImageService";
    if (!Utilities::NamingService::Instance()->IsRegistered(service)) return {pictureWidth, pictureHeight};
    auto const images = Utilities::ResolveComponent<GUI::ImageServiceInterface>(service);
    auto const picture = images->HasBitmap(pictureName) ? images->GetBitmap(pictureName) : nullptr;
    if (picture.IsNull()) return {pictureWidth, pictureHeight};
    return {static_cast<long>(picture->GetWidth()), static_cast<long>(picture->GetHeight())};
}

} // namespace

void TrendsPressSection::Initialize(GUI::PlatformIndependentWindowID const& parent,
                                    GUI::DescriptionTree const& description,
                                    GUI::DialogDataSource* dataSource) {
    GUI::CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    GUI::AttributeReader const reader(description);
    fontName_ = reader.Text(PressAttributes::fontName);
    fontSize_ = reader.Text(PressAttributes::fontSize).GetShort();
    bold_ = reader.Flag(PressAttributes::bold);
    barHeight_ = reader.Long(barHeightKey);
    card_ = reader.Flag(cardKey);
    RegisterOnUpdate();
    OnUpdate("Properties");
}

long TrendsPressSection::OnUpdate(Anything const& command) {
    GUI::CallScope const call(*this);
    long const result = ReadUpdate(command);
    for (auto const& [key, text] :
         {std::pair("ColorName", &colorName_), {"TopLineText", &topLine_}, {"PressSectionText", &unit_}})
        if (Anything const value = GetValue(key); value.IsOfTypeString()) *text = value.GetString();
    if (Anything const value = GetValue("TopLineColor"); value.IsValid()) topLineColor_ = RGBVector(value);
    if (Anything const value = GetValue("BackgroundColor"); value.IsValid())
        SetBackgroundColor(RGBVector(value));
    if (card_) {
        if (Anything const value = GetValue("Verdict"); value.IsOfTypeString())
            verdict_ = GUI::FindVerdict(value.GetString());
        if (Anything const value = GetValue("IsActive"); value.IsValid()) active_ = value.GetBool();
    }
    if (IsAttached() && !HasNoRepaint(command)) Repaint();
    return result;
}

void TrendsPressSection::SetFont(Context& context) const {
    context.SetFont(fontSize_, 0, 0, fontName_, bold_ ? Context::boldFont : short{0});
}

void TrendsPressSection::OnPaint(Context& context) {
    Pane::OnPaint(context);
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    if (card_)
        PaintCard(context, static_cast<long>(width), static_cast<long>(height));
    else
        PaintUnit(context, static_cast<long>(width), static_cast<long>(height));
}

void TrendsPressSection::PaintUnit(Context& context, long width, long height) const {
    FillBox(context, barColor, 0, height - barHeight_, width, height);
    auto const [imageWidth, imageHeight] = PictureSize();
    long const top = height - imageHeight;
    context.DrawImage(0, Short(top), pictureName);
    FillBox(context, topLineColor_, 0, top, imageWidth, top + bandHeight);
    SetFont(context);
    context.SetTextColor(InkOn(topLineColor_));
    context.DrawText(Short(imageWidth - ExtentOf(context, topLine_).first - margin), Short(top + 1),
                     topLine_);
    context.SetTextColor(ink);
    context.DrawText(Short(margin), Short(top + 1 - nameHeight),
                     Shortened(context, colorName_, width - 2 * margin));
    context.SetTextColor(white);
    auto const [unitWidth, unitHeight] = ExtentOf(context, unit_);
    context.DrawText(Short(imageWidth - unitWidth - margin), Short(top + imageHeight - unitHeight - 2),
                     unit_);
}

void TrendsPressSection::PaintCard(Context& context, long width, long height) const {
    constexpr long padding = 10;
    constexpr long patch = 36;
    constexpr long textLeft = padding + patch + 8;
    constexpr long lineHeight = 18;
    constexpr short sign = 16;
    context.SetBrush(cardColor);
    context.SetPen(active_ ? ink : cardOutline, active_ ? 2 : 1, Context::solid);
    // A wide pen is centred on the outline.
    short const edge = active_ ? 1 : 0;
    context.FillRectangle(edge, edge, Short(width), Short(height));
    constexpr long around = 4;
    FillBox(context, surround, padding - around, padding - around, padding + patch + around,
            padding + patch + around);
    FillBox(context, topLineColor_, padding, padding, padding + patch, padding + patch);
    long const room = width - textLeft - padding / 2;
    context.SetFont(fontSize_, 0, 0, fontName_, 0);
    context.SetTextColor(quietInk);
    context.DrawText(Short(textLeft), Short(padding), Shortened(context, unit_, room));
    context.SetFont(fontSize_, 0, 0, fontName_, Context::boldFont);
    context.SetTextColor(ink);
    context.DrawText(Short(textLeft), Short(padding + lineHeight), Shortened(context, colorName_, room));
    long const lineTop = padding + patch + padding;
    context.SetPen(cardLine, 1, Context::solid);
    context.DrawLine(Short(padding), Short(lineTop), Short(width - padding), Short(lineTop));
    if (!verdict_) return;
    // Near its colour the sign has none.
    GUI::DrawVerdictSign(context, *verdict_, GUI::VerdictTones::InInk(cardColor), Short(padding),
                         Short(lineTop + padding), sign);
    context.SetFont(fontSize_, 0, 0, fontName_, 0);
    context.SetTextColor(ink);
    String const word = Utilities::LanguageServiceInterface::GetTranslation(GUI::WordOf(*verdict_));
    long const wordLeft = padding + sign + padding / 2;
    context.DrawText(Short(wordLeft), Short(lineTop + padding),
                     Shortened(context, word, width - wordLeft - 4));
}

} // namespace Ostrinda
