#pragma once

#include "cxf/colorimetry/ColourDifference.h"
#include "cxf/conditions/NVMeasureConditions.h"

#include <optional>
#include <string>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// Component of a colour difference that can have limits.
enum class DifferenceComponent { Total, Lightness, A, B, Chroma, Hue };

/// "dE", "dL*", "da*", "db*", "dC*", "dH*".
char const* NameOf(DifferenceComponent component);
std::optional<DifferenceComponent> ComponentOf(std::string const& name);
double ValueOf(Tristim::ColourDifference const& difference, DifferenceComponent component);

/// How much a component may differ; the limits themselves pass. `from` isn't used for the total.
struct ToleranceLimit {
    DifferenceComponent component = DifferenceComponent::Total;
    double from = 0;
    double to = 0;
    bool operator==(ToleranceLimit const&) const = default;
};

/// How a sample finds its reference.
enum class MatchBy {
    Name,  ///< the same name, the first of several; failing that, the same but for capitals and blanks
    Id,    ///< the same ID
    Device ///< the nearest device values of the same kind, at most `matchDistance` away
};

/// What a customer or a standard allows: formula, limits, and the conditions under which they hold.
struct ToleranceSet {
    std::string name;
    /// Under which colours are compared: illuminant, observer and so on, and the formula
    /// (`Key::DeltaEFormula`; default CIELab).
    Tristim::NVMeasureConditions conditions;
    Tristim::DeltaEWeights weights;
    /// All must hold. Without limits nothing can be judged.
    std::vector<ToleranceLimit> limits;
    /// Share of a limit from which a sample that passes gets a warning; 1 for none.
    double warning = 1;
    MatchBy match = MatchBy::Name;
    double matchDistance = 0.5; ///< in units of the device values, for `MatchBy::Device`

    /// Throws `TristimException` for no limits, two for one component, limits that aren't finite or exclude
    /// everything, a total below zero, a warning level outside of 0 to 1 and unknown conditions.
    void Validate() const;
};

} // namespace Norvelian::ColorExchangeFormat
