#pragma once

#include "cxf/samples/SampleSet.h"
#include "cxf/tolerance/ToleranceSet.h"

#include <optional>
#include <string>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// Colours that can't be compared have no data, which is not the same as to fail.
enum class Judgement { Pass, Warning, Fail, NoData };

/// "pass", "warning", "fail", "no data".
char const* NameOf(Judgement judgement);

struct Verdict {
    Judgement judgement = Judgement::NoData;
    /// In words, with number, limit and condition: "CIEDE2000 is 3.41, above 3 (D50, 2°)".
    std::string reason;
    /// Nothing where there are no data.
    std::optional<Tristim::ColourDifference> difference;
};

/// Compares a sample with its reference under the set's conditions. What can't be compared (no spectrum and
/// no colour, stated conditions that differ) is `NoData`, with the cause as reason. Throws `TristimException`
/// for a set that isn't valid.
///
///     Verdict const verdict = Judge(tolerance, *reference, *sample);
Verdict Judge(ToleranceSet const& tolerance, Sample const& reference, Sample const& sample);

/// The sample's reference by the set's way of matching; null if there is none.
SampleSet::SamplePointer FindReference(ToleranceSet const& tolerance, SampleSet const& references,
                                       Sample const& sample);

struct SampleVerdict {
    SampleSet::SamplePointer sample;
    SampleSet::SamplePointer reference; ///< null if none was found; the verdict is `NoData` then
    Verdict verdict;
};
/// All samples of a set, in their order.
std::vector<SampleVerdict> JudgeAll(ToleranceSet const& tolerance, SampleSet const& references,
                                    SampleSet const& samples);

} // namespace Norvelian::ColorExchangeFormat
