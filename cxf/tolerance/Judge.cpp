#include "cxf/tolerance/Judge.h"

#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/samples/ColorOf.h"

#include <cmath>
#include <cstdio>

namespace Norvelian::ColorExchangeFormat {

using Tristim::ColourDifference;
using Tristim::TristimException;
using Tristim::Numbers::Shortest;
using namespace Tristim::Vocabulary;

namespace {

std::string Rounded(double value) { return Shortest(std::round(value * 100) / 100 + 0.0); }
/// With as many decimals as it takes to differ from a limit: "3.0004, above 3".
std::string RoundedBeside(double value, double limit) {
    double scale = 100;
    while (scale < 1e9 && value != limit && std::round(value * scale) / scale == limit) scale *= 10;
    return Shortest(std::round(value * scale) / scale + 0.0);
}

/// One limit's say: how bad, and why.
struct Finding {
    Judgement judgement = Judgement::Pass;
    std::string reason;
};

Finding Check(ToleranceLimit const& limit, double warning, ColourDifference const& difference) {
    bool const total = limit.component == DifferenceComponent::Total;
    double const value = ValueOf(difference, limit.component);
    std::string const name = total ? difference.GetFormulaText() : NameOf(limit.component);
    bool const above = value > limit.to;
    bool const below = !total && value < limit.from;
    std::string const is = name + " is " + RoundedBeside(value, below ? limit.from : limit.to);
    if (above) return {Judgement::Fail, is + ", above " + Shortest(limit.to)};
    if (below) return {Judgement::Fail, is + ", below " + Shortest(limit.from)};
    // The level is a share of the way from zero, or from the middle where zero isn't allowed.
    double const middle = total ? 0 : limit.from <= 0 && limit.to >= 0 ? 0 : (limit.from + limit.to) / 2;
    double const high = middle + warning * (limit.to - middle);
    double const low = middle + warning * (limit.from - middle);
    if (warning < 1 && value > high)
        return {Judgement::Warning,
                is + ", above the warning level " + Rounded(high) + " of the limit " + Shortest(limit.to)};
    if (warning < 1 && !total && value < low)
        return {Judgement::Warning,
                is + ", below the warning level " + Rounded(low) + " of the limit " + Shortest(limit.from)};
    return {Judgement::Pass,
            is + ", within " + (total ? "" : Shortest(limit.from) + " to ") + Shortest(limit.to)};
}

std::string Plain(std::string const& name) {
    std::string plain;
    for (char const c : name)
        if (c != ' ' && c != '_') plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return plain;
}

SampleSet::SamplePointer FindNearest(SampleSet const& references, Sample const& sample, double within) {
    ColorVector const* const wanted = DeviceColourOf(sample);
    SampleSet::SamplePointer nearest;
    double best = within;
    if (!wanted) return nearest;
    for (auto const& reference : references.GetSamples()) {
        ColorVector const* const held = DeviceColourOf(*reference);
        if (!held || !(held->GetConditions() == wanted->GetConditions())) continue;
        double sum = 0;
        auto const& one = wanted->GetVector().GetExactValues();
        auto const& other = held->GetVector().GetExactValues();
        for (std::size_t i = 0; i < one.size(); ++i) sum += (one[i] - other[i]) * (one[i] - other[i]);
        double const distance = std::sqrt(sum);
        if (distance > best || (!nearest.IsNull() && distance == best)) continue;
        best = distance;
        nearest = reference;
    }
    return nearest;
}

} // namespace

char const* NameOf(Judgement judgement) {
    switch (judgement) {
    case Judgement::Pass:
        return "pass";
    case Judgement::Warning:
        return "warning";
    case Judgement::Fail:
        return "fail";
    case Judgement::NoData:
        break;
    }
    return "no data";
}

Verdict Judge(ToleranceSet const& tolerance, Sample const& reference, Sample const& sample) {
    tolerance.Validate();
    Verdict verdict;
    try {
        // The formula isn't a condition of one colour.
        verdict.difference = Tristim::DifferenceOf(ColorOf(reference, tolerance.conditions),
                                                   ColorOf(sample, tolerance.conditions),
                                                   tolerance.conditions, tolerance.weights);
    } catch (TristimException const& failure) {
        verdict.reason = failure.what();
        return verdict;
    }
    verdict.judgement = Judgement::Pass;
    std::string worst;
    for (ToleranceLimit const& limit : tolerance.limits) {
        Finding const finding = Check(limit, tolerance.warning, *verdict.difference);
        if (finding.judgement > verdict.judgement) {
            verdict.judgement = finding.judgement;
            worst = finding.reason;
        } else if (finding.judgement == verdict.judgement) {
            worst += (worst.empty() ? "" : "; ") + finding.reason;
        }
    }
    verdict.reason = worst + " (" + ViewingText(verdict.difference->conditions) + ")";
    return verdict;
}

SampleSet::SamplePointer FindReference(ToleranceSet const& tolerance, SampleSet const& references,
                                       Sample const& sample) {
    if (tolerance.match == MatchBy::Device) return FindNearest(references, sample, tolerance.matchDistance);
    if (tolerance.match == MatchBy::Name) {
        if (auto exact = references.FindSample(sample.GetName()); !exact.IsNull()) return exact;
        for (auto const& reference : references.GetSamples())
            if (Plain(reference->GetName()) == Plain(sample.GetName())) return reference;
        return {};
    }
    for (auto const& reference : references.GetSamples())
        if (!sample.GetId().empty() && reference->GetId() == sample.GetId()) return reference;
    return {};
}

std::vector<SampleVerdict> JudgeAll(ToleranceSet const& tolerance, SampleSet const& references,
                                    SampleSet const& samples) {
    tolerance.Validate();
    std::vector<SampleVerdict> verdicts;
    for (auto const& sample : samples.GetSamples()) {
        SampleVerdict one{sample, FindReference(tolerance, references, *sample), {}};
        if (one.reference.IsNull())
            one.verdict.reason = "there is no reference for \"" + sample->GetName() + "\"";
        else
            one.verdict = Judge(tolerance, *one.reference, *sample);
        verdicts.push_back(std::move(one));
    }
    return verdicts;
}

} // namespace Norvelian::ColorExchangeFormat
