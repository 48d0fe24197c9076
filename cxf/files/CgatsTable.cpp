#include "cxf/files/CgatsTable.h"

#include "cxf/colorimetry/ColorSpaces.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using Tristim::Numbers::HasDecimalComma;
using Tristim::Numbers::Parse;
using ::Utilities::MakeSmart;
using Kind = ReadNote::Kind;

bool CgatsTable::IsJoined(std::string_view text) {
    return text.find(';') != std::string_view::npos || std::count(text.begin(), text.end(), ',') > 1;
}

void CgatsTable::FailInData(CgatsToken const& where, std::string const& reason) const {
    // A line that lacks a value shifts all that follow it; the line is the news then, and not what the
    // shift did to a later value.
    if (uneven && uneven->text.data() <= where.text.data()) FailUneven();
    scanner.Fail(where, reason);
}

void CgatsTable::FailUneven() const {
    bool const few = unevenCount < format.size();
    scanner.Fail(*uneven, "the line has " + std::to_string(unevenCount) + " values; expected " +
                              std::to_string(format.size()) +
                              (IsJoined(uneven->text) ? " (values are parted by blanks or tabs)"
                               : few                  ? " (an empty cell is written \"\")"
                                                      : " (a text with blanks needs quotes)"));
}

double CgatsTable::Number(CgatsToken const& token, std::size_t field) const {
    double value = 0;
    // Some writers quote every value.
    if (Parse(token.text, value)) return value;
    std::string const text = token.Unquoted();
    FailInData(token, "\"" + text + "\" in field " + layout.names[field] +
                          (HasDecimalComma(text) ? " has a decimal comma; expected a decimal point"
                                                 : "; expected a finite number"));
}

double CgatsTable::ReadSpectra() {
    std::size_t const width = format.size();
    std::size_t const sets = data.size() / width;
    std::size_t const bands = layout.bands.size();
    spectra_.resize(sets * bands);
    double highest = 0;
    for (std::size_t row = 0; row < sets; ++row)
        for (std::size_t band = 0; band < bands; ++band) {
            std::size_t const field = layout.bands[band];
            double const value = Number(data[row * width + field], field);
            spectra_[row * bands + band] = value;
            highest = std::max(highest, value);
        }
    return highest;
}

double CgatsTable::FindSpectralScale(SampleSet& set, std::string const& type, double highest) {
    bool const reflects = type == "Remission" || type == "Transmission";
    CgatsToken const& at = format[layout.bands.front()];
    double scale = 1;
    std::string told;
    if (norm && layout.scale && *norm != *layout.scale)
        Note(Kind::Contradiction, at,
             "SPECTRAL_NORM is " + Tristim::Numbers::Shortest(*norm) + ", but the names of the bands say " +
                 Tristim::Numbers::Shortest(*layout.scale) + "; SPECTRAL_NORM is assumed");
    if (norm || layout.scale) {
        scale = norm ? *norm : *layout.scale;
        told = norm ? "stated by SPECTRAL_NORM" : "stated by the fields' names";
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
        scanner.Fail(at, "the spectra are " + std::string(norm || layout.scale ? "said" : "taken") +
                             " to be on a scale of " + Tristim::Numbers::Shortest(scale) +
                             ", but a value is " + Tristim::Numbers::Shortest(highest));
    set.AddProperty(kSpectralScale, (scale == 100 ? "percent: " : "fraction: ") + told);
    if (scale != 1)
        for (double& value : spectra_) value /= scale;
    return scale;
}

double CgatsTable::FindXyzScale(CgatsLayout::Colour const& colour, Conditions const& conditions) {
    std::string_view const space = colour.kind->space;
    std::string const type = conditions.GetAttribute(Tristim::Vocabulary::Key::SpectrumType, "Remission");
    bool const reflects = type == "Remission" || type == "Transmission";
    if ((space != "CIEXYZ" && space != "CIExyY") || !reflects) return 1;
    CgatsToken const& at = format[colour.fields.front()];
    if (xyzNorm) {
        if (*xyzNorm != 100)
            Note(Kind::Converted, at,
                 std::string(space) + " on a scale of " + Tristim::Numbers::Shortest(*xyzNorm));
        return 100 / *xyzNorm;
    }
    std::size_t const width = format.size();
    std::size_t const luminance = space == "CIEXYZ" ? colour.fields[1] : colour.fields[2];
    double highest = 0;
    double highestY = 0;
    std::size_t brightest = 0;
    for (std::size_t row = 0; row * width < data.size(); ++row) {
        double const y = Number(data[row * width + luminance], luminance);
        if (y > highestY) {
            highestY = y;
            brightest = row;
        }
        if (space == "CIEXYZ")
            for (std::size_t const field : colour.fields)
                highest = std::max(highest, Number(data[row * width + field], field));
    }
    highest = std::max(highest, highestY);
    if (highest > 1.3 || highest == 0) return 1;
    // A lightness in the same row tells for certain.
    for (auto const& other : layout.colours) {
        if (std::string_view(other.kind->space) != "CIELab") continue;
        double const lightness = Number(data[brightest * width + other.fields[0]], other.fields[0]);
        bool const fraction = std::abs(Tristim::Lightness(highestY) - lightness) <
                              std::abs(Tristim::Lightness(highestY / 100) - lightness);
        if (fraction)
            Note(Kind::Converted, at, std::string(space) + " on a scale of 1, as L* of the same row says");
        return fraction ? 100 : 1;
    }
    Note(Kind::Assumed, at, std::string(space) + " on a scale of 1: no value is above 1.3");
    return 100;
}

std::vector<CgatsTable::ReadColour> CgatsTable::PrepareColours(CgatsHeader const& header) {
    namespace Key = Tristim::Vocabulary::Key;
    std::vector<ReadColour> colours;
    for (auto const& colour : layout.colours) {
        ReadColour read;
        read.colour = &colour;
        if (colour.kind->device) {
            read.conditions.SetAttribute(Key::ColorSpaceType, colour.kind->space);
            Note(Kind::Taken, format[colour.fields.front()],
                 std::string(colour.kind->space) + ", what a device was sent");
        } else {
            read.conditions = header.GetColourConditions(colour.kind->space);
            if (!colour.viewing.GetAttribute(Key::Illumination, "").empty())
                for (char const* const key :
                     {Key::Illumination, Key::ColorTemperature, Key::FluorescentType, Key::IlluminantName})
                    read.conditions.Forget(key);
            for (auto const& [key, value] : colour.viewing.GetAll()) read.conditions.SetAttribute(key, value);
            read.scale = FindXyzScale(colour, read.conditions);
            CheckRange(colour, read.conditions);
            NoteColour(colour, read.conditions);
        }
        colours.push_back(std::move(read));
    }
    return colours;
}

void CgatsTable::CheckRange(CgatsLayout::Colour const& colour, Conditions const& conditions) {
    std::string_view const space = colour.kind->space;
    std::string const type = conditions.GetAttribute(Tristim::Vocabulary::Key::SpectrumType, "Remission");
    if (!HasLightness(space) || (type != "Remission" && type != "Transmission")) return;
    std::size_t const width = format.size();
    double highest = 0;
    for (std::size_t row = 0; row * width < data.size(); ++row) {
        CgatsToken const& at = data[row * width + colour.fields[0]];
        std::array<double, 2> values{};
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = Number(data[row * width + colour.fields[i]], colour.fields[i]);
        if (std::string const reason = WhyNoSurface(space, values); !reason.empty()) FailInData(at, reason);
        highest = std::max(highest, values[0]);
    }
    if (highest > 0 && highest <= 1)
        Note(Kind::Assumed, format[colour.fields.front()],
             std::string(space) + " on a scale of 100, though no L* is above 1");
}

void CgatsTable::NoteColour(CgatsLayout::Colour const& colour, Conditions const& conditions) {
    namespace Key = Tristim::Vocabulary::Key;
    if (!Notes()) return;
    auto const& held = conditions.GetMeasureConditions();
    CgatsToken const& at = format[colour.fields.front()];
    Note(Kind::Taken, at, std::string(colour.kind->space) + " under " + Tristim::ConditionText(held));
    for (char const* const key : {Key::Illumination, Key::Observer})
        if (held.GetAssumption(key) == "CGATS.17")
            Note(Kind::Assumed, at,
                 std::string(key) + " of " + colour.kind->space + " is " + held.GetMeasureCondition(key) +
                     ", the default of CGATS.17");
}

void CgatsTable::AddSamples(SampleSet& set) {
    CgatsHeader const header = TakeHeader(set);
    std::size_t const width = format.size();
    std::size_t const sets = data.size() / width;
    std::size_t const bands = layout.bands.size();
    double const highest = ReadSpectra();
    Conditions spectrumConditions = header.GetSpectrumConditions();
    if (layout.transmission &&
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
        std::span<CgatsToken const> const values(&data[row * width], width);
        auto const text = [&values](std::optional<std::size_t> field) {
            return field ? values[*field].Unquoted() : std::string();
        };
        auto sample =
            MakeSmart<Sample>(text(layout.name ? layout.name : layout.id), text(layout.description));
        sample->SetId(text(layout.id));
        if (bands) {
            auto const begin = spectra_.begin() + static_cast<std::ptrdiff_t>(row * bands);
            sample->AddSampleAttribute(
                MakeSmart<Spectrum>(layout.first, layout.step,
                                    std::vector<double>(begin, begin + static_cast<std::ptrdiff_t>(bands)),
                                    spectrumConditions, options.allowExtrapolation));
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
        for (std::size_t const field : layout.others)
            sample->AddSampleAttribute(
                MakeSmart<UnknownSampleAttribute>(layout.names[field], values[field].Unquoted()));
        set.AddSample(sample);
    }
}

CgatsHeader CgatsTable::TakeHeader(SampleSet const& set) {
    try {
        CgatsHeader header(set.GetProperties());
        for (CgatsHeader::Note const& note : header.GetNotes())
            Note(note.kind, note.keyword ? properties[*note.keyword] : format.front(), note.text);
        return header;
    } catch (CgatsHeaderException const& failure) {
        scanner.Fail(properties[failure.GetKeyword()], failure.what());
    }
}

void CgatsTable::NoteSpectra(Conditions const& conditions) {
    if (!Notes()) return;
    NoteBands();
    CgatsToken const& at = format[layout.bands.front()];
    double const last = layout.first + layout.step * static_cast<double>(layout.bands.size() - 1);
    using Tristim::Numbers::Shortest;
    Note(Kind::Taken, at,
         std::to_string(layout.bands.size()) + " bands from " + Shortest(layout.first) + " to " +
             Shortest(last) + " nm by " + Shortest(layout.step) + " nm, " +
             Tristim::MeasurementText(conditions.GetMeasureConditions()));
    // Only the grid counts: what is done to one spectrum is done to all.
    Spectrum const example(layout.first, layout.step, std::vector<double>(layout.bands.size()), conditions,
                           options.allowExtrapolation);
    std::string const done = Extensions::Cxf2NV(example).GetMeasureConditions().GetMeasureCondition(
        Tristim::Vocabulary::Key::Resampling);
    bool const extended = layout.first > kFirstBand || last < kLastBand;
    if (!done.empty()) Note(extended ? Kind::Assumed : Kind::Converted, at, done);
}

void CgatsTable::NoteBands() {
    double const last = layout.first + layout.step * static_cast<double>(layout.bands.size() - 1);
    auto const compare = [this](char const* keyword, std::optional<double> said, double found) {
        if (!said || std::abs(*said - found) < 1e-6) return;
        std::string const held = Tristim::Numbers::Shortest(found);
        Note(Kind::Contradiction, format[layout.bands.front()],
             std::string(keyword) + " is " + Tristim::Numbers::Shortest(*said) +
                 ", but the names of the bands say " + held + "; " + held + " is assumed");
    };
    compare("SPECTRAL_BANDS", stated.count, static_cast<double>(layout.bands.size()));
    compare("SPECTRAL_START_NM", stated.first, layout.first);
    compare("SPECTRAL_END_NM", stated.last, last);
}

void CgatsTable::NoteFields() {
    if (!Notes()) return;
    std::string kept;
    for (std::size_t const field : layout.others) {
        bool const meant =
            std::find(layout.suspicious.begin(), layout.suspicious.end(), field) != layout.suspicious.end();
        if (!meant) kept += (kept.empty() ? "" : ", ") + layout.names[field];
    }
    if (!kept.empty()) Note(Kind::Taken, format[layout.others.front()], "kept as text: " + kept);
    // The fields of one spectrum are one thing to say.
    std::string meant;
    for (std::size_t const field : layout.suspicious)
        meant += (meant.empty() ? "" : ", ") + layout.names[field];
    if (!meant.empty())
        Note(Kind::Skipped, format[layout.suspicious.front()],
             "look like a spectrum or a colour, aren't understood and are kept as text: " + meant);
}

void CgatsTable::Note(Kind kind, CgatsToken const& where, std::string const& text) {
    if (options.strict && (kind == Kind::Assumed || kind == Kind::Contradiction))
        scanner.Fail(where, std::string(ReadReport::NameOf(kind)) + ": " + text);
    if (options.report) options.report->Add(kind, scanner.LineOf(where), text);
}

} // namespace Norvelian::ColorExchangeFormat
