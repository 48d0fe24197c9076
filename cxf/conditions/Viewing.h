#pragma once

#include <array>
#include <cstddef>
#include <optional>

namespace Norvelian::Tristim {

class NVMeasureConditions;

/// A spectrum has 36 bands, band i at 380 + 10 i nm.
constexpr std::size_t kBands = 36;
constexpr int kBandFirst = 380;
constexpr int kBandStep = 10;
using Bands = std::array<double, kBands>;

/// The enumerations follow the order of the vocabulary's value tables.
enum class Illumination { A, B, C, D50, D55, D65, D75, Dxx, F, Userdefined, Emission };
enum class Observer { TwoDegree, TenDegree };
enum class WhiteBase { Absolute, Paper, Automatic };

/// Tristimulus values on the scale where Y of the perfect diffuser is 100.
struct XYZ {
    double x = 0;
    double y = 0;
    double z = 0;
    bool operator==(XYZ const&) const = default;
};

/// Light and eye: what weights are derived for.
struct Viewing {
    Illumination illumination = Illumination::D50;
    Observer observer = Observer::TwoDegree;
    double temperature = 0;                   ///< kelvin, for `Dxx` only
    int fluorescent = 0;                      ///< FL1 is 1, FL3.1 is 13, for `F` only
    std::optional<Bands> user = std::nullopt; ///< relative power, for `Userdefined` only
    /// Place in `Vocabulary::Value::IlluminantName`, for `Userdefined` without a spectrum of its own.
    std::optional<std::size_t> named = std::nullopt;
    bool correctBandpass = false;
    bool operator==(Viewing const&) const = default;
};

/// Reads the viewing conditions; what isn't said is D50, 2 degrees. Throws `TristimException` for a
/// value outside of the vocabulary, for `Dxx` without a temperature of 4000 to 25000 K, `F` without a
/// type, and `Userdefined` without a name and a spectrum that has power.
Viewing ViewingOf(NVMeasureConditions const& conditions);

} // namespace Norvelian::Tristim
