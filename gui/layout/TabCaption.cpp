#include "gui/layout/TabCaption.h"

#include "Diagnostics/Sink.h"
#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/TabColor.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

constexpr Attribute captionAttribute{"Caption", AttributeType::Text, "",
                                     "Text; a key of the language service"};
constexpr Attribute frameThickness{"FrameThickness", AttributeType::Number, "1",
                                   "Pen width of the lines between border pictures"};
constexpr Attribute fontName{"FontName", AttributeType::Text, "", "Typeface"};
constexpr Attribute fontSize{"FontSize", AttributeType::Number, "8", "Height in points",
                             false,      {-32768, 32767}};
constexpr Attribute useBitmaps{"UseBitmaps", AttributeType::Flag, "Yes",
                               "Border pictures; anything but \"Yes\" draws lines"};
constexpr Attribute flat{"Flat", AttributeType::Flag, "No", "Without borders, in the colours of the theme"};
constexpr Attribute toolTip{"ToolTipText", AttributeType::Text, "", "Tool tip; a key too"};
constexpr char const* ofStrip = "Of the tab; read by the strip";
constexpr Attribute attributeList[] = {captionAttribute,
                                       frameThickness,
                                       fontName,
                                       fontSize,
                                       useBitmaps,
                                       flat,
                                       TabColor::baseColor,
                                       toolTip,
                                       {"ID", AttributeType::Text, "0", ofStrip},
                                       {"InternalName", AttributeType::Text, "", ofStrip},
                                       {"Handler", AttributeType::Text, "", ofStrip},
                                       {"Bitmap", AttributeType::Flag, "No", ofStrip},
                                       {"Rise", AttributeType::Text, "", ofStrip},
                                       {"Increase", AttributeType::Text, "", ofStrip},
                                       {"TabHeightUnselected", AttributeType::Text, "", ofStrip}};
ElementRegistration<TabCaption, Pane> const registration({"TabCaption", "$Revision: 1.13 $", "GUI"},
                                                         attributeList);

constexpr char const* enabledKey = "TabEnabled";
constexpr char const* firstKey = "IsFirstTab";
constexpr char const* lastKey = "IsLastTab";
constexpr char const* brokenKey = "IsLastTabBroken";
constexpr char const* besideActiveKey = "IsNeighbourActiveTab";

/// Height of the body of a tab with border pictures.
constexpr short bodyHeight = 14;
/// Widths of the border pictures.
constexpr short sideWidth = 3;
constexpr short endWidth = 16;
constexpr short brokenWidth = 32;
/// What the text has around it.
constexpr long textMargin = 19;
constexpr long endTextMargin = 29;
constexpr long brokenTextMargin = 45;
constexpr long flatTextMargin = 32;
/// The line over the selected one.
constexpr short flatMark = 3;

RGBVector const black(0, 0, 0);
RGBVector const white(255, 255, 255);
RGBVector const disabledText(196, 196, 196);
RGBVector const selectedFace(196, 196, 196);
RGBVector const quietFace(157, 157, 157);
RGBVector const topLine(203, 203, 203);
RGBVector const aboveTabs(63, 63, 63);

constexpr long solid = PlatformIndependentDeviceContext::solid;

RGBVector Darkened(RGBVector color, unsigned short percent) {
    color.Darker(percent);
    return color;
}

/// The right edge of a tab that is cut off: pieces of three pixels that go one to the right, back, one to
/// the left, back.
void DrawTornEdge(PlatformIndependentDeviceContext& context, short right, short top, short end,
                  short bottom) {
    short shift = 0;
    short step = 1;
    for (auto y = top; y < end; y = static_cast<short>(y + 3)) {
        auto const next = std::min<short>(static_cast<short>(y + 3), static_cast<short>(bottom - 1));
        auto const x = static_cast<short>(right + shift - 2);
        context.DrawLine(x, y, x, next);
        shift = static_cast<short>(shift + step);
        if (shift != 2 && shift != -2) continue;
        step = static_cast<short>(-step);
        shift = 0;
    }
}

} // namespace

void TabCaption::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource) {
    CallScope const call(*this);
    Pane::Initialize(parent, description, dataSource);
    SetFrame(false);
    try {
        ReadAttributes(description);
    } catch (...) {
        Diagnostics::DropException("TabCaption::Initialize");
    }
    caption_ = LanguageServiceInterface::GetTranslation(captionKey_);
    // The border pictures leave corners free.
    SetLeavesPixels(useBitmaps_ && !flat_);
    RegisterOnUpdate();
    AskCaption();
}

void TabCaption::ReadAttributes(DescriptionTree const& description) {
    AttributeReader const reader(description);
    toolTipKey_ = reader.Text(toolTip);
    captionKey_ = reader.Text(captionAttribute);
    frameThickness_ = reader.Long(frameThickness);
    fontName_ = reader.Text(fontName);
    fontSize_ = reader.Text(fontSize).GetShort();
    useBitmaps_ = reader.Flag(useBitmaps);
    flat_ = reader.Flag(flat);
    baseColor_ = TabColor::Read(description, baseColor_);
}

bool TabCaption::Is(char const* key) {
    Anything const answer = GetValue(key);
    return answer.IsValid() && answer.GetBool();
}

bool TabCaption::IsTabEnabled() {
    Anything const answer = GetValue(enabledKey);
    return !answer.IsValid() || answer.GetBool();
}

void TabCaption::AskCaption() {
    Anything const answer = GetValue(Values::caption);
    if (!answer.IsOfTypeString()) return;
    caption_ = answer.GetString();
    captionKey_ = {};
}

long TabCaption::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    AskCaption();
    TellAccessibleChange();
    return Pane::OnUpdate(command);
}

void TabCaption::OnLanguageChanged() {
    if (captionKey_.Length() != 0) caption_ = LanguageServiceInterface::GetTranslation(captionKey_);
    Pane::OnLanguageChanged();
}

// ------------------------------------------------------------------ sizes

TabCaption::Size TabCaption::GetShortSize() const {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    return {static_cast<short>(width), static_cast<short>(height)};
}

short TabCaption::GetBodyTop() const { return static_cast<short>(GetShortSize().height - bodyHeight); }

void TabCaption::OnGetDeviceContext(PlatformIndependentDeviceContext& context) {
    CallScope const call(*this);
    context.SetTextColor(black);
    context.SetFont(fontSize_, 0, 0, fontName_, PlatformIndependentDeviceContext::boldFont);
    Anything const longest = GetValue("MaxCaption");
    long textWidth = 0;
    long textHeight = 0;
    context.GetTextExtent(longest.IsOfTypeString() ? longest.GetString() : caption_, textWidth, textHeight);
    auto const ask = [this](char const* key, bool otherwise) {
        try {
            return Is(key);
        } catch (...) {
            Diagnostics::DropException("TabCaption::OnGetDeviceContext");
            return otherwise;
        }
    };
    bool const broken = ask(brokenKey, false);
    bool const last = ask(lastKey, true);
    if (!IsAttached()) return;
    long const margin = flat_    ? flatTextMargin
                        : broken ? brokenTextMargin
                        : last   ? endTextMargin
                                 : textMargin;
    auto const width = static_cast<unsigned long>(textWidth + margin);
    unsigned long ignored = 0;
    unsigned long minimalHeight = 0;
    unsigned long maximalHeight = 0;
    GUIElement::GetSizeInformation(ignored, ignored, minimalHeight, maximalHeight);
    SetSizeInformation(width, width, minimalHeight, std::max(minimalHeight, maximalHeight));
}

void TabCaption::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                    unsigned long& minimalHeight, unsigned long& maximalHeight) {
    CallScope const call(*this);
    UpdateDeviceContext();
    GUIElement::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

// ------------------------------------------------------------------ drawing

void TabCaption::OnPaint(PlatformIndependentDeviceContext& context) {
    CallScope const call(*this);
    AskCaption();
    if (flat_) return IsAttached() ? DrawFlat(context) : void();
    if (IsAttached()) DrawFrame(context);
    if (IsAttached()) DrawCaption(context);
}

void TabCaption::DrawCaption(PlatformIndependentDeviceContext& context) {
    if (useBitmaps_) {
        context.SetTextColor(black);
        context.SetFont(fontSize_, 0, 0, fontName_, 0);
        context.DrawText(8, 2, caption_);
        return;
    }
    context.SetTextColor(IsTabEnabled() ? black : disabledText);
    bool const selected = Is(Values::state);
    auto const height = static_cast<std::uint32_t>(GetShortSize().height);
    auto const y = static_cast<short>((height - static_cast<std::uint32_t>(fontSize_)) / 2 - 2);
    context.SetFont(fontSize_, 0, 0, fontName_, selected ? PlatformIndependentDeviceContext::boldFont : 0);
    context.DrawText(selected ? 4 : 6, y, caption_);
}

void TabCaption::DrawFlat(PlatformIndependentDeviceContext& context) {
    bool const selected = Is(Values::state);
    bool const enabled = IsTabEnabled();
    if (!IsAttached()) return;
    auto const [width, height] = GetShortSize();
    RGBVector const ground = Themed(selected ? ThemeRole::Window : ThemeRole::Header);
    context.SetBrush(ground);
    context.SetPen(ground, 1, solid);
    context.FillRectangle(0, 0, width, height);
    if (selected) {
        context.SetPen(Themed(ThemeRole::Line), 1, solid);
        context.DrawLine(0, flatMark, 0, height);
        context.DrawLine(static_cast<short>(width - 1), flatMark, static_cast<short>(width - 1), height);
        context.SetBrush(Themed(ThemeRole::Accent));
        context.SetPen(Themed(ThemeRole::Accent), 1, solid);
        context.FillRectangle(0, 0, width, flatMark);
    }
    long textWidth = 0;
    long textHeight = 0;
    context.SetFont(fontSize_, 0, 0, fontName_, selected ? PlatformIndependentDeviceContext::boldFont : 0);
    context.GetTextExtent(caption_, textWidth, textHeight);
    context.SetTextColor(Themed(!enabled ? ThemeRole::Ink3 : selected ? ThemeRole::Ink : ThemeRole::Ink2));
    context.DrawText(static_cast<short>((width - textWidth) / 2),
                     static_cast<short>((height - textHeight) / 2), caption_);
}

void TabCaption::DrawFrame(PlatformIndependentDeviceContext& context) {
    if (!useBitmaps_) return DrawLines(context);
    DrawRightBorder(context);
    DrawLeftBorder(context);
    DrawTopLine(context);
    DrawBottomLine(context);
    context.SetBrush(aboveTabs);
    context.SetPen(aboveTabs, frameThickness_, solid);
    context.FillRectangle(0, 0, GetShortSize().width, GetBodyTop());
}

void TabCaption::DrawRightBorder(PlatformIndependentDeviceContext& context) {
    bool const selected = Is(Values::state);
    bool const broken = Is(brokenKey);
    bool const last = !broken && Is(lastKey);
    short border = sideWidth;
    char const* picture = selected ? "TabBorderRight Selected" : "TabBorderRight";
    if (broken) {
        border = brokenWidth;
        picture = selected ? "TabBorderMostLeftBrokenSel" : "TabBorderMostRightBroken";
    } else if (last) {
        border = endWidth;
        picture = selected ? "TabBorderMostRight Selected" : "TabBorderMostRight";
    }
    RGBVector const& face = selected ? selectedFace : quietFace;
    SetBackgroundColor(face);
    context.SetBrush(face);
    context.SetBackgroundColor(face);
    context.SetPen(face, frameThickness_, solid);
    Size const size = GetShortSize();
    auto const x = static_cast<short>(size.width - border);
    context.FillRectangle(sideWidth, GetBodyTop(), x, size.height);
    context.DrawImage(x, 0, picture);
}

void TabCaption::DrawLeftBorder(PlatformIndependentDeviceContext& context) {
    char const* picture = "TabBorderLeft";
    if (Is(Values::state))
        picture = "TabBorderLeft Selected";
    else if (Is(firstKey))
        picture = "TabBorderMostLeft";
    else if (Is(besideActiveKey))
        picture = "TabBorderLeft2";
    context.DrawImage(0, 0, picture);
}

void TabCaption::DrawTopLine(PlatformIndependentDeviceContext& context) {
    context.SetPen(topLine, frameThickness_, solid);
    short const border = Is(lastKey) ? endWidth : sideWidth;
    short const top = GetBodyTop();
    context.DrawLine(sideWidth, top, static_cast<short>(GetShortSize().width - border), top);
}

void TabCaption::DrawBottomLine(PlatformIndependentDeviceContext& context) {
    // A selected tab is open towards its page.
    if (Is(Values::state)) return;
    constexpr short besideActive = 7;
    short const left = !Is(firstKey) && Is(besideActiveKey) ? besideActive : 0;
    Size const size = GetShortSize();
    auto const y = static_cast<short>(size.height - 1);
    context.DrawLine(left, y, size.width, y);
}

void TabCaption::DrawLines(PlatformIndependentDeviceContext& context) {
    RGBVector const dark = Darkened(baseColor_, 60);
    RGBVector const medium = Darkened(baseColor_, 30);
    bool const broken = Is(brokenKey);
    bool const selected = Is(Values::state);
    auto const [right, bottom] = GetShortSize();
    auto const line = [&context](int x1, int y1, int x2, int y2) {
        context.DrawLine(static_cast<short>(x1), static_cast<short>(y1), static_cast<short>(x2),
                         static_cast<short>(y2));
    };
    context.SetBrush(baseColor_);
    context.SetPen(baseColor_, 0, solid);
    context.FillRectangle(0, 0, right, bottom);
    // A tab that isn't selected stands two pixels lower, and as much further in.
    int const in = selected ? 0 : 2;
    int const end = selected ? bottom : bottom - 2;
    context.SetPen(white, 1, solid);
    if (!selected) line(0, bottom - 1, right, bottom - 1);
    line(in, in + 2, in, end);
    line(in, in + 2, in + 2, in);
    line(in + 2, in, right - (broken ? 1 : 0) - (selected ? 2 : 3), in);
    context.SetPen(dark, 1, solid);
    if (broken)
        return DrawTornEdge(context, right, static_cast<short>(in),
                            static_cast<short>(selected ? bottom - 1 : bottom), bottom);
    line(right - 2, in, right - 2, end);
    context.SetPen(medium, 1, solid);
    line(right - 1, in + 2, right - 1, end);
}

// ------------------------------------------------------------------ the user

bool TabCaption::OnLeftButtonDown(KeyState /*keyState*/, long /*x*/, long /*y*/) {
    CallScope const call(*this);
    Anything::MapOfAnythings told;
    told[CommonAttributes::elementName.key] = GetElementName();
    Fire("OnLeftButtonDown", told);
    return true;
}

String TabCaption::GetToolTipText(unsigned short x, unsigned short y) {
    CallScope const call(*this);
    String const said = Pane::GetToolTipText(x, y);
    return said.Length() != 0 ? said : LanguageServiceInterface::GetTranslation(toolTipKey_);
}

Accessible TabCaption::GetAccessible() {
    CallScope const call(*this);
    Accessible told = Pane::GetAccessible();
    told.role = Accessible::Role::Tab;
    if (Anything const said = GetValue(Values::accessibleName); !said.IsOfTypeString()) {
        told.description = told.name;
        told.name = caption_;
    }
    told.isEnabled = IsTabEnabled();
    told.isPressable = told.isEnabled;
    told.isSelected = Is(Values::state);
    return told;
}

} // namespace GUI
