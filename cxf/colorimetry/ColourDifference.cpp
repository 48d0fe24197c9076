#include "cxf/colorimetry/ColourDifference.h"

#include "cxf/colorimetry/Resolved.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/Numbers.h"

#include <array>
#include <cstdio>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

std::string Rounded(double value) {
    char buffer[48];
    // "-0.00" would say a direction that isn't there.
    std::snprintf(buffer, sizeof(buffer), "%.2f", value > -0.005 && value < 0 ? 0.0 : value);
    std::string text(buffer);
    // The program's locale may write a comma.
    for (char& c : text)
        if (c == ',') c = '.';
    return text;
}

} // namespace

ColourDifference DifferenceOf(NVColorVector const& reference, NVColorVector const& sample,
                              NVMeasureConditions const& conditions, DeltaEWeights const& weights) {
    ResolvedPair const pair = ReducePair(reference, sample, conditions);
    DeltaEFormula const formula = FormulaOf(conditions);
    ColourDifference difference;
    auto const place = static_cast<std::size_t>(formula);
    constexpr std::size_t contracted = Value::DeltaEFormula.size();
    difference.formula =
        place < contracted ? Value::DeltaEFormula[place] : Value::FurtherDeltaEFormula[place - contracted];
    difference.weights = weights;
    difference.total = DeltaEOf(pair, formula, weights);
    Reference const light = pair.resolved.ReferenceOf();
    Lab const lab1 = pair.lab ? pair.lab->first : LabOf(pair.reference, light.white);
    Lab const lab2 = pair.lab ? pair.lab->second : LabOf(pair.sample, light.white);
    Elements4 const polar = Difference(ColorSpace::CIELCh, FromXYZ(ColorSpace::CIELCh, pair.reference, light),
                                       FromXYZ(ColorSpace::CIELCh, pair.sample, light), light);
    difference.lightness = lab2.l - lab1.l;
    difference.a = lab2.a - lab1.a;
    difference.b = lab2.b - lab1.b;
    difference.chroma = polar[1];
    difference.hue = polar[2];
    difference.conditions = pair.resolved.conditions;
    difference.conditions.SetMeasureCondition(Key::DeltaEFormula, difference.formula);
    return difference;
}

std::string ColourDifference::GetFormulaText() const {
    auto const weight = [](double value, double fallback) {
        return Numbers::Shortest(value > 0 ? value : fallback);
    };
    bool const plain = weights.first == 0 && weights.second == 0 && weights.third == 0;
    if (formula == "CMC") return "CMC(" + weight(weights.first, 2) + ":" + weight(weights.second, 1) + ")";
    std::string const three = plain ? ""
                                    : " (" + weight(weights.first, formula == "94 textile" ? 2 : 1) + ":" +
                                          weight(weights.second, 1) + ":" + weight(weights.third, 1) + ")";
    if (formula == "2000") return "CIEDE2000" + three;
    if (formula == "94") return "CIE94" + three;
    if (formula == "94 textile") return "CIE94 textile" + three;
    if (formula.starts_with("DIN99") || formula == "CAM16-UCS") return formula;
    if (formula == "CIELab") return "dE*ab";
    if (formula == "CIELuv") return "dE*uv";
    return "dE " + formula;
}

std::string ColourDifference::GetText() const {
    return GetFormulaText() + " " + Rounded(total) + ": dL* " + Rounded(lightness) + ", da* " + Rounded(a) +
           ", db* " + Rounded(b) + ", dC* " + Rounded(chroma) + ", dH* " + Rounded(hue) + "; " +
           ConditionText(conditions);
}

} // namespace Norvelian::Tristim
