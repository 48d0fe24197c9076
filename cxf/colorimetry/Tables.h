#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// The published tables that the colour library builds on, compiled in from the files below `data/`.
///
/// Each number table has the wavelength in nm in its first column and rises in equal steps. Where the
/// tables come from, and under which licence, is said in `LICENSES/README.md`.
namespace Norvelian::Tristim::Tables {

struct NumberTable {
    double const* values;
    std::size_t rows;
    std::size_t columns;

    double At(std::size_t row, std::size_t column) const { return values[row * columns + column]; }
    double First() const { return At(0, 0); }
    double Step() const { return At(1, 0) - At(0, 0); }
};

/// CIE 1931 2 degree and CIE 1964 10 degree observers, 360 to 830 nm by 1 nm: x, y, z bar.
extern NumberTable const CieObserver2;
extern NumberTable const CieObserver10;
/// Relative spectral powers of the CIE illuminants; by 1 nm: A, D50, D65; by 5 nm: the others.
extern NumberTable const CieA;
extern NumberTable const CieB;
extern NumberTable const CieC;
extern NumberTable const CieD50;
extern NumberTable const CieD55;
extern NumberTable const CieD65;
extern NumberTable const CieD75;
/// Components S0, S1, S2 of daylight by 5 nm.
extern NumberTable const CieDaylight;
/// FL1 to FL12, then FL3.1 to FL3.15, by 5 nm.
extern NumberTable const CieFluorescent;
/// LED-B1 to B5, BH1, RGB1, V1, V2; indoor daylight ID50, ID65; high-pressure lamps HP1 to HP5; by 5 nm.
extern NumberTable const CieLed;
extern NumberTable const CieIndoor50;
extern NumberTable const CieIndoor65;
extern NumberTable const CieDischarge;
/// Radiance factors of the test colour samples 1 to 14 of CIE 13.3, 360 to 830 nm by 5 nm.
extern NumberTable const CieRenderingSamples;
/// ISO 5-3 spectral products by 10 nm, 340 to 830 nm; linear, peak 100. The columns are those of
/// `DensityColumn` in `Density.cpp`.
extern NumberTable const IsoDensity;
/// References of `Verification.h`, as comma-separated text with one heading line.
extern std::string_view const Ciede2000Pairs;
extern std::string_view const WhitePoints;
extern std::string_view const DerivedWeights;
extern std::string_view const CorrectedWeights;
extern std::string_view const IlluminantChromaticities;

} // namespace Norvelian::Tristim::Tables
