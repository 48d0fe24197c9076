#include "cxf/files/CgatsReader.h"

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/CgatsFields.h"
#include "cxf/files/CgatsHeader.h"
#include "cxf/files/CgatsScanner.h"
#include "cxf/files/ConditionWords.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace Norvelian::ColorExchangeFormat {

using Tristim::Numbers::Parse;
using ::Utilities::MakeSmart;
using Kind = ReadNote::Kind;

namespace {

/// Wavelengths that a spectrum of 36 bands needs, with room for rounding.
constexpr double kFirstBand = 380.01;
constexpr double kLastBand = 729.99;
/// What end values may be repeated beyond.
constexpr double kVisibleFirst = 400.01;
constexpr double kVisibleLast = 699.99;

/// "0,5" and "-12,75": a number as it is written where the comma is the decimal sign.
bool HasDecimalComma(std::string_view text) {
    auto const comma = text.find(',');
    if (comma == std::string_view::npos || text.find(',', comma + 1) != std::string_view::npos) return false;
    std::string point(text);
    point[comma] = '.';
    double number = 0;
    return Parse(point, number);
}

/// The header's counts, checked against what the table holds, and never used to reserve memory.
struct Stated {
    std::optional<double> fields;
    std::optional<double> sets;
    CgatsToken fieldsAt;
    CgatsToken setsAt;
};

/// Reads one table after the other.
class Reader {
public:
    Reader(std::string_view text, std::string const& name, ReadOptions const& options)
        : scanner_(text, name), options_(options) {}

    std::vector<SampleSetPointer> Run() {
        std::vector<SampleSetPointer> sets;
        if (scanner_.Peek().atEnd) scanner_.Fail(scanner_.Peek(), "the file is empty; expected CGATS text");
        while (!scanner_.Peek().atEnd)
            if (SampleSetPointer set = ReadTable(); !set.IsNull()) sets.push_back(std::move(set));
        return sets;
    }

private:
    /// A colour of the table with what is the same in all rows.
    struct ReadColour {
        CgatsLayout::Colour const* colour = nullptr;
        Conditions conditions;
        double scale = 1;
    };

    SampleSetPointer ReadTable();
    void AddProperty(SampleSet& set, CgatsToken const& at, std::string key, std::string value) {
        set.AddProperty(std::move(key), std::move(value));
        properties_.push_back(at);
    }
    void TakeKeyword(CgatsToken const& keyword, SampleSet& set, Stated& stated);
    void ReadHeader(SampleSet& set, Stated& stated);
    void ReadFormat();
    void ReadData(SampleSet& set, Stated const& stated);
    void CheckCoverage() const;
    CgatsHeader TakeHeader(SampleSet const& set);
    /// The highest value.
    double ReadSpectra();
    double FindSpectralScale(SampleSet& set, std::string const& type, double highest);
    /// What the tristimulus values must be multiplied by to have 100 for white.
    double FindXyzScale(CgatsLayout::Colour const& colour, Conditions const& conditions);
    std::vector<ReadColour> PrepareColours(CgatsHeader const& header);
    void AddSamples(SampleSet& set);
    double Number(CgatsToken const& token, std::size_t field) const;
    std::optional<double> HeaderNumber(CgatsToken const& keyword, std::string const& value) const;
    double ScaleOf(CgatsToken const& keyword, std::string const& value) const;
    [[noreturn]] void FailInData(CgatsToken const& where, std::string const& reason) const;
    [[noreturn]] void FailUneven() const;
    bool Notes() const { return options_.report || options_.strict; }
    void Note(Kind kind, CgatsToken const& where, std::string const& text);
    void NoteSpectra(Conditions const& conditions);
    void NoteColour(CgatsLayout::Colour const& colour, Conditions const& conditions);
    void NoteFields();

    CgatsScanner scanner_;
    ReadOptions options_;
    /// Where each property of the set stands.
    std::vector<CgatsToken> properties_;
    std::optional<double> start_;
    std::optional<double> end_;
    std::optional<double> norm_;
    std::optional<double> xyzNorm_;
    std::vector<CgatsToken> format_;
    CgatsLayout layout_;
    /// All words of the data, one set behind the other; numbers are read when the table is whole.
    std::vector<CgatsToken> data_;
    /// The first word of the first line that doesn't hold exactly one set.
    std::optional<CgatsToken> uneven_;
    std::size_t unevenCount_ = 0;
    std::vector<double> spectra_;
};

std::optional<double> Reader::HeaderNumber(CgatsToken const& keyword, std::string const& value) const {
    double number = 0;
    if (Parse(value, number)) return number;
    scanner_.Fail(keyword, std::string(keyword.text) + " is \"" + value + "\"; expected a number" +
                               (HasDecimalComma(value) ? " with a decimal point, not a comma" : ""));
}

void Reader::TakeKeyword(CgatsToken const& keyword, SampleSet& set, Stated& stated) {
    std::string const key = keyword.Unquoted();
    std::string const value = scanner_.RestOfLine();
    std::string const plain = PlainName(key);
    if (plain == "NUMBEROFFIELDS") {
        stated.fields = HeaderNumber(keyword, value);
        stated.fieldsAt = keyword;
        return;
    }
    if (plain == "NUMBEROFSETS") {
        stated.sets = HeaderNumber(keyword, value);
        stated.setsAt = keyword;
        return;
    }
    if (plain == "SPECTRALSTARTNM") start_ = HeaderNumber(keyword, value);
    if (plain == "SPECTRALENDNM") end_ = HeaderNumber(keyword, value);
    if (plain == "SPECTRALNORM" || plain == "SPECTRALNORMALIZATION" || plain == "SPECTRALUNITS" ||
        plain == "SPECTRALUNIT")
        norm_ = ScaleOf(keyword, value);
    if (plain == "XYZNORM" || plain == "XYZSCALE" || plain == "XYZUNITS") xyzNorm_ = ScaleOf(keyword, value);
    AddProperty(set, keyword, key, value);
}

double Reader::ScaleOf(CgatsToken const& keyword, std::string const& value) const {
    std::string const plain = PlainName(value);
    if (plain == "PERCENT" || plain == "%" || plain == "PCT") return 100;
    if (plain == "FRACTION" || plain == "FACTOR" || plain == "DECIMAL") return 1;
    double const norm = *HeaderNumber(keyword, value);
    if (!(norm > 0))
        scanner_.Fail(keyword, keyword.Unquoted() + " is " + value + "; expected a positive number");
    return norm;
}

void Reader::ReadHeader(SampleSet& set, Stated& stated) {
    bool first = true;
    while (true) {
        CgatsToken const keyword = scanner_.Next();
        for (std::string_view const comment : scanner_.TakeComments())
            AddProperty(set, keyword, "#", std::string(comment));
        if (keyword.atEnd || keyword.Is("BEGIN_DATA_FORMAT")) {
            if (!keyword.atEnd) return;
            scanner_.Fail(keyword, "the file ends in the header; expected BEGIN_DATA_FORMAT");
        }
        if (keyword.Is("BEGIN_DATA") || keyword.Is("END_DATA") || keyword.Is("END_DATA_FORMAT"))
            scanner_.Fail(keyword,
                          std::string(keyword.text) + " stands in the header; expected BEGIN_DATA_FORMAT");
        CgatsToken const next = scanner_.Peek();
        bool const alone = next.startsLine || next.atEnd;
        if (first && alone)
            AddProperty(set, keyword, kCgatsIdentifier, keyword.Unquoted());
        else
            TakeKeyword(keyword, set, stated);
        first = false;
    }
}

void Reader::ReadFormat() {
    format_.clear();
    CgatsToken token = scanner_.Next();
    for (; !token.Is("END_DATA_FORMAT"); token = scanner_.Next()) {
        if (token.atEnd || token.Is("BEGIN_DATA"))
            scanner_.Fail(token, "the data format doesn't end; expected END_DATA_FORMAT");
        format_.push_back(token);
    }
    if (format_.empty()) scanner_.Fail(token, "the data format has no fields");
    layout_ = MakeCgatsLayout(scanner_, format_, start_, end_);
}

void Reader::FailInData(CgatsToken const& where, std::string const& reason) const {
    // A line that lacks a value shifts all that follow it; the line is the news then, and not what the
    // shift did to a later value.
    if (uneven_ && uneven_->text.data() <= where.text.data()) FailUneven();
    scanner_.Fail(where, reason);
}

void Reader::ReadData(SampleSet& set, Stated const& stated) {
    data_.clear();
    uneven_.reset();
    std::size_t const width = format_.size();
    CgatsToken lineStart{};
    std::size_t inLine = 0;
    // Sets may be longer or shorter than a line where the header says how many there are; but each begins a
    // line, or each line holds whole sets. Anything else is a value too many or too few.
    bool setsBeginLines = true;
    bool linesHoldSets = true;
    auto const endLine = [&] {
        if (inLine == 0 || inLine == width) return;
        linesHoldSets = linesHoldSets && inLine % width == 0;
        if (uneven_) return;
        uneven_ = lineStart;
        unevenCount_ = inLine;
    };
    CgatsToken token = scanner_.Next();
    for (; !token.Is("END_DATA"); token = scanner_.Next()) {
        bool const setBegins = data_.size() % width == 0;
        // The first set may stand behind BEGIN_DATA on its line.
        if (token.startsLine || data_.empty()) {
            endLine();
            lineStart = token;
            inLine = 0;
        } else if (setBegins) {
            setsBeginLines = false;
        }
        if (token.atEnd) FailInData(token, "the file ends in the data; expected END_DATA");
        data_.push_back(token);
        ++inLine;
    }
    endLine();
    std::size_t const sets = data_.size() / width;
    if (data_.size() % width != 0)
        FailInData(token, "the last set has " + std::to_string(data_.size() % width) + " values; expected " +
                              std::to_string(width));
    bool const counted = stated.sets && *stated.sets == static_cast<double>(sets);
    if (uneven_ && !(counted && (setsBeginLines || linesHoldSets))) FailUneven();
    if (stated.sets && !counted)
        scanner_.Fail(stated.setsAt, "NUMBER_OF_SETS is " + Tristim::Numbers::Shortest(*stated.sets) +
                                         ", but the data hold " + std::to_string(sets) + " sets");
    AddSamples(set);
}

void Reader::FailUneven() const {
    bool const few = unevenCount_ < format_.size();
    scanner_.Fail(*uneven_,
                  "the line has " + std::to_string(unevenCount_) + " values; expected " +
                      std::to_string(format_.size()) +
                      (few ? " (an empty cell is written \"\")" : " (a text with blanks needs quotes)"));
}

double Reader::Number(CgatsToken const& token, std::size_t field) const {
    double value = 0;
    // Some writers quote every value.
    if (Parse(token.text, value)) return value;
    std::string const text = token.Unquoted();
    FailInData(token, "\"" + text + "\" in field " + layout_.names[field] +
                          (HasDecimalComma(text) ? " has a decimal comma; expected a decimal point"
                                                 : "; expected a finite number"));
}

void Reader::CheckCoverage() const {
    if (layout_.bands.empty()) return;
    double const last = layout_.first + layout_.step * static_cast<double>(layout_.bands.size() - 1);
    bool const may = options_.allowExtrapolation;
    double const neededFirst = may ? kVisibleFirst : kFirstBand;
    double const neededLast = may ? kVisibleLast : kLastBand;
    if (layout_.first <= neededFirst && last >= neededLast) return;
    std::size_t const field = layout_.first > neededFirst ? layout_.bands.front() : layout_.bands.back();
    scanner_.Fail(format_[field],
                  "the spectra reach from " + Tristim::Numbers::Shortest(layout_.first) + " to " +
                      Tristim::Numbers::Shortest(last) + " nm; expected " +
                      (may ? "at least 400 to 700 nm, which can be extended" : "380 to 730 nm"));
}

double Reader::ReadSpectra() {
    std::size_t const width = format_.size();
    std::size_t const sets = data_.size() / width;
    std::size_t const bands = layout_.bands.size();
    spectra_.resize(sets * bands);
    double highest = 0;
    for (std::size_t row = 0; row < sets; ++row)
        for (std::size_t band = 0; band < bands; ++band) {
            std::size_t const field = layout_.bands[band];
            double const value = Number(data_[row * width + field], field);
            spectra_[row * bands + band] = value;
            highest = std::max(highest, value);
        }
    return highest;
}

double Reader::FindSpectralScale(SampleSet& set, std::string const& type, double highest) {
    bool const reflects = type == "Remission" || type == "Transmission";
    CgatsToken const& at = format_[layout_.bands.front()];
    double scale = 1;
    std::string told;
    if (norm_ && layout_.scale && *norm_ != *layout_.scale)
        Note(Kind::Contradiction, at,
             "SPECTRAL_NORM is " + Tristim::Numbers::Shortest(*norm_) + ", but the names of the bands say " +
                 Tristim::Numbers::Shortest(*layout_.scale) + "; SPECTRAL_NORM is assumed");
    if (norm_ || layout_.scale) {
        scale = norm_ ? *norm_ : *layout_.scale;
        told = norm_ ? "stated by SPECTRAL_NORM" : "stated by the fields' names";
        Note(scale == 1 ? Kind::Taken : Kind::Converted, at,
             "spectra on a scale of " + Tristim::Numbers::Shortest(scale) + ", " + told);
    } else if (reflects) {
        scale = highest > 2 ? 100 : 1;
        told = highest > 2 ? "a value is above 2" : "no value is above 2";
        Note(Kind::Assumed, at,
             std::string("spectra in ") + (scale == 100 ? "percent" : "fractions") + ": " + told);
    } else {
        told = "light";
    }
    if (reflects && highest / scale > kHighestFactor)
        scanner_.Fail(at, "the spectra are " + std::string(norm_ || layout_.scale ? "said" : "taken") +
                              " to be on a scale of " + Tristim::Numbers::Shortest(scale) +
                              ", but a value is " + Tristim::Numbers::Shortest(highest));
    set.AddProperty(kSpectralScale, (scale == 100 ? "percent: " : "fraction: ") + told);
    if (scale != 1)
        for (double& value : spectra_) value /= scale;
    return scale;
}

double Reader::FindXyzScale(CgatsLayout::Colour const& colour, Conditions const& conditions) {
    std::string_view const space = colour.kind->space;
    std::string const type = conditions.GetAttribute(Tristim::Vocabulary::Key::SpectrumType, "Remission");
    bool const reflects = type == "Remission" || type == "Transmission";
    if ((space != "CIEXYZ" && space != "CIExyY") || !reflects) return 1;
    CgatsToken const& at = format_[colour.fields.front()];
    if (xyzNorm_) {
        if (*xyzNorm_ != 100)
            Note(Kind::Converted, at,
                 std::string(space) + " on a scale of " + Tristim::Numbers::Shortest(*xyzNorm_));
        return 100 / *xyzNorm_;
    }
    std::size_t const width = format_.size();
    std::size_t const luminance = space == "CIEXYZ" ? colour.fields[1] : colour.fields[2];
    double highest = 0;
    double highestY = 0;
    std::size_t brightest = 0;
    for (std::size_t row = 0; row * width < data_.size(); ++row) {
        double const y = Number(data_[row * width + luminance], luminance);
        if (y > highestY) {
            highestY = y;
            brightest = row;
        }
        if (space == "CIEXYZ")
            for (std::size_t const field : colour.fields)
                highest = std::max(highest, Number(data_[row * width + field], field));
    }
    highest = std::max(highest, highestY);
    if (highest > 1.3 || highest == 0) return 1;
    // A lightness in the same row tells for certain.
    for (auto const& other : layout_.colours) {
        if (std::string_view(other.kind->space) != "CIELab") continue;
        double const stated = Number(data_[brightest * width + other.fields[0]], other.fields[0]);
        bool const fraction = std::abs(Tristim::Lightness(highestY) - stated) <
                              std::abs(Tristim::Lightness(highestY / 100) - stated);
        if (fraction)
            Note(Kind::Converted, at, std::string(space) + " on a scale of 1, as L* of the same row says");
        return fraction ? 100 : 1;
    }
    Note(Kind::Assumed, at, std::string(space) + " on a scale of 1: no value is above 1.3");
    return 100;
}

std::vector<Reader::ReadColour> Reader::PrepareColours(CgatsHeader const& header) {
    namespace Key = Tristim::Vocabulary::Key;
    std::vector<ReadColour> colours;
    for (auto const& colour : layout_.colours) {
        ReadColour read;
        read.colour = &colour;
        if (colour.kind->device) {
            read.conditions.SetAttribute(Key::ColorSpaceType, colour.kind->space);
        } else {
            read.conditions = header.GetColourConditions(colour.kind->space);
            if (!colour.viewing.GetAttribute(Key::Illumination, "").empty())
                for (char const* const key :
                     {Key::Illumination, Key::ColorTemperature, Key::FluorescentType, Key::IlluminantName})
                    read.conditions.Forget(key);
            for (auto const& [key, value] : colour.viewing.GetAll()) read.conditions.SetAttribute(key, value);
            read.scale = FindXyzScale(colour, read.conditions);
            NoteColour(colour, read.conditions);
        }
        colours.push_back(std::move(read));
    }
    return colours;
}

void Reader::NoteColour(CgatsLayout::Colour const& colour, Conditions const& conditions) {
    namespace Key = Tristim::Vocabulary::Key;
    if (!Notes()) return;
    auto const& held = conditions.GetMeasureConditions();
    CgatsToken const& at = format_[colour.fields.front()];
    Note(Kind::Taken, at, std::string(colour.kind->space) + " under " + Tristim::ConditionText(held));
    for (char const* const key : {Key::Illumination, Key::Observer})
        if (held.GetAssumption(key) == "CGATS.17")
            Note(Kind::Assumed, at,
                 std::string(key) + " of " + colour.kind->space + " is " + held.GetMeasureCondition(key) +
                     ", the default of CGATS.17");
}

void Reader::AddSamples(SampleSet& set) {
    CgatsHeader const header = TakeHeader(set);
    std::size_t const width = format_.size();
    std::size_t const sets = data_.size() / width;
    std::size_t const bands = layout_.bands.size();
    double const highest = ReadSpectra();
    Conditions spectrumConditions = header.GetSpectrumConditions();
    if (layout_.transmission &&
        spectrumConditions.GetAttribute(Tristim::Vocabulary::Key::SpectrumType, "").empty())
        spectrumConditions.SetAttribute(Tristim::Vocabulary::Key::SpectrumType, "Transmission");
    if (bands) {
        FindSpectralScale(
            set, spectrumConditions.GetAttribute(Tristim::Vocabulary::Key::SpectrumType, "Remission"),
            highest);
        NoteSpectra(spectrumConditions);
    }
    NoteFields();

    std::vector<ReadColour> const colours = PrepareColours(header);
    std::vector<double> components;
    for (std::size_t row = 0; row < sets; ++row) {
        std::span<CgatsToken const> const values(&data_[row * width], width);
        auto const text = [&values](std::optional<std::size_t> field) {
            return field ? values[*field].Unquoted() : std::string();
        };
        auto sample =
            MakeSmart<Sample>(text(layout_.name ? layout_.name : layout_.id), text(layout_.description));
        sample->SetId(text(layout_.id));
        if (bands) {
            auto const begin = spectra_.begin() + static_cast<std::ptrdiff_t>(row * bands);
            sample->AddSampleAttribute(
                MakeSmart<Spectrum>(layout_.first, layout_.step,
                                    std::vector<double>(begin, begin + static_cast<std::ptrdiff_t>(bands)),
                                    spectrumConditions, options_.allowExtrapolation));
        }
        for (ReadColour const& colour : colours) {
            components.clear();
            for (std::size_t const field : colour.colour->fields)
                components.push_back(Number(values[field], field));
            if (std::string_view(colour.colour->kind->space) == "CIExyY")
                components[2] *= colour.scale;
            else
                for (double& component : components) component *= colour.scale;
            sample->AddSampleAttribute(MakeSmart<ColorVector>(components, colour.conditions));
        }
        for (std::size_t const field : layout_.others)
            sample->AddSampleAttribute(
                MakeSmart<UnknownSampleAttribute>(layout_.names[field], values[field].Unquoted()));
        set.AddSample(sample);
    }
}

CgatsHeader Reader::TakeHeader(SampleSet const& set) {
    try {
        CgatsHeader header(set.GetProperties());
        for (CgatsHeader::Note const& note : header.GetNotes())
            Note(note.kind, note.keyword ? properties_[*note.keyword] : format_.front(), note.text);
        return header;
    } catch (CgatsHeaderException const& failure) {
        scanner_.Fail(properties_[failure.GetKeyword()], failure.what());
    }
}

void Reader::NoteSpectra(Conditions const& conditions) {
    if (!Notes()) return;
    CgatsToken const& at = format_[layout_.bands.front()];
    double const last = layout_.first + layout_.step * static_cast<double>(layout_.bands.size() - 1);
    using Tristim::Numbers::Shortest;
    Note(Kind::Taken, at,
         std::to_string(layout_.bands.size()) + " bands from " + Shortest(layout_.first) + " to " +
             Shortest(last) + " nm by " + Shortest(layout_.step) + " nm, " +
             Tristim::MeasurementText(conditions.GetMeasureConditions()));
    Spectrum const example(
        layout_.first, layout_.step,
        {spectra_.begin(), spectra_.begin() + static_cast<std::ptrdiff_t>(layout_.bands.size())}, conditions,
        options_.allowExtrapolation);
    std::string const done = Extensions::Cxf2NV(example).GetMeasureConditions().GetMeasureCondition(
        Tristim::Vocabulary::Key::Resampling);
    bool const extended = layout_.first > kFirstBand || last < kLastBand;
    if (!done.empty()) Note(extended ? Kind::Assumed : Kind::Converted, at, done);
}

void Reader::NoteFields() {
    if (!Notes()) return;
    std::string kept;
    for (std::size_t const field : layout_.others) {
        bool const meant = std::find(layout_.suspicious.begin(), layout_.suspicious.end(), field) !=
                           layout_.suspicious.end();
        if (!meant) kept += (kept.empty() ? "" : ", ") + layout_.names[field];
    }
    if (!kept.empty()) Note(Kind::Taken, format_[layout_.others.front()], "kept as text: " + kept);
    // The fields of one spectrum are one thing to say.
    std::string meant;
    for (std::size_t const field : layout_.suspicious)
        meant += (meant.empty() ? "" : ", ") + layout_.names[field];
    if (!meant.empty())
        Note(Kind::Skipped, format_[layout_.suspicious.front()],
             "look like a spectrum or a colour, aren't understood and are kept as text: " + meant);
}

void Reader::Note(Kind kind, CgatsToken const& where, std::string const& text) {
    if (options_.strict && (kind == Kind::Assumed || kind == Kind::Contradiction))
        scanner_.Fail(where, std::string(ReadReport::NameOf(kind)) + ": " + text);
    if (options_.report) options_.report->Add(kind, scanner_.LineOf(where), text);
}

SampleSetPointer Reader::ReadTable() {
    auto set = MakeSmart<SampleSet>();
    Stated stated;
    start_.reset();
    end_.reset();
    norm_.reset();
    xyzNorm_.reset();
    properties_.clear();
    ReadHeader(*set, stated);
    ReadFormat();
    CheckCoverage();
    CgatsToken token = scanner_.Next();
    for (; !token.Is("BEGIN_DATA"); token = scanner_.Next()) {
        // Keywords may stand between format and data.
        if (token.atEnd) scanner_.Fail(token, "the file ends before the data; expected BEGIN_DATA");
        if (token.Is("BEGIN_DATA_FORMAT") || token.Is("END_DATA_FORMAT") || token.Is("END_DATA"))
            scanner_.Fail(token, token.Unquoted() + " stands behind the data format; expected BEGIN_DATA");
        TakeKeyword(token, *set, stated);
    }
    if (stated.fields && *stated.fields != static_cast<double>(format_.size()))
        scanner_.Fail(stated.fieldsAt, "NUMBER_OF_FIELDS is " + Tristim::Numbers::Shortest(*stated.fields) +
                                           ", but the data format has " + std::to_string(format_.size()) +
                                           " fields");
    try {
        ReadData(*set, stated);
    } catch (Tristim::TristimException const& failure) {
        scanner_.Fail(token, failure.what());
    }
    set->SetDescription(set->GetProperty("FILE_DESCRIPTOR"));
    if (set->GetDescription().empty()) set->SetDescription(set->GetProperty("DESCRIPTOR"));
    set->SetName(set->GetDescription());
    return set->GetSamples().empty() ? SampleSetPointer() : set;
}

} // namespace

std::vector<SampleSetPointer> ReadCgats(std::string_view text, std::string const& name,
                                        ReadOptions const& options) {
    return Reader(text, name, options).Run();
}

} // namespace Norvelian::ColorExchangeFormat
