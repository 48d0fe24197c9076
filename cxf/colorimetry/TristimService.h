#pragma once

#include "cxf/conditions/NVColorVector.h"
#include "cxf/conditions/NVSpectrum.h"

#include <string>
#include <vector>

namespace Norvelian::Tristim {

/// Colour numbers of spectra under stated conditions.
///
/// A spectrum is reduced to tristimulus values by the weights of `Weights.h`, and those are converted to
/// the colour space of the conditions (`ColorSpaces.h`). What the conditions leave open has its default
/// (`NVMeasureConditions`). The result carries every condition that it depends on.
///
/// White base: with "Absolute" the white is the perfect diffuser. With "Paper" the tristimulus values
/// are relative to the paper of `Key::PaperSpectrum`, X Xn / X(paper) and so on (media-relative,
/// ISO 13655). "Automatic" is "Paper" if there is such a spectrum and "Absolute" otherwise.
///
/// Spectra of light (types Emission, AmbientLight, Flash) have no illuminant: theirs is "Emission", which
/// sums value times observer, scaled so that the equal-energy spectrum of 1 has Y = 100; that spectrum is
/// the white, unless a paper is given.
///
/// All operations throw `TristimException`: for values outside of the vocabulary, and for conditions that
/// contradict each other, naming both. Any thread.
class TristimService {
public:
    /// The colour vector of the spectrum. With "DeltaVector" in the conditions it throws: a difference
    /// needs two spectra.
    static NVColorVector GetVector(NVSpectrum const& spectrum, NVMeasureConditions const& conditions);
    /// Sample minus reference, element by element of the colour space.
    static NVColorVector GetDeltaVector(NVSpectrum const& reference, NVSpectrum const& sample,
                                        NVMeasureConditions const& conditions);
    static NVColorVector GetDeltaVector(NVColorVector const& reference, NVColorVector const& sample,
                                        NVMeasureConditions const& conditions);

    /// The colour difference by the formula of the conditions. The weights are those of `DeltaEWeights`
    /// in `DeltaE.h`; 0 means the formula's default. The first colour is the reference.
    static float GetDeltaE(NVSpectrum const& reference, NVSpectrum const& sample,
                           NVMeasureConditions const& conditions, float weight1, float weight2,
                           float weight3);
    static float GetDeltaE(NVColorVector const& reference, NVColorVector const& sample,
                           NVMeasureConditions const& conditions, float weight1, float weight2,
                           float weight3);

    /// The same colour in the space that the conditions name. Conditions that they state beside the space
    /// must be those of the vector: a colour can't be carried from one illuminant to another.
    static NVColorVector Convert(NVColorVector const& vector, NVMeasureConditions const& conditions);

    /// All values of a condition key, in the vocabulary's order. A key with free values has none; an
    /// unknown key throws.
    static std::vector<std::string> GetSupportedValues(std::string const& key);
};

} // namespace Norvelian::Tristim
