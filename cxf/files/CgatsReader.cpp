#include "cxf/files/CgatsReader.h"

#include "Utilities/Limits.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/CgatsScanner.h"
#include "cxf/files/CgatsTable.h"
#include "cxf/files/ConditionWords.h"
#include "cxf/files/ReadProgress.h"

#include <algorithm>

namespace Norvelian::ColorExchangeFormat {

using Tristim::Numbers::HasDecimalComma;
using Tristim::Numbers::Parse;
using ::Utilities::Limits;
using ::Utilities::MakeSmart;

namespace {

/// What end values may be repeated beyond.
constexpr double kVisibleFirst = 400.01;
constexpr double kVisibleLast = 699.99;

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
        : scanner_(text, name), options_(options), progress_(name, text.size(), options_),
          table_(scanner_, options_, progress_) {}

    std::vector<SampleSetPointer> Run() {
        std::vector<SampleSetPointer> sets;
        if (scanner_.Peek().atEnd) scanner_.Fail(scanner_.Peek(), "the file is empty; expected CGATS text");
        while (!scanner_.Peek().atEnd)
            if (SampleSetPointer set = ReadTable(); !set.IsNull()) sets.push_back(std::move(set));
        return sets;
    }

private:
    SampleSetPointer ReadTable();
    void AddProperty(SampleSet& set, CgatsToken const& at, std::string key, std::string value) {
        if (table_.properties.size() == limits_.headerEntries)
            scanner_.Fail(at,
                          Limits::Passed("headerEntries", limits_.headerEntries, "keywords and comments"));
        set.AddProperty(std::move(key), std::move(value));
        table_.properties.push_back(at);
    }
    void TakeKeyword(CgatsToken const& keyword, SampleSet& set, Stated& stated);
    void ReadHeader(SampleSet& set, Stated& stated);
    void ReadFormat();
    void ReadData(SampleSet& set, Stated const& stated);
    void CheckCoverage() const;
    std::optional<double> HeaderNumber(CgatsToken const& keyword, std::string const& value) const;
    double ScaleOf(CgatsToken const& keyword, std::string const& value) const;

    CgatsScanner scanner_;
    ReadOptions options_;
    Limits const& limits_ = Limits::Get();
    ReadProgress progress_;
    /// Of the tables that are done.
    std::size_t samples_ = 0;
    std::size_t values_ = 0;
    /// Bytes of which samples have been made.
    std::size_t built_ = 0;
    CgatsTable table_;
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
    if (plain == "SPECTRALBANDS") table_.stated.count = HeaderNumber(keyword, value);
    if (plain == "SPECTRALSTARTNM") table_.stated.first = HeaderNumber(keyword, value);
    if (plain == "SPECTRALENDNM") table_.stated.last = HeaderNumber(keyword, value);
    if (plain == "SPECTRALNORM" || plain == "SPECTRALNORMALIZATION" || plain == "SPECTRALUNITS" ||
        plain == "SPECTRALUNIT")
        table_.norm = ScaleOf(keyword, value);
    if (plain == "XYZNORM" || plain == "XYZSCALE" || plain == "XYZUNITS")
        table_.xyzNorm = ScaleOf(keyword, value);
    AddProperty(set, keyword, key, value);
}

double Reader::ScaleOf(CgatsToken const& keyword, std::string const& value) const {
    std::string const plain = PlainName(value);
    if (plain == "%" || plain.starts_with("PERCENT") || plain.starts_with("PCT")) return 100;
    if (plain.starts_with("FRACTION") || plain == "FACTOR" || plain == "DECIMAL") return 1;
    bool const sign = value.size() > 1 && value.ends_with('%');
    double norm = 0;
    if (!Parse(std::string_view(value).substr(0, value.size() - sign), norm))
        scanner_.Fail(keyword, keyword.Unquoted() + " is \"" + value +
                                   "\"; expected percent, fraction or a number" +
                                   (HasDecimalComma(value) ? " with a decimal point, not a comma" : ""));
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
                          std::string(keyword.text) + " is in the header; expected BEGIN_DATA_FORMAT");
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
    table_.format.clear();
    CgatsToken token = scanner_.Next();
    for (; !token.Is("END_DATA_FORMAT"); token = scanner_.Next()) {
        if (token.atEnd || token.Is("BEGIN_DATA"))
            scanner_.Fail(token, "the data format doesn't end; expected END_DATA_FORMAT");
        if (table_.format.size() == limits_.fields)
            scanner_.Fail(token, Limits::Passed("fields", limits_.fields, "fields"));
        if (!token.quoted && CgatsTable::IsJoined(token.text))
            scanner_.Fail(token, "the fields are parted by commas or semicolons; expected blanks or tabs");
        table_.format.push_back(token);
    }
    if (table_.format.empty()) scanner_.Fail(token, "the data format has no fields");
    table_.layout = MakeCgatsLayout(scanner_, table_.format, table_.stated.first, table_.stated.last);
}

void Reader::ReadData(SampleSet& set, Stated const& stated) {
    table_.data.clear();
    table_.uneven.reset();
    std::size_t const width = table_.format.size();
    CgatsToken lineStart{};
    std::size_t inLine = 0;
    // Sets may be longer or shorter than a line where the header says how many there are; but each begins a
    // line, or each line holds whole sets. Anything else is a value too many or too few.
    bool setsBeginLines = true;
    bool linesHoldSets = true;
    auto const endLine = [&] {
        if (inLine == 0 || inLine == width) return;
        linesHoldSets = linesHoldSets && inLine % width == 0;
        if (table_.uneven) return;
        table_.uneven = lineStart;
        table_.unevenCount = inLine;
    };
    CgatsToken token = scanner_.Next();
    for (; !token.Is("END_DATA"); token = scanner_.Next()) {
        bool const setBegins = table_.data.size() % width == 0;
        // The first set may come after BEGIN_DATA on its line.
        if (token.startsLine || table_.data.empty()) {
            endLine();
            lineStart = token;
            inLine = 0;
        } else if (setBegins) {
            setsBeginLines = false;
        }
        if (token.atEnd) table_.FailInData(token, "the file ends in the data; expected END_DATA");
        if (values_ + table_.data.size() == limits_.values)
            scanner_.Fail(token, Limits::Passed("values", limits_.values, "values"));
        if (setBegins && samples_ + table_.data.size() / width == limits_.samples)
            scanner_.Fail(token, Limits::Passed("samples", limits_.samples, "samples"));
        progress_.Advance(scanner_.OffsetOf(token), built_);
        table_.data.push_back(token);
        ++inLine;
    }
    endLine();
    std::size_t const sets = table_.data.size() / width;
    if (table_.data.size() % width != 0)
        table_.FailInData(token, "the last set has " + std::to_string(table_.data.size() % width) +
                                     " values; expected " + std::to_string(width));
    bool const counted = stated.sets && *stated.sets == static_cast<double>(sets);
    if (table_.uneven && !(counted && (setsBeginLines || linesHoldSets))) table_.FailUneven();
    if (stated.sets && !counted)
        scanner_.Fail(stated.setsAt, "NUMBER_OF_SETS is " + Tristim::Numbers::Shortest(*stated.sets) +
                                         ", but the data hold " + std::to_string(sets) + " sets");
    samples_ += sets;
    values_ += table_.data.size();
    table_.AddSamples(set);
    built_ = scanner_.OffsetOf(token);
}

void Reader::CheckCoverage() const {
    if (table_.layout.bands.empty()) return;
    double const last =
        table_.layout.first + table_.layout.step * static_cast<double>(table_.layout.bands.size() - 1);
    bool const may = options_.allowExtrapolation;
    double const neededFirst = may ? kVisibleFirst : kFirstBand;
    double const neededLast = may ? kVisibleLast : kLastBand;
    if (table_.layout.first <= neededFirst && last >= neededLast) return;
    std::size_t const field =
        table_.layout.first > neededFirst ? table_.layout.bands.front() : table_.layout.bands.back();
    scanner_.Fail(table_.format[field],
                  "the spectra reach from " + Tristim::Numbers::Shortest(table_.layout.first) + " to " +
                      Tristim::Numbers::Shortest(last) + " nm; expected " +
                      (may ? "at least 400 to 700 nm, which can be extended" : "380 to 730 nm"));
}

SampleSetPointer Reader::ReadTable() {
    auto set = MakeSmart<SampleSet>();
    Stated stated;
    table_.stated = {};
    table_.norm.reset();
    table_.xyzNorm.reset();
    table_.properties.clear();
    ReadHeader(*set, stated);
    ReadFormat();
    CheckCoverage();
    CgatsToken token = scanner_.Next();
    for (; !token.Is("BEGIN_DATA"); token = scanner_.Next()) {
        // Keywords may be between format and data.
        if (token.atEnd) scanner_.Fail(token, "the file ends before the data; expected BEGIN_DATA");
        if (token.Is("BEGIN_DATA_FORMAT") || token.Is("END_DATA_FORMAT") || token.Is("END_DATA"))
            scanner_.Fail(token, token.Unquoted() + " comes after the data format; expected BEGIN_DATA");
        TakeKeyword(token, *set, stated);
    }
    if (stated.fields && *stated.fields != static_cast<double>(table_.format.size()))
        scanner_.Fail(stated.fieldsAt, "NUMBER_OF_FIELDS is " + Tristim::Numbers::Shortest(*stated.fields) +
                                           ", but the data format has " +
                                           std::to_string(table_.format.size()) + " fields");
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
