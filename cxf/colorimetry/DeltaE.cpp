#include "cxf/colorimetry/DeltaE.h"

#include "cxf/colorimetry/Batch.h"
#include "cxf/colorimetry/UniformSpaces.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

namespace Norvelian::Tristim {

namespace {

double Euclidean(Lab const& one, Lab const& other) {
    return std::hypot(other.l - one.l, other.a - one.a, other.b - one.b);
}

Lab MgOf(XYZ const& xyz, XYZ const& white) {
    Elements4 const e = FromXYZ(ColorSpace::LABmg, xyz, {white, 1});
    return {e[0], e[1], e[2]};
}

double WeightOr(double weight, double fallback) {
    if (!std::isfinite(weight) || weight < 0)
        throw TristimException("a weight of a colour difference is " + std::to_string(weight) +
                               "; expected zero (the default) or a positive number");
    return weight == 0 ? fallback : weight;
}

/// What 94 and CMC share: the differences in lightness and chroma, and the square of that in hue.
struct Split {
    double lightness;
    double chroma;
    double hueSquare;
    double referenceChroma;
};
Split SplitOf(Lab const& reference, Lab const& sample) {
    double const c1 = std::hypot(reference.a, reference.b);
    double const dC = std::hypot(sample.a, sample.b) - c1;
    double const da = sample.a - reference.a;
    double const db = sample.b - reference.b;
    return {sample.l - reference.l, dC, std::max(0.0, da * da + db * db - dC * dC), c1};
}

} // namespace

double DeltaECmc(Lab const& reference, Lab const& sample, double l, double c) {
    Split const d = SplitOf(reference, sample);
    constexpr double degrees = 180 / 3.14159265358979323846;
    double hue = std::atan2(reference.b, reference.a) * degrees;
    if (hue < 0) hue += 360;
    double const t = hue >= 164 && hue <= 345 ? 0.56 + std::abs(0.2 * std::cos((hue + 168) / degrees))
                                              : 0.36 + std::abs(0.4 * std::cos((hue + 35) / degrees));
    double const chroma4 = std::pow(d.referenceChroma, 4);
    double const f = std::sqrt(chroma4 / (chroma4 + 1900));
    double const sL = reference.l < 16 ? 0.511 : 0.040975 * reference.l / (1 + 0.01765 * reference.l);
    double const sC = 0.0638 * d.referenceChroma / (1 + 0.0131 * d.referenceChroma) + 0.638;
    double const sH = sC * (f * t + 1 - f);
    return std::sqrt(std::pow(d.lightness / (l * sL), 2) + std::pow(d.chroma / (c * sC), 2) +
                     d.hueSquare / (sH * sH));
}

double DeltaE94(Lab const& reference, Lab const& sample, double kL, double kC, double kH, double k1,
                double k2) {
    Split const d = SplitOf(reference, sample);
    double const sC = kC * (1 + k1 * d.referenceChroma);
    double const sH = kH * (1 + k2 * d.referenceChroma);
    return std::sqrt(std::pow(d.lightness / kL, 2) + std::pow(d.chroma / sC, 2) + d.hueSquare / (sH * sH));
}

double DeltaEFmc2(XYZ const& reference, XYZ const& sample) {
    // Cone responses, linear in the tristimulus values.
    auto const p = [](XYZ const& v) { return 0.724 * v.x + 0.382 * v.y - 0.098 * v.z; };
    auto const q = [](XYZ const& v) { return -0.48 * v.x + 1.37 * v.y + 0.1276 * v.z; };
    auto const s = [](XYZ const& v) { return 0.686 * v.z; };
    double const P = p(reference);
    double const Q = q(reference);
    double const S = s(reference);
    double const dP = p(sample) - P;
    double const dQ = q(sample) - Q;
    double const dS = s(sample) - S;
    double const sum = P * P + Q * Q;
    // A reference without light has no threshold to measure in; the smallest reference of the formula's
    // range replaces it.
    double const safe = std::max(sum, 1e-6);
    double const fourth = P * P * P * P + Q * Q * Q * Q;
    double const a2 = 17.3e-6 * safe / (1 + 2.73 * P * P * Q * Q / std::max(fourth, 1e-12));
    double const b2 = 3.098e-4 * std::max(S * S + 0.2015 * reference.y * reference.y, 1e-6);
    double const root = std::sqrt(safe);
    double const dL1 = (P * dP + Q * dQ) / root;
    double const dRG = (Q * dP - P * dQ) / root;
    double const dYB = S * dL1 / root - dS;
    double const y = std::clamp(reference.y, 0.0, 100.0);
    double const k1 = (((-0.30087e-7 * y + 0.79172e-5) * y - 0.82575e-3) * y + 0.049434) * y + 0.55669;
    double const k2 = (((-0.26731e-7 * y + 0.63893e-5) * y - 0.57262e-3) * y + 0.027556) * y + 0.17548;
    double const chromatic = k1 * k1 * (dRG * dRG / a2 + dYB * dYB / b2);
    double const luminance = k2 * k2 * 0.279 * 0.279 * dL1 * dL1 / a2;
    return std::sqrt(chromatic + luminance);
}

DeltaEFormula FormulaOf(NVMeasureConditions const& conditions) {
    using namespace Vocabulary;
    std::string const named = conditions.GetMeasureCondition(Key::DeltaEFormula);
    auto const& further = Value::FurtherDeltaEFormula;
    auto const found = std::find(further.begin(), further.end(), std::string_view(named));
    if (found != further.end())
        return static_cast<DeltaEFormula>(Value::DeltaEFormula.size() +
                                          static_cast<std::size_t>(found - further.begin()));
    return static_cast<DeltaEFormula>(conditions.GetChoice(Key::DeltaEFormula, Value::DeltaEFormula, 0));
}

bool IsOfLab(DeltaEFormula formula) {
    switch (formula) {
    case DeltaEFormula::CIELab:
    case DeltaEFormula::CMC:
    case DeltaEFormula::CIE94:
    case DeltaEFormula::CIE94Textile:
    case DeltaEFormula::CIEDE2000:
    case DeltaEFormula::DIN99:
    case DeltaEFormula::DIN99b:
    case DeltaEFormula::DIN99o:
        return true;
    default:
        return false;
    }
}

double DeltaE(DeltaEFormula formula, Lab const& reference, Lab const& sample, DeltaEWeights const& weights) {
    double const fallbackFirst =
        formula == DeltaEFormula::CMC || formula == DeltaEFormula::CIE94Textile ? 2 : 1;
    double const k1 = WeightOr(weights.first, fallbackFirst);
    double const k2 = WeightOr(weights.second, 1);
    double const k3 = WeightOr(weights.third, 1);
    switch (formula) {
    case DeltaEFormula::CIELab:
        return Euclidean(reference, sample);
    case DeltaEFormula::CMC:
        return DeltaECmc(reference, sample, k1, k2);
    case DeltaEFormula::CIE94:
        return DeltaE94(reference, sample, k1, k2, k3);
    case DeltaEFormula::CIE94Textile:
        return DeltaE94(reference, sample, k1, k2, k3, 0.048, 0.014);
    case DeltaEFormula::DIN99:
        return Euclidean(Din99Of(reference, Din99::Din99), Din99Of(sample, Din99::Din99));
    case DeltaEFormula::DIN99b:
        return Euclidean(Din99Of(reference, Din99::B), Din99Of(sample, Din99::B));
    case DeltaEFormula::DIN99o:
        return Euclidean(Din99Of(reference, Din99::O), Din99Of(sample, Din99::O));
    case DeltaEFormula::CIEDE2000: {
        double result = 0;
        std::array<double, 3> const lab1{reference.l, reference.a, reference.b};
        std::array<double, 3> const lab2{sample.l, sample.a, sample.b};
        Batch::DeltaE2000(lab1, lab2, {&result, 1}, k1, k2, k3);
        return result;
    }
    default:
        throw TristimException("this formula of colour difference needs tristimulus values");
    }
}

double DeltaE(DeltaEFormula formula, XYZ const& reference, XYZ const& sample, XYZ const& white,
              DeltaEWeights const& weights) {
    for (double const weight : {weights.first, weights.second, weights.third}) WeightOr(weight, 1);
    switch (formula) {
    case DeltaEFormula::CIELuv:
        return Euclidean(LuvOf(reference, white), LuvOf(sample, white));
    case DeltaEFormula::LABmg:
        return Euclidean(MgOf(reference, white), MgOf(sample, white));
    case DeltaEFormula::FMCII:
        return DeltaEFmc2(reference, sample);
    case DeltaEFormula::DIN99c:
        return Euclidean(Din99Of(reference, white, Din99::C), Din99Of(sample, white, Din99::C));
    case DeltaEFormula::DIN99d:
        return Euclidean(Din99Of(reference, white, Din99::D), Din99Of(sample, white, Din99::D));
    case DeltaEFormula::CAM16UCS:
        return Euclidean(Cam16UcsOf(reference, white), Cam16UcsOf(sample, white));
    default:
        return DeltaE(formula, LabOf(reference, white), LabOf(sample, white), weights);
    }
}

} // namespace Norvelian::Tristim
