#pragma once

#include <array>

/// The colour vocabulary of the whole system: keys and values of measurement conditions, element names
/// of the colour spaces, names of the exchange-format objects. All texts are fixed; files, descriptions
/// and hosts use them literally.
namespace Norvelian::Tristim::Vocabulary {

using Text = char const*;

/// Group names. `Undefined` is the group of no key.
namespace Group {
inline constexpr Text Undefined = "Undefined";
inline constexpr Text Physical = "Physical";
inline constexpr Text Colorimetric = "Colorimetric";
inline constexpr Text ColorSpaceDescription = "ColorSpaceDescription";
} // namespace Group

namespace Key {
inline constexpr Text Illumination = "Colorimetric.Illumination";
inline constexpr Text Observer = "Colorimetric.Observer";
inline constexpr Text WhiteBase = "Colorimetric.WhiteBase";
inline constexpr Text DensityStandard = "Colorimetric.DensityStandard";
inline constexpr Text DensityFilterMode = "Colorimetric.DensityFilterMode";
inline constexpr Text Filter = "Physical.Filter";
inline constexpr Text NumberOfDataPointsSpectrum = "Physical.NumberOfDataPointsSpectrum";
inline constexpr Text WavelengthSpectrumMax = "Physical.WavelengthSpectrumMax";
inline constexpr Text WavelengthSpectrumMin = "Physical.WavelengthSpectrumMin";
inline constexpr Text SpectrumType = "Physical.SpectrumType";
inline constexpr Text Geometry = "Physical.Geometry";
inline constexpr Text Backing = "Physical.Backing";
inline constexpr Text ColorSpaceType = "ColorSpaceDescription.Type";
inline constexpr Text AbsoluteOrDeltaVector = "ColorSpaceDescription.AbsoluteOrDeltaVector";
inline constexpr Text DeltaEFormula = "ColorSpaceDescription.DeltaEFormula";

/// Further conditions of this library. Their values are free texts: a temperature in kelvin, "F1" to
/// "FL3.15", the name of an illuminant (`IlluminantName`), or the 36 values of a spectrum separated by
/// blanks.
inline constexpr Text ColorTemperature = "Colorimetric.ColorTemperature";
inline constexpr Text FluorescentType = "Colorimetric.FluorescentType";
inline constexpr Text IlluminantName = "Colorimetric.IlluminantName";
inline constexpr Text UserIllumination = "Colorimetric.UserIllumination";
inline constexpr Text PaperSpectrum = "Colorimetric.PaperSpectrum";
inline constexpr Text UserFilterBlack = "Colorimetric.UserFilterBlack";
inline constexpr Text UserFilterCyan = "Colorimetric.UserFilterCyan";
inline constexpr Text UserFilterMagenta = "Colorimetric.UserFilterMagenta";
inline constexpr Text UserFilterYellow = "Colorimetric.UserFilterYellow";
/// Written by the library into the conditions of its results: how they were computed.
inline constexpr Text Method = "Colorimetric.Method";
/// Written where a spectrum was resampled: how, and what was extrapolated.
inline constexpr Text Resampling = "Physical.Resampling";
/// "Corrected" for weights that undo an instrument's triangular bandpass of 10 nm; default "Uncorrected", for
/// instruments that do so themselves.
inline constexpr Text Bandpass = "Colorimetric.Bandpass";
/// "Native" sums a spectrum of a sample at the wavelengths of its file (`ColorOf`); default "Bands", the 36.
inline constexpr Text Integration = "Colorimetric.Integration";
/// In the conditions of a computation: keys, separated by blanks, that may be assumed or unknown where
/// colours are compared or conditions asked for. Stays in the result.
inline constexpr Text AcceptUnstated = "Colorimetric.AcceptUnstated";
} // namespace Key

namespace Value {
inline constexpr std::array<Text, 11> Illumination{"A",   "B",   "C", "D50",         "D55",     "D65",
                                                   "D75", "Dxx", "F", "Userdefined", "Emission"};
inline constexpr std::array<Text, 2> Observer{"TwoDegree", "TenDegree"};
inline constexpr std::array<Text, 3> WhiteBase{"Absolute", "Paper", "Automatic"};
inline constexpr std::array<Text, 8> DensityStandard{"DIN",   "DINNB", "ANSIA", "ANSIE",
                                                     "ANSII", "ANSIT", "SPI",   "User"};
inline constexpr std::array<Text, 6> DensityFilterMode{"Black", "Cyan", "Magenta", "Yellow", "Max", "Auto"};
inline constexpr std::array<Text, 8> Filter{"No",     "Polarizer",        "D65", "UVCut", "LastSelectable",
                                            "Custom", "CalibrationCheck", "ND0"};
inline constexpr std::array<Text, 1> NumberOfDataPointsSpectrum{"36"};
inline constexpr std::array<Text, 1> WavelengthSpectrumMax{"730nm"};
inline constexpr std::array<Text, 1> WavelengthSpectrumMin{"380nm"};
inline constexpr std::array<Text, 5> SpectrumType{"Remission", "Emission", "Transmission", "AmbientLight",
                                                  "Flash"};
/// Light to eye, of ISO 13655 and ISO 7724: at 45 degrees to normal and back, diffuse with the gloss
/// included or excluded, diffuse to normal (ISO 2469).
inline constexpr std::array<Text, 5> Geometry{"45:0", "0:45", "d:8i", "d:8e", "d:0"};
/// What lay behind the sample: black or white backing, or the sample's own material.
inline constexpr std::array<Text, 3> Backing{"Black", "White", "Self"};
inline constexpr std::array<Text, 14> ColorSpaceType{
    "CIELab", "CIELCh",    "CIELuv", "CIELChuv", "CIEuvY1960", "CIEuvY1976", "CIEXYZ",
    "CIExyY", "HunterLab", "RxRyRz", "LABmg",    "LCHmg",      "RGB",        "CMYK"};
inline constexpr std::array<Text, 2> AbsoluteOrDeltaVector{"AbsoluteVector", "DeltaVector"};
inline constexpr std::array<Text, 7> DeltaEFormula{"CIELab", "CIELuv", "LABmg", "FMCII", "CMC", "94", "2000"};
/// Formulas beyond the vocabulary's table; `Key::DeltaEFormula` takes them too.
inline constexpr std::array<Text, 7> FurtherDeltaEFormula{"94 textile", "DIN99",  "DIN99b",   "DIN99c",
                                                          "DIN99d",     "DIN99o", "CAM16-UCS"};
/// Whether weights undo the instrument's bandpass.
inline constexpr std::array<Text, 2> Bandpass{"Uncorrected", "Corrected"};
inline constexpr std::array<Text, 2> Integration{"Bands", "Native"};
/// Values of `Key::FluorescentType`: FL1 to FL12 and FL3.1 to FL3.15 of CIE 15.
inline constexpr std::array<Text, 27> FluorescentType{
    "F1",    "F2",    "F3",    "F4",     "F5",     "F6",     "F7",     "F8",     "F9",
    "F10",   "F11",   "F12",   "FL3.1",  "FL3.2",  "FL3.3",  "FL3.4",  "FL3.5",  "FL3.6",
    "FL3.7", "FL3.8", "FL3.9", "FL3.10", "FL3.11", "FL3.12", "FL3.13", "FL3.14", "FL3.15"};
/// Values of `Key::IlluminantName`, which names a light of the illumination "Userdefined" that the library
/// has a table of: equal energy, the LED and indoor daylight illuminants and the high-pressure lamps of
/// CIE 15.
inline constexpr std::array<Text, 17> IlluminantName{
    "E",      "LED-B1", "LED-B2", "LED-B3", "LED-B4", "LED-B5", "LED-BH1", "LED-RGB1", "LED-V1",
    "LED-V2", "ID50",   "ID65",   "HP1",    "HP2",    "HP3",    "HP4",     "HP5"};
} // namespace Value

/// Element names by colour space, in the order of `Value::ColorSpaceType`; unused places are null.
/// "delta L 1960" and "delta L 1976" are differences of L*, and not of Y.
struct Elements {
    std::array<Text, 4> absolute;
    std::array<Text, 4> delta;
};
inline constexpr std::array<Elements, 14> ElementNames{{
    {{"L*", "a*", "b*", nullptr}, {"delta L*", "delta a*", "delta b*", nullptr}},
    {{"L*", "C*", "h*", nullptr}, {"delta L*", "delta C*", "delta H*", nullptr}},
    {{"L", "u*", "v*", nullptr}, {"delta L", "delta u*", "delta v*", nullptr}},
    {{"L", "C", "h", nullptr}, {"delta L", "delta C", "delta H", nullptr}},
    {{"u' 1960", "v' 1960", "Y 1960", nullptr}, {"delta u' 1960", "delta v' 1960", "delta L 1960", nullptr}},
    {{"u' 1976", "v' 1976", "Y 1976", nullptr}, {"delta u' 1976", "delta v' 1976", "delta L 1976", nullptr}},
    {{"X", "Y", "Z", nullptr}, {"delta X", "delta Y", "delta Z", nullptr}},
    {{"x", "y", "Y", nullptr}, {"delta x", "delta y", "delta Y", nullptr}},
    {{"L(l)", "a(l)", "b(l)", nullptr}, {"delta L(l)", "delta a(l)", "delta b(l)", nullptr}},
    {{"Rx", "Ry", "Rz", nullptr}, {"delta Rx", "delta Ry", "delta Rz", nullptr}},
    {{"L(mg)", "a(mg)", "b(mg)", nullptr}, {"delta L(mg)", "delta a(mg)", "delta b(mg)", nullptr}},
    {{"L(mg)", "C(mg)", "h(mg)", nullptr}, {"delta L(mg)", "delta C(mg)", "delta H(mg)", nullptr}},
    {{"R", "G", "B", nullptr}, {"delta R", "delta G", "delta B", nullptr}},
    {{"C", "M", "Y", "K"}, {"delta C", "delta M", "delta Y", "delta K"}},
}};

/// Generic names of the objects of a sample set, and their names in the exchange format.
namespace Object {
inline constexpr Text SampleSet = "SampleSet";
inline constexpr Text Sample = "Sample";
inline constexpr Text SampleAttribute = "SampleAttribute";
inline constexpr Text Spectrum = "Spectrum";
inline constexpr Text ColorVector = "ColorVector";
inline constexpr Text Recipe = "Recipe";
inline constexpr Text UnknownSampleAttribute = "UnknownSampleAttribute";
} // namespace Object
namespace Format {
inline constexpr Text Name = "CXF";
inline constexpr Text SampleSet = "CXFSampleSet";
inline constexpr Text Sample = "CXFSample";
inline constexpr Text Spectrum = "CXFSpectrum";
inline constexpr Text ColorVector = "CXFColorVector";
inline constexpr Text Recipe = "CXFRecipe";
inline constexpr Text UnknownSampleAttribute = "CXFUnknownSampleAttribute";
} // namespace Format

} // namespace Norvelian::Tristim::Vocabulary
