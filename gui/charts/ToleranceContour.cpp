#include "gui/charts/ToleranceContour.h"

#include "cxf/colorimetry/DeltaE.h"

namespace GUI {

using Utilities::Anything;
namespace Tristim = Norvelian::Tristim;

namespace {

constexpr int directions = 120;
/// No colour is further from another one.
constexpr double farthest = 400;

} // namespace

ToleranceContour::ToleranceContour(Anything const& record) {
    if (!record.IsOfTypeMap()) return;
    auto const& entries = record.GetMapOfAnythings();
    auto const number = [&entries](char const* key) {
        auto const found = entries.Find(key);
        return found.IsValid() ? found.GetValue().GetDouble() : 0.0;
    };
    Tristim::Lab const standard{number("L"), number("a"), number("b")};
    double const limit = number("Limit");
    Tristim::DeltaEWeights const weights{number("First"), number("Second"), number("Third")};
    auto const name = entries.Find("Formula");
    Tristim::NVMeasureConditions conditions;
    conditions.SetMeasureCondition(Tristim::Vocabulary::Key::DeltaEFormula,
                                   name.IsValid() ? name.GetValue().GetString().GetStdString() : "2000");
    auto const formula = Tristim::FormulaOf(conditions);
    bool const isKnown = std::isfinite(standard.l) && std::isfinite(standard.a) && std::isfinite(standard.b);
    if (!(limit > 0) || !isKnown || !Tristim::IsOfLab(formula)) return;
    standard_ = {standard.a, standard.b};
    for (int i = 0; i < directions; ++i) {
        double const angle = 2 * std::acos(-1.0) * i / directions;
        auto const at = [&](double distance) {
            return Tristim::Lab{standard.l, standard.a + distance * std::cos(angle),
                                standard.b + distance * std::sin(angle)};
        };
        auto const isBeyond = [&](double distance) {
            return Tristim::DeltaE(formula, standard, at(distance), weights) > limit;
        };
        double near = 0;
        double far = limit;
        while (far < farthest && !isBeyond(far)) {
            near = far;
            far *= 2;
        }
        constexpr double exact = 1e-3;
        while (far - near > exact) {
            double const middle = (near + far) / 2;
            (isBeyond(middle) ? far : near) = middle;
        }
        Tristim::Lab const found = at(far);
        points_.emplace_back(found.a, found.b);
    }
}

} // namespace GUI
