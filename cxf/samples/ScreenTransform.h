#pragma once

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/conditions/NVSpectrum.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace Norvelian::ColorExchangeFormat {

class Sample;

/// What a screen is told to show for a colour: device values and whether the screen can show the colour
/// at all. It's the end of the way: no conversion takes one, so that nothing is converted twice.
class ScreenColour {
public:
    std::uint8_t GetRed() const { return red_; }
    std::uint8_t GetGreen() const { return green_; }
    std::uint8_t GetBlue() const { return blue_; }
    /// False if the shown colour differs from the wanted one by more than one unit of CIE 1976 delta E.
    bool IsInGamut() const { return inGamut_; }
    bool operator==(ScreenColour const&) const = default;

private:
    friend class ScreenTransform;
    std::uint8_t red_ = 0;
    std::uint8_t green_ = 0;
    std::uint8_t blue_ = 0;
    bool inGamut_ = true;
};

/// Colours to device RGB of one screen, by Little CMS and the screen's ICC profile.
///
/// Spectra are reduced to tristimulus values under D50 and 2 degrees, which is the profile connection
/// space; colours under another white are adapted by linear Bradford. The white of a spectrum of light
/// is the equal-energy white. The rendering intent is media-relative colorimetric, without black-point
/// compensation, unless absolute is asked for: the perfect diffuser shows as the screen's white.
///
/// Objects may be used by several threads at once, each object by one of them.
class ScreenTransform {
public:
    enum class Intent { RelativeColorimetric, AbsoluteColorimetric };

    /// For sRGB, as built into Little CMS.
    ScreenTransform();
    /// For an ICC profile given as bytes. Throws `TristimException` if it isn't an RGB profile that colours
    /// can be converted to.
    explicit ScreenTransform(std::string_view profile, Intent intent = Intent::RelativeColorimetric);
    ScreenTransform(ScreenTransform&&) noexcept;
    ScreenTransform& operator=(ScreenTransform&&) noexcept;
    ~ScreenTransform();

    /// The profile's own description.
    std::string const& GetProfileName() const;

    ScreenColour Convert(Tristim::NVSpectrum const& spectrum) const;
    /// Tristimulus values under a white, both on the scale where Y of the white is 100.
    ScreenColour Convert(Tristim::XYZ const& colour, Tristim::XYZ const& white) const;
    /// The sample's spectrum or else its first colour vector that isn't a device colour. Throws
    /// `TristimException` if the sample has neither.
    ScreenColour Convert(Sample const& sample) const;
    /// L*a*b* under D50, 2 degrees, three values for each colour. Throws `TristimException` if the lengths
    /// of the arrays don't fit.
    void Convert(std::span<double const> lab, std::span<ScreenColour> colours) const;

    /// What a colour comes to before it is cut to what the screen has: the channels, from 0 to 1 for those
    /// that it can show and beyond for others, and how far the shown colour is from the wanted one in units
    /// of CIE 1976 delta E.
    struct Shown {
        std::array<double, 3> rgb = {};
        double difference = 0;
    };
    /// Beyond that a colour counts as one that the screen can't show.
    static constexpr double gamutTolerance = 1;
    /// As `Convert`.
    void Evaluate(std::span<double const> lab, std::span<Shown> shown) const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

} // namespace Norvelian::ColorExchangeFormat
