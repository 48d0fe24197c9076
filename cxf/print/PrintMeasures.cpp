#include "cxf/print/PrintMeasures.h"

#include "cxf/colorimetry/DeltaE.h"
#include "cxf/colorimetry/Resolved.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

double Divide(double dividend, double divisor, char const* formula) {
    if (divisor == 0 || !std::isfinite(dividend) || !std::isfinite(divisor))
        throw TristimException(std::string(formula) + " isn't defined for these values");
    return dividend / divisor;
}

double Absorbed(double density) { return 1 - std::pow(10, -density); }

/// A spectrum's colour, and the white and conditions it holds under.
struct Seen {
    XYZ colour;
    XYZ white;
    NVMeasureConditions conditions;
};
Seen SeenUnder(NVSpectrum const& spectrum, Illumination illumination, Observer observer) {
    NVMeasureConditions conditions;
    conditions.SetMeasureCondition(Key::Illumination,
                                   Value::Illumination[static_cast<std::size_t>(illumination)]);
    conditions.SetMeasureCondition(Key::Observer, Value::Observer[static_cast<std::size_t>(observer)]);
    Resolved const resolved = Resolve(conditions, spectrum.GetMeasureConditions());
    return {resolved.Reduce(spectrum), resolved.weights->white, resolved.conditions};
}

Whiteness WhitenessUnder(NVSpectrum const& spectrum, Illumination illumination, Observer observer) {
    Seen const seen = SeenUnder(spectrum, illumination, observer);
    Whiteness whiteness = WhitenessOf(seen.colour, seen.white, observer);
    whiteness.conditions = seen.conditions;
    return whiteness;
}

} // namespace

double DotArea(double paper, double tint, double solid, double n) {
    if (!(n > 0)) throw TristimException("the Yule-Nielsen factor must be positive");
    return 100 *
           Divide(Absorbed((tint - paper) / n), Absorbed((solid - paper) / n), "dot area (Murray-Davies)");
}

double DotGain(double paper, double tint, double solid, double nominal) {
    return DotArea(paper, tint, solid) - nominal;
}

double PrintContrast(double paper, double tint, double solid) {
    return 100 * Divide(solid - tint, solid - paper, "print contrast");
}

double Trapping(TrappingFormula formula, double first, double second, double overprint) {
    switch (formula) {
    case TrappingFormula::Preucil:
        return 100 * Divide(overprint - first, second, "trapping (Preucil)");
    case TrappingFormula::Brunner:
        return 100 * Divide(Absorbed(overprint), Absorbed(first + second), "trapping (Brunner)");
    case TrappingFormula::Ritz:
        break;
    }
    return 100 * Divide(Absorbed(overprint - first), Absorbed(second), "trapping (Ritz)");
}

InkHue HueErrorAndGreyness(Densities const& ink) {
    std::array<double, 3> sorted{ink.cyan, ink.magenta, ink.yellow};
    std::sort(sorted.begin(), sorted.end());
    return {100 * Divide(sorted[1] - sorted[0], sorted[2] - sorted[0], "hue error (Preucil)"),
            100 * Divide(sorted[0], sorted[2], "greyness (Preucil)")};
}

GreyBalance GetGreyBalance(Lab const& paper, Lab const& overprint, Lab const& grey) {
    double const way = Divide(paper.l - grey.l, paper.l - overprint.l, "grey balance");
    double const share = 1 - 0.85 * way;
    GreyBalance balance{paper.a * share, paper.b * share, 0};
    balance.deltaCh = std::hypot(grey.a - balance.wantedA, grey.b - balance.wantedB);
    return balance;
}

Whiteness WhitenessOf(XYZ const& colour, XYZ const& white, Observer observer) {
    Elements4 const c = FromXYZ(ColorSpace::CIExyY, colour, {white, 1});
    Elements4 const n = FromXYZ(ColorSpace::CIExyY, white, {white, 1});
    double const tintX = observer == Observer::TwoDegree ? 1000 : 900;
    Whiteness result{};
    result.whiteness = c[2] + 800 * (n[0] - c[0]) + 1700 * (n[1] - c[1]);
    result.tint = tintX * (n[0] - c[0]) - 650 * (n[1] - c[1]);
    result.isWhite =
        result.whiteness > 40 && result.whiteness < 5 * c[2] - 280 && result.tint > -4 && result.tint < 2;
    return result;
}

Whiteness GetWhiteness(NVSpectrum const& spectrum, Observer observer) {
    return WhitenessUnder(spectrum, Illumination::D65, observer);
}

Whiteness GetWhitenessE313(NVSpectrum const& spectrum, Illumination illumination, Observer observer) {
    if (illumination != Illumination::C && illumination != Illumination::D50 &&
        illumination != Illumination::D65)
        throw TristimException("whiteness (ASTM E313) is defined for illuminants C, D50 and D65; got " +
                               std::string(Value::Illumination[static_cast<std::size_t>(illumination)]));
    return WhitenessUnder(spectrum, illumination, observer);
}

Measure GetYellowness(NVSpectrum const& spectrum, Illumination illumination, Observer observer) {
    bool const two = observer == Observer::TwoDegree;
    double cx = 0;
    double cz = 0;
    if (illumination == Illumination::C) {
        cx = two ? 1.2769 : 1.2871;
        cz = two ? 1.0592 : 1.0781;
    } else if (illumination == Illumination::D65) {
        cx = two ? 1.2985 : 1.3013;
        cz = two ? 1.1335 : 1.1498;
    } else {
        throw TristimException("yellowness (ASTM E313) is defined for illuminants C and D65; got " +
                               std::string(Value::Illumination[static_cast<std::size_t>(illumination)]));
    }
    Seen const seen = SeenUnder(spectrum, illumination, observer);
    double const difference = cx * seen.colour.x - cz * seen.colour.z;
    return {100 * Divide(difference, seen.colour.y, "yellowness (ASTM E313)"), seen.conditions};
}

Brightness GetBrightness(NVSpectrum const& spectrum) {
    static constexpr std::array<double, 12> weights{0.213,  1.430,  3.885,  7.364, 12.295, 17.609,
                                                    21.345, 18.933, 11.334, 4.333, 1.195,  0.064};
    constexpr std::size_t first = (400 - kBandFirst) / kBandStep;
    NVMeasureConditions const& measured = spectrum.GetMeasureConditions();
    if (std::string const type = measured.GetMeasureCondition(Key::SpectrumType); type != "Remission")
        throw TristimException("a spectrum of type \"" + type + "\" has no brightness");
    Brightness result{0, {}, measured};
    for (std::size_t band = 0; band < weights.size(); ++band)
        result.percent += weights[band] * static_cast<double>(spectrum.GetValues()[first + band]);
    std::string const geometry = measured.GetMeasureCondition(Key::Geometry);
    bool const stated = measured.GetState(Key::Geometry) == ConditionState::Stated;
    if (stated && geometry == "d:0")
        result.name = "ISO brightness (ISO 2470)";
    else if (geometry.empty())
        result.name = "R457, geometry unknown";
    else
        result.name = "R457, " + geometry + (stated ? "" : " (assumed)");
    return result;
}

Measure GetMetamerismIndex(NVSpectrum const& standard, NVSpectrum const& sample,
                           NVMeasureConditions const& reference, NVMeasureConditions const& test) {
    RequireComparable(standard.GetMeasureConditions(), sample.GetMeasureConditions(),
                      reference.GetMeasureCondition(Key::AcceptUnstated));
    Resolved const from = Resolve(reference, standard.GetMeasureConditions());
    Resolved const to = Resolve(test, standard.GetMeasureConditions());
    XYZ const one = from.Reduce(standard);
    XYZ const other = from.Reduce(sample);
    XYZ corrected = to.Reduce(sample);
    char const* const name = "metamerism index (multiplicative correction)";
    corrected.x *= Divide(one.x, other.x, name);
    corrected.y *= Divide(one.y, other.y, name);
    corrected.z *= Divide(one.z, other.z, name);
    return {DeltaE(FormulaOf(test), to.Reduce(standard), corrected, to.weights->white), to.conditions};
}

Measure GetOpacity(NVSpectrum const& overBlack, NVSpectrum const& overWhite,
                   NVMeasureConditions const& conditions) {
    // The two are measured over different backings by definition.
    NVMeasureConditions black = overBlack.GetMeasureConditions();
    NVMeasureConditions white = overWhite.GetMeasureConditions();
    black.Forget(Key::Backing);
    white.Forget(Key::Backing);
    RequireComparable(black, white, conditions.GetMeasureCondition(Key::AcceptUnstated));
    Resolved const resolved = Resolve(conditions, black);
    double const ratio =
        Divide(resolved.Reduce(overBlack).y, resolved.Reduce(overWhite).y, "opacity (contrast ratio)");
    return {100 * ratio, resolved.conditions};
}

Measure GetPaperOpacity(NVSpectrum const& sheetOverBlack, NVSpectrum const& pad) {
    NVMeasureConditions conditions;
    conditions.SetMeasureCondition(Key::Illumination, "C");
    conditions.SetMeasureCondition(Key::Observer, "TwoDegree");
    return GetOpacity(sheetOverBlack, pad, conditions);
}

} // namespace Norvelian::Tristim
