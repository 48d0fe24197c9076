#include "gui/press/PaperPressButton.h"

#include "Utilities/NamingService.h"
#include "gui/elements/Pane.h"
#include "gui/elements/SelectionServiceInterface.h"
#include "gui/elements/Topics.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "gui/press/PressText.h"

#include <algorithm>

namespace Ostrinda {

using GUI::RGBVector;
using Utilities::Anything;
using Utilities::String;

namespace {

using Context = GUI::PlatformIndependentDeviceContext;

enum Picture : std::size_t {
    normal,
    pressed,
    focused,
    disabled,
    over,
    activeNormal,
    activePressed,
    activeDisabled,
    activeOver
};
/// The picture with the focus is the normal one.
constexpr std::array<char const*, 9> suffixes{"U", "D", "U", "X", "O", "UA", "DA", "XA", "OA"};

constexpr char const* warningPicture = "Warnung";
constexpr long warningTop = 15;
constexpr long warningSize = 20;
constexpr char const* face = "Arial";
constexpr short lineFont = 11;
constexpr short questionFont = 9;
constexpr long topLineMiddle = 11;
constexpr long bottomLineMiddle = 83;
constexpr long numberFoot = 72;
constexpr long questionMargin = 3;
constexpr short questionTop = 4;

template <class Service> Utilities::SmartPointer<Service> Find(char const* name) {
    if (!Utilities::NamingService::Instance()->IsRegistered(name)) return {};
    return Utilities::ResolveComponent<Service>(name);
}

short Short(long value) { return static_cast<short>(value); }

/// At the foot of its square.
void DrawWarning(Context& context, long width) {
    auto const images = Find<GUI::ImageServiceInterface>("ImageService");
    auto const picture =
        !images.IsNull() && images->HasBitmap(warningPicture) ? images->GetBitmap(warningPicture) : nullptr;
    if (picture.IsNull()) return;
    long const gap = std::max(warningSize - static_cast<long>(picture->GetHeight()), 0L);
    context.DrawImage(Short(width / 2 - warningSize / 2), Short(warningTop + gap), warningPicture);
}

void DrawCentred(Context& context, String const& whole, long width, long middle) {
    constexpr long margin = 2;
    String const text = Shortened(context, whole, width - 2 * margin);
    auto const [textWidth, textHeight] = ExtentOf(context, text);
    context.DrawText(Short(width / 2 - textWidth / 2), Short(middle - textHeight / 2), text);
}

} // namespace

void PaperPressButton::Initialize(GUI::PlatformIndependentWindowID const& parent,
                                  GUI::DescriptionTree const& description,
                                  GUI::DialogDataSource* dataSource) {
    Button::Initialize(parent, description, dataSource);
    number_ = GUI::AttributeReader(description).Text(number);
}

void PaperPressButton::OnDetach() {
    if (mouseOver_) OnMouseOver(false);
    Button::OnDetach();
}

bool PaperPressButton::LoadPictures() {
    loaded_ = {};
    auto const images = Find<GUI::ImageServiceInterface>("ImageService");
    if (images.IsNull()) return false;
    for (std::size_t i = 0; i < pictureCount; ++i) {
        String const name = String(pictureName) + suffixes[i];
        auto const picture = images->HasBitmap(name) ? images->GetBitmap(name) : nullptr;
        if (picture.IsNull()) return false;
        if (i == normal) {
            pictureWidth_ = picture->GetWidth();
            pictureHeight_ = picture->GetHeight();
        }
        loaded_[i] = true;
    }
    return true;
}

void PaperPressButton::ReadFace() {
    if (Anything const value = GetValue("PaperPressActive"); value.IsValid()) active_ = value.GetBool();
    if (Anything const value = GetValue("PaperPressAttention"); value.IsValid()) attention_ = value.GetBool();
    if (Anything const value = GetValue("TopLineColor"); value.IsValid()) topLineColor_ = RGBVector(value);
    if (Anything const value = GetValue("TopLineText"); value.IsOfTypeString()) topLine_ = value.GetString();
    if (Anything const value = GetValue("BottomLineText"); value.IsOfTypeString())
        bottomLine_ = value.GetString();
}

String PaperPressButton::GetTexts() const {
    String texts;
    for (String const& text : {topLine_, bottomLine_, number_})
        if (text.Length() != 0) texts += (texts.Length() == 0 ? String() : String(", ")) + text;
    return texts;
}

std::size_t PaperPressButton::ChoosePicture(GUI::ButtonState const& state) const {
    std::size_t const start =
        active_ ? (mouseOver_ ? activeOver : activeNormal) : (mouseOver_ ? over : normal);
    std::size_t const down = active_ ? activePressed : pressed;
    std::size_t const off = active_ ? activeDisabled : disabled;
    if (state.selected && loaded_[down]) return down;
    if (state.focused) return start;
    return state.disabled && loaded_[off] ? off : start;
}

void PaperPressButton::PaintFace(Context& context, GUI::ButtonState const& state, short width) {
    if (std::size_t const picture = ChoosePicture(state); loaded_[picture])
        context.DrawImage(0, 0, String(pictureName) + suffixes[picture]);
    if (attention_) DrawWarning(context, width);
    context.SetBackgroundColor(RGBVector(255, 255, 255));
    if (active_) {
        context.SetFont(lineFont, 0, 0, face, Context::boldFont);
        context.SetTextColor(topLineColor_);
        DrawCentred(context, topLine_, width, topLineMiddle);
        DrawCentred(context, bottomLine_, width, bottomLineMiddle);
        if (topLineColor_ == RGBVector()) {
            context.SetFont(questionFont, 0, 0, face, Context::boldFont);
            context.SetTextColor(RGBVector(100, 100, 100));
            context.DrawText(Short(questionMargin), questionTop, "?");
            context.DrawText(Short(width - questionMargin - ExtentOf(context, "?").first), questionTop, "?");
        }
    }
    context.SetFont(lineFont, 0, 0, face, Context::boldFont);
    context.SetTextColor(topLineColor_);
    auto const [textWidth, textHeight] = ExtentOf(context, number_);
    context.DrawText(Short(width - textWidth - 1), Short(numberFoot - textHeight), number_);
}

void PaperPressButton::OnMouseOver(bool over) {
    if (mouseOver_ == over) return;
    mouseOver_ = over;
    auto const selection = Find<GUI::SelectionServiceInterface>("SelectionService");
    if (selection.IsNull()) return;
    GUI::SelectableObject* const holder = selection->GetSelection(GUI::Topics::propertyInspector);
    if (over) {
        GUI::CallScope const call(*this);
        // A pane that loses the selection shows it no longer.
        if (auto* const loser = dynamic_cast<GUI::Pane*>(holder))
            loser->OnSelectionChanged(GUI::Topics::propertyInspector, false);
        if (call.IsAttached()) selection->SetSelection(GUI::Topics::propertyInspector, this);
    } else if (holder == this) {
        selection->SetSelection(GUI::Topics::propertyInspector, nullptr);
    }
}

} // namespace Ostrinda
