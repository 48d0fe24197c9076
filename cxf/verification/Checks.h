#pragma once

#include "cxf/conditions/Viewing.h"
#include "cxf/verification/Verification.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Norvelian::Tristim {

using Row = std::vector<std::string_view>;

/// The rows of a comma-separated text behind its heading line.
std::vector<Row> RowsOf(std::string_view text);
/// Not a number for what isn't one or isn't there.
double NumberAt(Row const& row, std::size_t column);

/// Collects the checks, one operation for each subject.
class Checks {
public:
    std::vector<VerificationCheck> Take() { return std::move(checks_); }

    void Ciede2000();
    void WhitePoints();
    void DerivedWeights();
    void CorrectedWeights();
    void Paper();
    void Daylight();
    void Spaces();
    void Differences();
    void RoundTrips();
    void Print();
    void Chromaticities();
    void UniformSpaces();
    void Rendering();
    void DominantWavelengths();

private:
    void Add(std::string name, std::string source, double expected, double computed, double tolerance) {
        checks_.push_back({std::move(name), std::move(source), expected, computed, tolerance});
    }
    void AddXZ(std::string const& name, std::string const& source, XYZ const& expected, XYZ const& computed,
               double tolerance) {
        Add(name + " X", source, expected.x, computed.x, tolerance);
        Add(name + " Z", source, expected.z, computed.z, tolerance);
    }

    std::vector<VerificationCheck> checks_;
};

} // namespace Norvelian::Tristim
