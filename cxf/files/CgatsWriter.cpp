#include "cxf/files/CgatsWriter.h"

#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/CgatsFields.h"
#include "cxf/files/CgatsHeader.h"
#include "cxf/files/ConditionWords.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;
using Tristim::Numbers::Shortest;
using namespace Tristim::Vocabulary;

namespace {

/// Keywords that are written again for each table.
bool IsMade(std::string_view key) {
    static constexpr std::array<std::string_view, 14> made{
        "CGATSIDENTIFIER", "SPECTRALSCALE",   "SPECTRALNORM",  "SPECTRALNORMALIZATION",
        "SPECTRALUNITS",   "SPECTRALUNIT",    "XYZNORM",       "XYZSCALE",
        "XYZUNITS",        "SPECTRALSTARTNM", "SPECTRALENDNM", "SPECTRALBANDS",
        "NUMBEROFFIELDS",  "NUMBEROFSETS"};
    return std::find(made.begin(), made.end(), PlainName(key)) != made.end() ||
           key.starts_with(kConditionKeyword);
}

void RequirePlain(std::string const& text) {
    for (char const c : text)
        if (static_cast<unsigned char>(c) < ' ' && c != '\t')
            throw TristimException("the text \"" + text +
                                   "\" has a line break or control character, which CGATS can't hold");
}

std::string Quote(std::string const& text) {
    RequirePlain(text);
    std::string quoted = "\"";
    for (char const c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

/// A keyword or field name: bare where it reads back as one word.
std::string Word(std::string const& text) {
    static constexpr std::array<std::string_view, 4> reserved{"BEGIN_DATA_FORMAT", "END_DATA_FORMAT",
                                                              "BEGIN_DATA", "END_DATA"};
    bool const plain = std::all_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) > ' ' && c != '"' && c != '#';
    });
    CgatsToken token;
    token.text = text;
    bool const taken = std::any_of(reserved.begin(), reserved.end(),
                                   [&token](std::string_view word) { return token.Is(word); });
    return plain && !taken && !text.empty() ? text : Quote(text);
}

/// A keyword's value: numbers are not quoted.
std::string HeaderValue(std::string const& value) {
    double number = 0;
    return Tristim::Numbers::Parse(value, number) ? value : Quote(value);
}

void FailIfMixed(std::string const& key, std::string const& one, std::string const& other) {
    if (one == other) return;
    throw TristimException("CGATS can't hold colours and spectra whose conditions differ: " + key + " is \"" +
                           one + "\" and \"" + other + "\" in one table");
}

/// Writes one table.
class Table {
public:
    explicit Table(SampleSet const& set) : set_(set) {}

    std::string Write() {
        if (set_.GetSamples().empty())
            throw TristimException("a table without samples can't be written as CGATS");
        if (!set_.GetForeign().IsEmpty() || !set_.GetFileForeign().IsEmpty()) FailForeign("the sample set");
        MakeFields();
        CheckConditions();
        WriteHeader();
        WriteFormat();
        text_ += "BEGIN_DATA\n";
        for (auto const& sample : set_.GetSamples()) WriteSample(*sample);
        text_ += "END_DATA\n";
        return std::move(text_);
    }

private:
    [[noreturn]] static void FailForeign(std::string const& what) {
        throw TristimException(what + " holds XML parts, which CGATS can't hold");
    }
    Sample const& First() const { return *set_.GetSamples().front(); }
    void AddKeyword(std::string const& key, std::string const& value) { added_.emplace_back(key, value); }
    void MakeFields();
    void MakeField(SampleAttribute const& attribute);
    void CheckConditions() const;
    void WriteHeader();
    void WriteFormat();
    void WriteSample(Sample const& sample);
    void WriteAttribute(SampleAttribute const& attribute, SampleAttribute const& model,
                        std::string const& name);

    SampleSet const& set_;
    std::string text_;
    std::vector<std::string> fields_;
    std::vector<SampleSet::Property> added_;
    bool ids_ = false;
    bool names_ = false;
    bool descriptions_ = false;
};

void Table::MakeFields() {
    for (auto const& sample : set_.GetSamples()) {
        ids_ = ids_ || !sample->GetId().empty();
        names_ = names_ || sample->GetName() != sample->GetId();
        descriptions_ = descriptions_ || !sample->GetDescription().empty();
    }
    if (ids_) fields_.emplace_back("SAMPLE_ID");
    if (names_) fields_.emplace_back("SAMPLE_NAME");
    if (descriptions_) fields_.emplace_back(kCgatsDescription);
    for (auto const& attribute : First().GetSampleAttributes()) MakeField(*attribute);
    if (fields_.empty()) throw TristimException("samples without name and values can't be written as CGATS");
    std::vector<std::string> sorted = fields_;
    std::sort(sorted.begin(), sorted.end());
    auto const twice = std::adjacent_find(sorted.begin(), sorted.end());
    if (twice != sorted.end()) throw TristimException("CGATS can't hold the field " + *twice + " twice");
}

void Table::MakeField(SampleAttribute const& attribute) {
    auto const take = [this](Conditions const& conditions) {
        for (auto const& [key, value] : conditions.GetAll()) {
            if (!key.starts_with("Physical.") && !key.starts_with("Colorimetric.")) continue;
            AddKeyword(kConditionKeyword + key, value);
            std::string const by = conditions.GetMeasureConditions().GetAssumption(key);
            if (!by.empty()) AddKeyword(kAssumedKeyword + key, by);
        }
    };
    if (auto const* const spectrum = dynamic_cast<Spectrum const*>(&attribute)) {
        if (spectrum->GetFirst() < kLowestWavelength || spectrum->GetLast() > kHighestWavelength)
            throw TristimException("CGATS has no fields for a spectrum from " +
                                   Shortest(spectrum->GetFirst()) + " to " + Shortest(spectrum->GetLast()) +
                                   " nm");
        take(spectrum->GetConditions());
        AddKeyword("SPECTRAL_BANDS", std::to_string(spectrum->GetValues().size()));
        AddKeyword("SPECTRAL_START_NM", Shortest(spectrum->GetFirst()));
        AddKeyword("SPECTRAL_END_NM", Shortest(spectrum->GetLast()));
        AddKeyword("SPECTRAL_NORM", "1");
        for (std::size_t i = 0; i < spectrum->GetValues().size(); ++i)
            fields_.push_back("SPECTRAL_NM" +
                              std::to_string(std::lround(spectrum->GetFirst() +
                                                         spectrum->GetStep() * static_cast<double>(i))));
    } else if (auto const* const colour = dynamic_cast<ColorVector const*>(&attribute)) {
        std::string const space = colour->GetConditions().GetAttribute(Key::ColorSpaceType, "CIELab");
        auto const& known = CgatsColours();
        auto const found = std::find_if(known.begin(), known.end(),
                                        [&space](CgatsColour const& one) { return space == one.space; });
        if (found == known.end()) throw TristimException("CGATS has no fields for colours of " + space);
        if (!found->device) take(colour->GetConditions());
        if (space == "CIEXYZ" || space == "CIExyY") AddKeyword("XYZ_NORM", "100");
        for (char const* const field : found->fields)
            if (field) fields_.emplace_back(field);
    } else if (auto const* const unknown = dynamic_cast<UnknownSampleAttribute const*>(&attribute)) {
        if (unknown->IsMarkup()) FailForeign("sample \"" + First().GetName() + "\"");
        fields_.push_back(unknown->GetName());
    } else {
        throw TristimException("CGATS can't hold an attribute of type " + attribute.GetType());
    }
}

/// What the reader will make of the header must be what the attributes have.
void Table::CheckConditions() const {
    SampleSet header;
    for (auto const& [key, value] : set_.GetProperties())
        if (!IsMade(key)) header.AddProperty(key, value);
    for (auto const& [key, value] : added_) header.AddProperty(key, value);
    CgatsHeader const understood(header.GetProperties());
    for (auto const& attribute : First().GetSampleAttributes()) {
        Conditions const& held = attribute->GetConditions();
        Conditions read;
        if (attribute->GetType() == Format::Spectrum) {
            read = understood.GetSpectrumConditions();
        } else if (attribute->GetType() == Format::ColorVector) {
            std::string const space = held.GetAttribute(Key::ColorSpaceType, "CIELab");
            read.SetAttribute(Key::ColorSpaceType, space);
            bool const device = space == "CMYK" || space == "RGB";
            if (!device) read = understood.GetColourConditions(space);
        }
        if (held == read) continue;
        for (auto const& [key, value] : read.GetAll()) FailIfMixed(key, held.GetAttribute(key, ""), value);
        throw TristimException(std::string("CGATS can't hold all conditions of an attribute of type ")
                                   .append(attribute->GetType()));
    }
}

void Table::WriteHeader() {
    std::string const identifier = set_.GetProperty(kCgatsIdentifier);
    text_ += Word(identifier.empty() ? "CGATS.17" : identifier) + "\n";
    bool described = set_.GetDescription().empty();
    for (auto const& [key, value] : set_.GetProperties()) {
        if (IsMade(key) || (key == "KEYWORD" && IsMade(value))) continue;
        if (key == "#") {
            RequirePlain(value);
            text_.append("#").append(value).append("\n");
        } else if (!described && (key == "FILE_DESCRIPTOR" || key == "DESCRIPTOR")) {
            text_ += key + "\t" + Quote(set_.GetDescription()) + "\n";
            described = true;
        } else {
            text_ += Word(key);
            if (!value.empty()) text_ += '\t' + HeaderValue(value);
            text_ += '\n';
        }
    }
    if (!described) text_ += "FILE_DESCRIPTOR\t" + Quote(set_.GetDescription()) + "\n";
    std::sort(added_.begin(), added_.end());
    added_.erase(std::unique(added_.begin(), added_.end()), added_.end());
    for (auto const& [key, value] : added_) {
        if (key.starts_with(kConditionKeyword)) text_ += "KEYWORD\t" + Quote(key) + "\n";
        text_ += Word(key) + "\t" + HeaderValue(value) + "\n";
    }
}

void Table::WriteFormat() {
    text_ += "NUMBER_OF_FIELDS\t" + std::to_string(fields_.size()) + "\nBEGIN_DATA_FORMAT\n";
    for (std::string const& field : fields_) text_ += Word(field) + '\t';
    text_.pop_back();
    text_ += "\nEND_DATA_FORMAT\nNUMBER_OF_SETS\t" + std::to_string(set_.GetSamples().size()) + "\n";
}

void Table::WriteSample(Sample const& sample) {
    auto const& model = First().GetSampleAttributes();
    auto const& attributes = sample.GetSampleAttributes();
    if (!sample.GetForeign().IsEmpty()) FailForeign("sample \"" + sample.GetName() + "\"");
    if (attributes.size() != model.size())
        throw TristimException("sample \"" + sample.GetName() +
                               "\" has other attributes than the first one; one CGATS table "
                               "can't hold both");
    if (ids_) text_ += Quote(sample.GetId()) + "\t";
    if (names_) text_ += Quote(sample.GetName()) + "\t";
    if (descriptions_) text_ += Quote(sample.GetDescription()) + "\t";
    for (std::size_t i = 0; i < model.size(); ++i)
        WriteAttribute(*attributes[i], *model[i], sample.GetName());
    text_.back() = '\n';
}

void Table::WriteAttribute(SampleAttribute const& attribute, SampleAttribute const& model,
                           std::string const& name) {
    bool same = attribute.GetType() == model.GetType() && attribute.GetConditions() == model.GetConditions();
    if (!attribute.GetForeign().IsEmpty()) FailForeign("sample \"" + name + "\"");
    std::vector<double> const* values = nullptr;
    if (auto const* const spectrum = dynamic_cast<Spectrum const*>(&attribute); spectrum && same) {
        auto const& first = static_cast<Spectrum const&>(model);
        same = spectrum->GetFirst() == first.GetFirst() && spectrum->GetStep() == first.GetStep() &&
               spectrum->GetValues().size() == first.GetValues().size();
        values = &spectrum->GetValues();
        std::string const type = spectrum->GetConditions().GetAttribute(Key::SpectrumType, "Remission");
        if ((type == "Remission" || type == "Transmission") &&
            *std::max_element(values->begin(), values->end()) > kHighestFactor)
            throw TristimException("sample \"" + name +
                                   "\" has a reflectance of more than 1000 percent, which no "
                                   "reader of CGATS would take for one");
    } else if (auto const* const colour = dynamic_cast<ColorVector const*>(&attribute); colour && same) {
        values = &colour->GetVector().GetExactValues();
        std::string const type = colour->GetConditions().GetAttribute(Key::SpectrumType, "Remission");
        std::string const space = colour->GetConditions().GetAttribute(Key::ColorSpaceType, "CIELab");
        std::string const reason = WhyNoSurface(space, *values);
        if ((type == "Remission" || type == "Transmission") && !reason.empty())
            throw TristimException("sample \"" + name + "\": " + reason +
                                   ", which no reader of CGATS would take");
    } else if (auto const* const unknown = dynamic_cast<UnknownSampleAttribute const*>(&attribute);
               unknown && same) {
        same = unknown->GetName() == static_cast<UnknownSampleAttribute const&>(model).GetName() &&
               !unknown->IsMarkup();
        if (same) text_ += HeaderValue(unknown->GetText()) + "\t";
    }
    if (!same)
        throw TristimException("sample \"" + name +
                               "\" has other attributes or conditions than the first one; one CGATS "
                               "table can't hold both");
    if (values)
        for (double const value : *values) text_ += Shortest(value) + "\t";
}

} // namespace

std::string WriteCgats(std::vector<SampleSetPointer> const& sets) {
    std::string text;
    for (SampleSetPointer const& set : sets) {
        if (!text.empty()) text += '\n';
        text += Table(*set).Write();
    }
    return text;
}

} // namespace Norvelian::ColorExchangeFormat
