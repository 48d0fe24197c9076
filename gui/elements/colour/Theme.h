#pragma once

#include "core/base/String.h"
#include "gui/elements/colour/RGBVector.h"

#include <array>
#include <optional>

namespace GUI {

/// The colours of a window by their roles: "Light", "Dark", "Report" for paper and exported pictures, "Line"
/// for a screen that is read from two metres.
///
/// A window has one by its attribute "Theme", and hands it to the device context of each paint; what is drawn
/// with a colour that has a role is then drawn with the theme's. Without a theme such a colour is what it was
/// made with: the default of the component.
class Theme {
public:
    /// None for a name that no theme has.
    static std::optional<Theme> Find(Utilities::String const& name);

    Utilities::String const& GetName() const { return name_; }
    RGBVector const& Get(ThemeRole role) const { return colors_[static_cast<std::size_t>(role)]; }
    /// The theme's colour for one that has a role, and any other as it is.
    RGBVector const& Resolve(RGBVector const& color) const {
        return color.GetRole() == ThemeRole::None ? color : Get(color.GetRole());
    }
    /// Whether lines are drawn wider than on a screen, as "Report" has them.
    bool HasWideLines() const { return wideLines_; }
    /// What is around measured colours, in place of the theme's own.
    void SetSurround(RGBVector const& color) {
        colors_[static_cast<std::size_t>(ThemeRole::Surround)] = color;
    }

    bool operator==(Theme const&) const = default;

private:
    explicit Theme(std::size_t index);

    Utilities::String name_;
    std::array<RGBVector, themeRoleCount> colors_;
    bool wideLines_ = false;
};

/// The colour of a role where there may be no theme: that of "Light" then.
RGBVector Themed(ThemeRole role);

} // namespace GUI
