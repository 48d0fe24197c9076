#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/shell/TopLevel_PC.h"

#include <QApplication>
#include <QToolTip>
#include <algorithm>
#include <array>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* textFace = "Noto Sans";
constexpr int textSize = 14;

/// What F7 goes through. N5 is the neutral of Munsell value 5.
struct Surround {
    char const* name;
    std::optional<RGBVector> color;
};
std::array<Surround, 3> const& Surrounds() {
    static std::array<Surround, 3> const all{
        {{"Theme", {}}, {"N5", RGBVector(0x77, 0x77, 0x77)}, {"White", RGBVector(0xFF, 0xFF, 0xFF)}}};
    return all;
}

auto FindSurround(String const& name) {
    return std::find_if(Surrounds().begin(), Surrounds().end(),
                        [&name](Surround const& surround) { return name == surround.name; });
}

} // namespace

void TopLevel::ReadTheme(DescriptionTree const& description) {
    AttributeReader const reader(description);
    theme_ = reader.Text(WindowKeys::theme);
    surround_ = reader.Text(WindowKeys::surround);
    if (FindSurround(surround_) == Surrounds().end())
        throw OutOfRangeException("There is no surround \"" + surround_.GetStdString() + "\"");
    if (theme_.Length() != 0 && !Theme::Find(theme_))
        throw OutOfRangeException("There is no theme \"" + theme_.GetStdString() + "\"");
    UpdateTheme();
}

void TopLevel::UpdateTheme() {
    CallScope const call(element_);
    auto const ask = [&](char const* key) {
        DialogDataSource* const source = call.IsAttached() ? element_.GetDataSource() : nullptr;
        return source ? source->GetValue(element_.GetElementName(), key) : Anything();
    };
    Anything const theme = ask(WindowKeys::theme.key);
    Anything const surround = ask(WindowKeys::surround.key);
    if (!call.IsAttached()) return;
    // What isn't known leaves what there is.
    if (theme.IsOfTypeString() && (theme.GetString().Length() == 0 || Theme::Find(theme.GetString())))
        theme_ = theme.GetString();
    if (surround.IsOfTypeString() && FindSurround(surround.GetString()) != Surrounds().end())
        surround_ = surround.GetString();
    ApplyTheme();
}

void TopLevel::ApplyTheme() {
    if (!surface_ || !window_) return;
    auto theme = Theme::Find(theme_);
    if (!theme && window_->parentWidget()) {
        Theme const* const outer = CNorvelianSurface::Of(*window_->parentWidget()->window()).GetTheme();
        if (outer) theme = *outer;
    }
    if (theme && FindSurround(surround_)->color) theme->SetSurround(*FindSurround(surround_)->color);
    if (theme.has_value() != (surface_->GetTheme() != nullptr)) {
        QFont font = QApplication::font();
        if (theme) {
            font.setFamily(textFace);
            font.setPixelSize(textSize);
        }
        window_->setFont(font);
    }
    surface_->SetTheme(theme);
}

void TopLevel::TakeNextSurround() {
    if (!surface_ || !surface_->GetTheme()) return;
    auto const present = FindSurround(surround_);
    auto const next = present + 1 == Surrounds().end() ? Surrounds().begin() : present + 1;
    surround_ = next->name;
    ApplyTheme();
    CallScope const call(element_);
    if (DialogDataSource* const source = element_.GetDataSource())
        source->SetValue(element_.GetElementName(), WindowKeys::surround.key, surround_);
}

} // namespace GUI
