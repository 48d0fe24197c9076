#pragma once

#include "cxf/conditions/TristimException.h"
#include "cxf/files/ReadReport.h"
#include "cxf/samples/SampleSet.h"

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// Set property under which a table's identifier ("CGATS.17", "CTI3", ...) is kept.
inline constexpr char const* kCgatsIdentifier = "CGATS_IDENTIFIER";
/// Set property that says on which scale the spectra stood.
inline constexpr char const* kSpectralScale = "SPECTRAL_SCALE";
/// No surface, fluorescent ones included, sends back more than a few times what falls on it: a value above
/// this is on another scale.
inline constexpr double kHighestFactor = 10;
/// Prefixes of this library's own keywords: a condition, and where an assumed one comes from.
inline constexpr char const* kConditionKeyword = "CXF_";
inline constexpr char const* kAssumedKeyword = "CXF_Assumed.";

/// A header that can't be understood; the keyword is a place in the list of properties.
class CgatsHeaderException : public Tristim::TristimException {
public:
    CgatsHeaderException(std::size_t keyword, std::string const& reason)
        : TristimException(reason), keyword_(keyword) {}
    std::size_t GetKeyword() const { return keyword_; }

private:
    std::size_t keyword_;
};

/// What the keywords of a header say of the conditions of its table.
///
/// Keywords count in any case, with or without underscores. The more exact a keyword, the earlier it counts:
///  1. this library's own keywords ("CXF_Physical.Filter" and so on);
///  2. ILLUMINANT, OBSERVER and their spellings;
///  3. WEIGHTING_FUNCTION, COMPUTATIONAL_PARAMETER;
///  4. ILLUMINATION_NAME;
///  5. MEASUREMENT_CONDITION (M0 to M3 of ISO 13655);
///  6. FILTER, POLARIZATION; MEASUREMENT_GEOMETRY; SAMPLE_BACKING; WhiteBase; MEASUREMENT_TYPE, DEVICE_CLASS;
///  7. "Name=value" pairs in MEASUREMENT_SOURCE and INSTRUMENTATION;
///  8. other words there, from which a condition is at most assumed.
/// If a later one says something else, the earlier one counts, as assumed, and the contradiction is noted;
/// two of the same rank that differ are an error, as is a stated illuminant or observer that isn't known.
class CgatsHeader {
public:
    struct Note {
        ReadNote::Kind kind;
        std::optional<std::size_t> keyword;
        std::string text;
    };

    /// Throws `CgatsHeaderException`.
    explicit CgatsHeader(std::span<SampleSet::Property const> properties);

    /// Conditions of spectra: filter, geometry, backing, type.
    Conditions const& GetSpectrumConditions() const { return spectrum_; }
    /// The same with illuminant, observer and white base, for colours of a space; D50 and 2 degrees are
    /// assumed where nothing is said, as CGATS.17 has it.
    Conditions GetColourConditions(std::string const& space) const;
    std::vector<Note> const& GetNotes() const { return notes_; }

private:
    struct Statement {
        int rank;
        std::size_t keyword;
        std::string source; ///< the keyword or pair that said it
        std::string value;
        bool assumed;
    };
    void TakeOwn(std::span<SampleSet::Property const> properties);
    void TakeKeyword(std::size_t place, std::string const& key, std::string const& value);
    void TakeFree(std::size_t place, std::string const& key, std::string const& value);
    /// Takes all conditions that were found; false if there were none.
    bool Take(std::size_t place, std::string const& key, Conditions const& found, int rank, bool assumed);
    void TakeOne(std::size_t place, std::string const& keyword, char const* key, std::string const& value,
                 int rank, bool assumed, Conditions const& found);
    void AddNote(ReadNote::Kind kind, std::optional<std::size_t> keyword, std::string text) {
        notes_.push_back({kind, keyword, std::move(text)});
    }

    std::span<SampleSet::Property const> properties_;
    std::map<std::string, Statement, std::less<>> statements_;
    Conditions all_;
    Conditions spectrum_;
    std::vector<Note> notes_;
};

} // namespace Norvelian::ColorExchangeFormat
