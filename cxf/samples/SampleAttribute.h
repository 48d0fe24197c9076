#pragma once

#include "cxf/conditions/NVColorVector.h"
#include "cxf/conditions/NVSpectrum.h"
#include "cxf/samples/Conditions.h"
#include "cxf/samples/ForeignParts.h"

#include <string>
#include <utility>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// Something known about a sample: a spectrum, a colour vector, a recipe, or what this library doesn't
/// understand and only keeps.
class SampleAttribute {
public:
    virtual ~SampleAttribute() = default;
    SampleAttribute(SampleAttribute const&) = delete;
    SampleAttribute& operator=(SampleAttribute const&) = delete;

    /// The object's name in the exchange format, such as "CXFSpectrum".
    virtual std::string GetType() const = 0;

    Conditions const& GetConditions() const { return conditions_; }
    void SetConditions(Conditions conditions) { conditions_ = std::move(conditions); }

    ForeignParts const& GetForeign() const { return foreign_; }
    void SetForeign(ForeignParts foreign) { foreign_ = std::move(foreign); }

protected:
    SampleAttribute() = default;
    explicit SampleAttribute(Conditions conditions) : conditions_(std::move(conditions)) {}

private:
    Conditions conditions_;
    ForeignParts foreign_;
};

/// A spectrum as it was read: any range, any even step. Reflectances are fractions.
class Spectrum : public SampleAttribute {
public:
    /// Throws `TristimException` for fewer than four values, a step that isn't positive, or a value that
    /// isn't finite. With `extrapolate`, bands that the spectrum lacks may be made up for by its end values.
    Spectrum(double first, double step, std::vector<double> values, Conditions conditions = {},
             bool extrapolate = false);

    std::string GetType() const override { return Tristim::Vocabulary::Format::Spectrum; }

    double GetFirst() const { return first_; } ///< wavelength of the first value in nm
    double GetStep() const { return step_; }   ///< nm
    double GetLast() const { return first_ + step_ * static_cast<double>(values_.size() - 1); }
    std::vector<double> const& GetValues() const { return values_; }
    bool MayExtrapolate() const { return extrapolate_; }

private:
    double first_;
    double step_;
    std::vector<double> values_;
    bool extrapolate_;
};

/// A colour as it was measured or stated, in the colour space of its conditions.
class ColorVector : public SampleAttribute {
public:
    /// Throws as `NVColorVector` does.
    ColorVector(std::vector<double> const& values, Conditions const& conditions)
        : SampleAttribute(conditions), vector_(values, conditions.GetMeasureConditions()) {}

    std::string GetType() const override { return Tristim::Vocabulary::Format::ColorVector; }
    Tristim::NVColorVector const& GetVector() const { return vector_; }

private:
    Tristim::NVColorVector vector_;
};

/// How a colour is made: ingredients and amounts.
class Recipe : public SampleAttribute {
public:
    struct Ingredient {
        std::string name;
        double amount = 0;
        std::string unit;
        bool operator==(Ingredient const&) const = default;
    };
    explicit Recipe(std::vector<Ingredient> ingredients) : ingredients_(std::move(ingredients)) {}

    std::string GetType() const override { return Tristim::Vocabulary::Format::Recipe; }
    std::vector<Ingredient> const& GetIngredients() const { return ingredients_; }

private:
    std::vector<Ingredient> ingredients_;
};

/// What a file holds beyond the vocabulary; kept so that it is there again when the file is written.
class UnknownSampleAttribute : public SampleAttribute {
public:
    /// The value of a field, or with `isMarkup` an XML element of that name as text.
    UnknownSampleAttribute(std::string name, std::string text, bool isMarkup = false)
        : name_(std::move(name)), text_(std::move(text)), isMarkup_(isMarkup) {}

    std::string GetType() const override { return Tristim::Vocabulary::Format::UnknownSampleAttribute; }
    std::string const& GetName() const { return name_; }
    std::string const& GetText() const { return text_; }
    bool IsMarkup() const { return isMarkup_; }

private:
    std::string name_;
    std::string text_;
    bool isMarkup_;
};

namespace Extensions {

/// The 36 bands of an exchange-format spectrum, and its conditions.
///
/// At steps of 10 nm and more, a band that the spectrum has is taken as it is and others are interpolated by
/// Lagrange's cubic through the four nearest values. Finer steps are averaged by a triangular bandpass of
/// 10 nm, as an instrument with such bands measures; a narrow line then counts with its width. Bands beyond
/// the ends repeat the end value if the spectrum may be extrapolated and has at least 400 to 700 nm. The
/// condition "Physical.Resampling" of the result says what was done, and what beyond 380 to 730 nm wasn't
/// used. Throws `TristimException` for missing bands otherwise.
Tristim::NVSpectrum Cxf2NV(Spectrum const& spectrum);
/// The same for an attribute of unknown class; throws `TristimException` if it isn't a spectrum.
Tristim::NVSpectrum Cxf2NV(SampleAttribute const& attribute);

} // namespace Extensions

} // namespace Norvelian::ColorExchangeFormat
