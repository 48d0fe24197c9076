#pragma once

#include "cxf/files/CgatsFields.h"
#include "cxf/files/CgatsHeader.h"
#include "cxf/files/ReadProgress.h"
#include "cxf/files/SampleFile.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// One table whose words have been read but not yet understood: header, data format and data. `AddSamples`
/// makes samples of it and notes what it took for what.
class CgatsTable {
public:
    /// All must outlive the table.
    CgatsTable(CgatsScanner const& from, ReadOptions const& by, ReadProgress& told)
        : scanner(from), options(by), progress(told) {}

    CgatsScanner const& scanner;
    ReadOptions const& options;
    ReadProgress& progress;
    /// Where each property of the set is.
    std::vector<CgatsToken> properties;
    std::optional<double> norm;    ///< what the header says of the spectra's scale
    std::optional<double> xyzNorm; ///< and of that of XYZ
    /// What the header says of the bands. Wavelengths tell more than the fields' names where these are
    /// rounded.
    struct Bands {
        std::optional<double> first;
        std::optional<double> last;
        std::optional<double> count;
    };
    Bands stated;
    std::vector<CgatsToken> format;
    CgatsLayout layout;
    /// All words of the data, one set behind the other; numbers are read when the table is whole.
    std::vector<CgatsToken> data;
    /// The first word of the first line that doesn't hold exactly one set.
    std::optional<CgatsToken> uneven;
    std::size_t unevenCount = 0;

    /// Throws `FileException`, as do the two below.
    void AddSamples(SampleSet& set);
    [[noreturn]] void FailInData(CgatsToken const& where, std::string const& reason) const;
    [[noreturn]] void FailUneven() const;
    /// "50;10;-10" and "50,10,-10": what should have been several words.
    static bool IsJoined(std::string_view text);

private:
    /// A colour of the table with what is the same in all rows.
    struct ReadColour {
        CgatsLayout::Colour const* colour = nullptr;
        Conditions conditions;
        double scale = 1;
    };

    CgatsHeader TakeHeader(SampleSet const& set);
    /// The highest value.
    double ReadSpectra();
    double FindSpectralScale(SampleSet& set, std::string const& type, double highest);
    /// What the tristimulus values must be multiplied by to have 100 for white.
    double FindXyzScale(CgatsLayout::Colour const& colour, Conditions const& conditions);
    /// Fails at a lightness or chroma that no surface has: a shifted column, or another scale.
    void CheckRange(CgatsLayout::Colour const& colour, Conditions const& conditions);
    std::vector<ReadColour> PrepareColours(CgatsHeader const& header);
    double Number(CgatsToken const& token, std::size_t field) const;
    bool Notes() const { return options.report || options.strict; }
    void Note(ReadNote::Kind kind, CgatsToken const& where, std::string const& text);
    void NoteSpectra(Conditions const& conditions);
    void NoteBands();
    void NoteColour(CgatsLayout::Colour const& colour, Conditions const& conditions);
    void NoteFields();

    std::vector<double> spectra_;
};

/// Wavelengths that a spectrum of 36 bands needs, with room for rounding.
inline constexpr double kFirstBand = 380.01;
inline constexpr double kLastBand = 729.99;

} // namespace Norvelian::ColorExchangeFormat
