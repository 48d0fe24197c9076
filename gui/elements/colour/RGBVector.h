#pragma once

#include "core/values/Anything.h"
#include "gui/elements/colour/ThemeRole.h"

namespace GUI {

/// A screen colour: red, green and blue of 8 bits each, and whether the screen can really show it.
///
/// A colour that was converted from a measured one may be outside what the screen can show; the
/// in-gamut flag says so and travels with the colour wherever it goes as a record.
///
/// A colour may have a role. In a window with a theme it is drawn as the theme has that role, and as its own
/// channels say elsewhere.
class RGBVector {
public:
    /// Black.
    RGBVector() = default;
    RGBVector(unsigned char red, unsigned char green, unsigned char blue)
        : red_(red), green_(green), blue_(blue) {}
    RGBVector(ThemeRole role, RGBVector const& withoutTheme) : RGBVector(withoutTheme) { role_ = role; }
    /// Reads the record that `GetAnything` makes, or text as in a description: three decimal numbers with
    /// commas, red first; the name of a role ("panel"), whose colour without a theme is that of "Light"; or
    /// numbers, a blank and a role ("0,0,0 ink"). Anything else throws `OutOfRangeException`.
    explicit RGBVector(Utilities::Anything const& value);
    explicit RGBVector(Utilities::String const& text);

    unsigned char GetRed() const { return red_; }
    unsigned char GetGreen() const { return green_; }
    unsigned char GetBlue() const { return blue_; }
    void SetRed(unsigned char red) { red_ = red; }
    void SetGreen(unsigned char green) { green_ = green; }
    void SetBlue(unsigned char blue) { blue_ = blue; }

    ThemeRole GetRole() const { return role_; }
    /// True unless set otherwise.
    bool IsInGamut() const { return inGamut_; }
    void SetInGamut(bool inGamut) { inGamut_ = inGamut; }

    /// A map with the keys "Red", "Green", "Blue" (short) and "IsInScreenGamut" (bool). In a record that is
    /// read the last may be absent: the colour then counts as one that the screen can show. A role is under
    /// "Role" (short); the key is absent without one.
    Utilities::Anything GetAnything() const;

    /// Takes that share of each channel away; 0 changes nothing and 100 gives black. A darker colour has no
    /// role.
    void Darker(unsigned short const& percent);

    bool operator==(RGBVector const&) const = default;

private:
    unsigned char red_ = 0;
    unsigned char green_ = 0;
    unsigned char blue_ = 0;
    bool inGamut_ = true;
    ThemeRole role_ = ThemeRole::None;
};

} // namespace GUI
