#include "cxf/files/CgatsReader.h"

#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/CgatsFields.h"
#include "cxf/files/CgatsHeader.h"
#include "cxf/files/CgatsScanner.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace Norvelian::ColorExchangeFormat {

using Tristim::Numbers::Parse;
using ::Utilities::MakeSmart;

namespace {

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
    SampleSetPointer ReadTable();
    void TakeKeyword(CgatsToken const& keyword, SampleSet& set, Stated& stated);
    void ReadHeader(SampleSet& set, Stated& stated);
    void ReadFormat();
    void ReadData(SampleSet& set, Stated const& stated);
    void ReadSet(CgatsToken const& first);
    void CheckCoverage() const;
    void AddSamples(SampleSet& set);
    double Number(CgatsToken const& token, std::size_t field) const;
    std::optional<double> HeaderNumber(CgatsToken const& keyword, std::string const& value) const;
    [[noreturn]] void FailInData(CgatsToken const& where, std::string const& reason) const;

    CgatsScanner scanner_;
    ReadOptions options_;
    std::optional<double> start_;
    std::optional<double> end_;
    std::optional<double> norm_;
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
    scanner_.Fail(keyword, std::string(keyword.text) + " is \"" + value + "\"; expected a number");
}

void Reader::TakeKeyword(CgatsToken const& keyword, SampleSet& set, Stated& stated) {
    std::string const key = keyword.Unquoted();
    std::string const value = scanner_.RestOfLine();
    if (key == "NUMBER_OF_FIELDS") {
        stated.fields = HeaderNumber(keyword, value);
        stated.fieldsAt = keyword;
    } else if (key == "NUMBER_OF_SETS") {
        stated.sets = HeaderNumber(keyword, value);
        stated.setsAt = keyword;
    } else {
        if (key == "SPECTRAL_START_NM") start_ = HeaderNumber(keyword, value);
        if (key == "SPECTRAL_END_NM") end_ = HeaderNumber(keyword, value);
        if (key == "SPECTRAL_NORM") norm_ = HeaderNumber(keyword, value);
        if (key == "SPECTRAL_NORM" && !(*norm_ > 0))
            scanner_.Fail(keyword, "SPECTRAL_NORM is " + value + "; expected a positive number");
        set.AddProperty(key, value);
    }
}

void Reader::ReadHeader(SampleSet& set, Stated& stated) {
    bool first = true;
    while (true) {
        CgatsToken const keyword = scanner_.Next();
        for (std::string_view const comment : scanner_.TakeComments())
            set.AddProperty("#", std::string(comment));
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
            set.AddProperty(kCgatsIdentifier, keyword.Unquoted());
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
    if (uneven_ && uneven_->text.data() <= where.text.data())
        scanner_.Fail(*uneven_, "the line has " + std::to_string(unevenCount_) + " values; expected " +
                                    std::to_string(format_.size()));
    scanner_.Fail(where, reason);
}

void Reader::ReadData(SampleSet& set, Stated const& stated) {
    data_.clear();
    uneven_.reset();
    CgatsToken lineStart{};
    std::size_t inLine = 0;
    auto const endLine = [&] {
        if (inLine == 0 || inLine == format_.size() || uneven_) return;
        uneven_ = lineStart;
        unevenCount_ = inLine;
    };
    CgatsToken token = scanner_.Next();
    for (; !token.Is("END_DATA"); token = scanner_.Next()) {
        // The first set may stand behind BEGIN_DATA on its line.
        if (token.startsLine || data_.empty()) {
            endLine();
            lineStart = token;
            inLine = 0;
        }
        if (token.atEnd) FailInData(token, "the file ends in the data; expected END_DATA");
        data_.push_back(token);
        ++inLine;
    }
    endLine();
    std::size_t const sets = data_.size() / format_.size();
    if (data_.size() % format_.size() != 0)
        FailInData(token, "the last set has " + std::to_string(data_.size() % format_.size()) +
                              " values; expected " + std::to_string(format_.size()));
    if (stated.sets && *stated.sets != static_cast<double>(sets))
        scanner_.Fail(stated.setsAt, "NUMBER_OF_SETS is " + Tristim::Numbers::Shortest(*stated.sets) +
                                         ", but the data hold " + std::to_string(sets) + " sets");
    AddSamples(set);
}

double Reader::Number(CgatsToken const& token, std::size_t field) const {
    double value = 0;
    if (!token.quoted && Parse(token.text, value)) return value;
    // Some writers quote every value.
    if (token.quoted && Parse(token.text, value)) return value;
    FailInData(token, "\"" + token.Unquoted() + "\" in field " + layout_.names[field] +
                          "; expected a finite number");
}

void Reader::CheckCoverage() const {
    double const last = layout_.first + layout_.step * static_cast<double>(layout_.bands.size() - 1);
    if (layout_.bands.empty() || options_.allowExtrapolation) return;
    if (layout_.first <= 380.01 && last >= 729.99) return;
    std::size_t const field = layout_.first > 380.01 ? layout_.bands.front() : layout_.bands.back();
    scanner_.Fail(format_[field], "the spectra reach from " + Tristim::Numbers::Shortest(layout_.first) +
                                      " to " + Tristim::Numbers::Shortest(last) +
                                      " nm; expected 380 to 730 nm");
}

void Reader::AddSamples(SampleSet& set) {
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
    Conditions const spectrumConditions = CgatsSpectrumConditions(set);
    std::string const type =
        spectrumConditions.GetAttribute(Tristim::Vocabulary::Key::SpectrumType, "Remission");
    bool const reflects = type == "Remission" || type == "Transmission";
    double scale = norm_.value_or(1);
    if (!norm_ && reflects && highest > 2) scale = 100;
    if (bands) {
        std::string const told = norm_          ? "stated by SPECTRAL_NORM"
                                 : scale == 100 ? "a value is above 2"
                                                : "no value is above 2";
        set.AddProperty(kSpectralScale, (scale == 100 ? "percent: " : "fraction: ") + told);
    }
    if (scale != 1)
        for (double& value : spectra_) value /= scale;

    std::vector<Conditions> colourConditions;
    for (auto const& colour : layout_.colours) {
        Conditions device;
        device.SetAttribute(Tristim::Vocabulary::Key::ColorSpaceType, colour.kind->space);
        colourConditions.push_back(colour.kind->device ? device
                                                       : CgatsColourConditions(set, colour.kind->space));
    }
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
        for (std::size_t i = 0; i < layout_.colours.size(); ++i) {
            components.clear();
            for (std::size_t const field : layout_.colours[i].fields)
                components.push_back(Number(values[field], field));
            sample->AddSampleAttribute(MakeSmart<ColorVector>(components, colourConditions[i]));
        }
        for (std::size_t const field : layout_.others)
            sample->AddSampleAttribute(
                MakeSmart<UnknownSampleAttribute>(layout_.names[field], values[field].Unquoted()));
        set.AddSample(sample);
    }
}

SampleSetPointer Reader::ReadTable() {
    auto set = MakeSmart<SampleSet>();
    Stated stated;
    start_.reset();
    end_.reset();
    norm_.reset();
    ReadHeader(*set, stated);
    ReadFormat();
    CheckCoverage();
    CgatsToken token = scanner_.Next();
    for (; !token.Is("BEGIN_DATA"); token = scanner_.Next()) {
        // Keywords may stand between format and data.
        if (token.atEnd) scanner_.Fail(token, "the file ends before the data; expected BEGIN_DATA");
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
