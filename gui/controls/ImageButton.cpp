#include "gui/controls/ImageButton.h"

#include "Utilities/LanguageServiceInterface.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/Topics.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<ImageButton> const creator(ImageButton::componentDescription);
constexpr Attribute attributes[] = {ImageButton::caption, ControlAttributes::toolTipText,
                                    ControlAttributes::accessibleName};

constexpr long longestImageName = 30;

} // namespace

AttributesOf<ImageButton> const ImageButton::attributeTable("ImageButton", &Pane::attributeTable, attributes);

void ImageButton::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                             DialogDataSource* dataSource) {
    Pane::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    caption_ = reader.Text(caption);
    toolTipKey_ = reader.Text(ControlAttributes::toolTipText);
    toolTip_ = LanguageServiceInterface::GetTranslation(toolTipKey_);
    nameKey_ = reader.Text(ControlAttributes::accessibleName);
    hasBackground_ = reader.HasColour(CommonAttributes::backgroundColor);
    SetLeavesPixels(!hasBackground_);
    RegisterOnUpdate();
    OnUpdate({});
}

void ImageButton::OnPaint(PlatformIndependentDeviceContext& context) {
    if (hasBackground_) Pane::OnPaint(context);
    String const name = caption_ + state_;
    context.DrawImage(0, 0, name.Mid(std::max(0L, name.Length() - longestImageName), longestImageName));
}

void ImageButton::AskState() {
    state_ = up;
    if (Anything const enable = GetValue(Values::enable); enable.IsValid() && !enable.GetBool())
        state_ = disabled;
    else if (Anything const state = GetValue(Values::state); state.IsValid() && state.GetBool())
        state_ = down;
}

long ImageButton::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    AskState();
    if (Anything const value = GetValue(Values::caption); value.IsOfTypeString())
        caption_ = value.GetString();
    if (Anything const value = GetValue(Values::toolTipText); value.IsOfTypeString()) {
        toolTip_ = value.GetString();
        toolTipKey_ = {};
    }
    TellAccessibleChange();
    return Pane::OnUpdate(command);
}

void ImageButton::ShowState() {
    if (!IsAttached()) return;
    TellAccessibleChange();
    Repaint();
}

Accessible ImageButton::GetAccessible() {
    CallScope const call(*this);
    Accessible told;
    told.role = Accessible::Role::Button;
    Anything const said = GetValue(Values::accessibleName);
    if (said.IsOfTypeString())
        told.name = said.GetString();
    else if (nameKey_.Length() != 0)
        told.name = LanguageServiceInterface::GetTranslation(nameKey_);
    else
        told.name = toolTip_.Length() != 0 ? toolTip_ : caption_;
    told.isPressable = !IsDisabled();
    told.isEnabled = !IsDisabled();
    told.isPressed = state_ == down;
    return told;
}

bool ImageButton::OnLeftButtonDown(KeyState /*keyState*/, long x, long y) {
    if (IsDisabled()) return false;
    mousePosition_ = {x, y};
    mouseDown_ = true;
    state_ = down;
    ShowState();
    SetMouseCapture(true);
    return true;
}

bool ImageButton::OnLeftButtonUp(long x, long y) {
    if (IsDisabled()) return false;
    CallScope const call(*this);
    mousePosition_ = {x, y};
    SetMouseCapture(false);
    mouseDown_ = false;
    state_ = IsInside() ? over : up;
    try {
        if (IsInside() && !SuppressClick()) Fire(Events::click, GetElementName());
    } catch (...) {
        ShowState();
        throw;
    }
    ShowState();
    return true;
}

bool ImageButton::OnMouseMove(long x, long y) {
    CallScope const call(*this);
    String const former = state_;
    mousePosition_ = {x, y};
    if (!IsInside())
        AskState();
    else if (!IsDisabled())
        state_ = mouseDown_ || state_ == down ? down : over;
    if (!(state_ == former) && IsAttached()) ShowState();
    return !IsDisabled();
}

bool ImageButton::OnMouseLeave() { return OnMouseMove(-1, -1); }

String ImageButton::GetToolTipText(unsigned short /*x*/, unsigned short /*y*/) { return toolTip_; }

void ImageButton::OnLanguageChanged() {
    if (toolTipKey_.Length() != 0) toolTip_ = LanguageServiceInterface::GetTranslation(toolTipKey_);
    Pane::OnLanguageChanged();
}

bool ImageButton::IsInside() {
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    auto const [x, y] = mousePosition_;
    return x >= 0 && x < static_cast<long>(width) && y >= 0 && y < static_cast<long>(height);
}

String ImageButton::GetState() { return state_; }

bool ImageButton::SuppressClick() { return false; }

} // namespace GUI
