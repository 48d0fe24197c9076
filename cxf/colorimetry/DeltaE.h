#pragma once

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/conditions/NVMeasureConditions.h"

namespace Norvelian::Tristim {

/// In the order of the vocabulary's table.
enum class DeltaEFormula {
    CIELab,
    CIELuv,
    LABmg,
    FMCII,
    CMC,
    CIE94,
    CIEDE2000,
    // those of `FurtherDeltaEFormula`
    CIE94Textile,
    DIN99,
    DIN99b,
    DIN99c,
    DIN99d,
    DIN99o,
    CAM16UCS
};

/// The formula that the conditions name, default CIELab. Throws `TristimException` for an unknown one.
DeltaEFormula FormulaOf(NVMeasureConditions const& conditions);
/// Whether the formula needs nothing but L*a*b*.
bool IsOfLab(DeltaEFormula formula);

/// The weights of a formula; zero means the formula's own default.
///  - CMC: l and c, default 2 and 1 (acceptability, ISO 105-J03); `third` unused.
///  - 94, 2000: kL, kC, kH, default 1 (reference conditions; for 94, K1 and K2 are 0.045 and 0.015).
///  - 94 textile: the same with kL 2, K1 0.048 and K2 0.014 (CIE 116).
///  - All others: no weights.
struct DeltaEWeights {
    double first = 0;
    double second = 0;
    double third = 0;
};

/// The colour difference between a reference and a sample under one white. CMC and 94 aren't symmetric:
/// the first colour is the reference. Throws `TristimException` for a negative or not finite weight.
///  - CIELab, CIELuv: ISO/CIE 11664-4, -5. LABmg: Euclidean in that space.
///  - FMCII: Friele-MacAdam-Chickering 2 (Chickering, J. Opt. Soc. Am. 61 (1971) 118), lightness and
///    chromaticity factors K1, K2 of Y of the reference, limited to Y 0 .. 100.
///  - CMC: Clarke, McDonald, Rigg 1984; ISO 105-J03.
///  - DIN99, DIN99b, c, d, o: distance in the spaces of `UniformSpaces.h`. CAM16-UCS: distance there, under
///    its default viewing conditions.
///  - 94: CIE 116. 2000: ISO/CIE 11664-6 after Sharma, Wu, Dalal 2005.
double DeltaE(DeltaEFormula formula, XYZ const& reference, XYZ const& sample, XYZ const& white,
              DeltaEWeights const& weights = {});

/// The same from L*a*b*, for the formulas that need nothing else; others throw.
double DeltaE(DeltaEFormula formula, Lab const& reference, Lab const& sample,
              DeltaEWeights const& weights = {});

double DeltaECmc(Lab const& reference, Lab const& sample, double l, double c);
double DeltaE94(Lab const& reference, Lab const& sample, double kL, double kC, double kH, double k1 = 0.045,
                double k2 = 0.015);
double DeltaEFmc2(XYZ const& reference, XYZ const& sample);

} // namespace Norvelian::Tristim
