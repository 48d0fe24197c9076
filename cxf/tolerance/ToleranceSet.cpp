#include "cxf/tolerance/ToleranceSet.h"

#include "cxf/conditions/TristimException.h"

#include <array>
#include <cmath>
#include <set>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;
using namespace Tristim::Vocabulary;

namespace {

constexpr std::array<char const*, 6> kNames{"dE", "dL*", "da*", "db*", "dC*", "dH*"};

} // namespace

char const* NameOf(DifferenceComponent component) { return kNames[static_cast<std::size_t>(component)]; }

std::optional<DifferenceComponent> ComponentOf(std::string const& name) {
    for (std::size_t i = 0; i < kNames.size(); ++i)
        if (name == kNames[i]) return static_cast<DifferenceComponent>(i);
    return std::nullopt;
}

double ValueOf(Tristim::ColourDifference const& difference, DifferenceComponent component) {
    switch (component) {
    case DifferenceComponent::Lightness:
        return difference.lightness;
    case DifferenceComponent::A:
        return difference.a;
    case DifferenceComponent::B:
        return difference.b;
    case DifferenceComponent::Chroma:
        return difference.chroma;
    case DifferenceComponent::Hue:
        return difference.hue;
    case DifferenceComponent::Total:
        break;
    }
    return difference.total;
}

void ToleranceSet::Validate() const {
    auto const fail = [this](std::string const& reason) {
        throw TristimException("tolerance set \"" + name + "\": " + reason);
    };
    if (limits.empty()) fail("it has no limits");
    std::set<DifferenceComponent> seen;
    for (ToleranceLimit const& limit : limits) {
        std::string const component = NameOf(limit.component);
        if (!seen.insert(limit.component).second) fail("the limit of " + component + " is given twice");
        if (!std::isfinite(limit.from) || !std::isfinite(limit.to))
            fail("the limit of " + component + " isn't finite");
        bool const total = limit.component == DifferenceComponent::Total;
        if (total ? limit.to < 0 : limit.from > limit.to)
            fail("the limit of " + component + " excludes every colour");
    }
    if (!(warning > 0 && warning <= 1)) fail("the warning level must be above 0 and at most 1");
    if (!(matchDistance >= 0) || !std::isfinite(matchDistance))
        fail("the distance of matches must not be negative");
    static_cast<void>(Tristim::FormulaOf(conditions));
    static_cast<void>(Tristim::ViewingOf(conditions));
}

} // namespace Norvelian::ColorExchangeFormat
