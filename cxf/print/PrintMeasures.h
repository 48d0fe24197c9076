#pragma once

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/print/Density.h"

#include <string>

/// What an operator at a press derives from densities and colours. All densities of one call are read
/// through the same filter. Divisions by zero throw `TristimException` that names the formula. What is
/// computed from spectra carries the conditions it holds under, with how they were resampled.
namespace Norvelian::Tristim {

/// A number from spectra and the conditions it holds under.
struct Measure {
    double value = 0;
    NVMeasureConditions conditions;
};

/// Dot area in percent by Murray-Davies: (1 - 10^-(Dt - Dp)) / (1 - 10^-(Ds - Dp)). With `n` other than 1 the
/// densities are divided by it (Yule-Nielsen), which takes the light caught in the paper into account.
double DotArea(double paper, double tint, double solid, double n = 1);

/// Tone value increase: dot area less the tone value of the data, both in percent.
double DotGain(double paper, double tint, double solid, double nominal);

/// Print contrast in percent: (Ds - Dt) / Ds, densities relative to the paper; usually at 75 percent.
double PrintContrast(double paper, double tint, double solid);

/// How much of a second ink a first one takes, in percent; densities relative to the paper, through the
/// filter of the second ink.
///  - Preucil: (Dop - D1) / D2.
///  - Brunner: (1 - 10^-Dop) / (1 - 10^-(D1 + D2)).
///  - Ritz: (1 - 10^-(Dop - D1)) / (1 - 10^-D2).
enum class TrappingFormula { Preucil, Brunner, Ritz };
double Trapping(TrappingFormula formula, double first, double second, double overprint);

/// Preucil's hue error and greyness of an ink in percent, with H, M, L the highest, middle and lowest of its
/// cyan, magenta and yellow densities: (M - L) / (H - L) and L / H.
struct InkHue {
    double hueError;
    double greyness;
};
InkHue HueErrorAndGreyness(Densities const& ink);

/// Grey balance of a three-colour grey after ISO 12647-2:2013: the grey wanted at its lightness is between
/// the paper and the overprint of solid C, M and Y, a* = a*(paper) (1 - 0.85 (L*(paper) - L*) / (L*(paper) -
/// L*(CMY))), b* alike; the balance is the distance in a*, b* from it (delta Ch). That C, M, Y and not black
/// is the dark end say normaprint.fr ("ISO 12647-2:2013 & gris neutre": "la surimpression C100, M100, J100")
/// and corgae.it ("Grigio neutro", "per L* C100M100Y100"); the formula with its 0.85 quotes A. Beltrami,
/// Optimization of grey reproduction in CMYK printing processes, 2022 (hdl.handle.net/10609/138386).
struct GreyBalance {
    double wantedA;
    double wantedB;
    double deltaCh;
};
GreyBalance GetGreyBalance(Lab const& paper, Lab const& overprint, Lab const& grey);

/// CIE whiteness and tint (CIE 15:2004, ISO 11475) of a spectrum under D65: W = Y + 800 (xn - x) + 1700 (yn -
/// y); T = 1000 (xn - x) - 650 (yn - y) for 2 degrees, with 900 for 10 degrees. `isWhite` is whether the
/// formula's limits hold: 40 < W < 5 Y - 280 and -4 < T < 2 (CIE 15:2004; the edition of 1986 had -3 to 3; so
/// colour.readthedocs.io, whiteness_CIE2004; no second public source for the limits of the tint was found).
struct Whiteness {
    double whiteness;
    double tint;
    bool isWhite;
    NVMeasureConditions conditions; ///< empty for `WhitenessOf`
};
Whiteness GetWhiteness(NVSpectrum const& spectrum, Observer observer = Observer::TenDegree);
Whiteness WhitenessOf(XYZ const& colour, XYZ const& white, Observer observer);

/// Whiteness and tint of ASTM E313 for C, D50 and D65: the same formulas with the white of that illuminant.
/// The factors are the same for all three: 800 and 1700 by
/// mal.reid.btinternet.co.uk/colour/colourbook/whiteness.htm, those of the tint by the R package colorscience
/// (CIETint). Other illuminants throw; `isWhite` is as above.
Whiteness GetWhitenessE313(NVSpectrum const& spectrum, Illumination illumination, Observer observer);

/// Yellowness index of ASTM E313: 100 (Cx X - Cz Z) / Y, for illuminant C or D65; others throw.
Measure GetYellowness(NVSpectrum const& spectrum, Illumination illumination = Illumination::D65,
                      Observer observer = Observer::TenDegree);

/// Blue reflectance of paper and pulp at an effective wavelength of 457 nm (R457). The weights by 10 nm, 400
/// to 510 nm, are those of ISO 2470-1 as the OptProp toolbox gives them (i_roo2brightness.m, version 2.1;
/// public copy in bcmi/Image-Harmonization-Dataset-iHarmony4). Their sum is 100, their mean 457.1 nm and
/// their half width 44.2 nm; ISO 2470-1 states 457 and 44 nm of its function.
///
/// The name is part of the result, since the formula can't replace the geometry: "ISO brightness" for a
/// stated d:0, and plain "R457" for all others. The instrument's UV must have been set to C (ISO 2470-1) or
/// D65 (ISO 2470-2), which no spectrum tells.
struct Brightness {
    double percent;
    std::string name; ///< "R457, geometry unknown"
    NVMeasureConditions conditions;
};
/// Throws `TristimException` for spectra that aren't of type Remission.
Brightness GetBrightness(NVSpectrum const& spectrum);

/// Special metamerism index, change in illuminant (CIE 15): the difference of the pair under the test
/// conditions by the formula they name, after the sample's tristimulus values there are multiplied by what
/// makes the pair equal under the reference conditions. The result has the test conditions. Zero tristimulus
/// values under these throw.
Measure GetMetamerismIndex(NVSpectrum const& standard, NVSpectrum const& sample,
                           NVMeasureConditions const& reference, NVMeasureConditions const& test);

/// Opacity as contrast ratio in percent (ISO 6504, ISO 13655): Y over black / Y over white.
Measure GetOpacity(NVSpectrum const& overBlack, NVSpectrum const& overWhite,
                   NVMeasureConditions const& conditions);

/// Opacity of paper in percent, ISO 2471: luminance factor of a single sheet over black / of an opaque pad of
/// the same paper, under C and 2 degrees (topos-ts.org, "Opacity, illuminant C"; ipstesting.com, "ISO 2471").
Measure GetPaperOpacity(NVSpectrum const& sheetOverBlack, NVSpectrum const& pad);

} // namespace Norvelian::Tristim
