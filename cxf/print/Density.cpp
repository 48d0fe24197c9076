#include "cxf/print/Density.h"

#include "cxf/colorimetry/Resolved.h"
#include "cxf/colorimetry/Tables.h"
#include "cxf/conditions/TristimException.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Norvelian::Tristim {

using namespace Vocabulary;

namespace {

/// Columns of the ISO 5-3 table, after the wavelength.
enum DensityColumn : std::size_t { kStatusA = 1, kStatusE = 4, kStatusT = 10, kVisual = 15 };

/// Products for black, cyan, magenta, yellow.
using Products = std::array<Bands, 4>;

Bands FromTable(std::size_t column) {
    Tables::NumberTable const& table = Tables::IsoDensity;
    Bands bands{};
    for (std::size_t row = 0; row < table.rows; ++row) {
        double const band = (table.At(row, 0) - kBandFirst) / kBandStep;
        bands[static_cast<std::size_t>(std::clamp(band, 0.0, kBands - 1.0))] += table.At(row, column);
    }
    return bands;
}

Bands Narrow(double centre) {
    constexpr double width = 20;
    Bands bands{};
    for (std::size_t band = 0; band < kBands; ++band) {
        double const off = (kBandFirst + kBandStep * static_cast<double>(band) - centre) / width;
        bands[band] = std::exp2(-4 * off * off);
    }
    return bands;
}

Products Status(std::size_t red) {
    return {FromTable(kVisual), FromTable(red), FromTable(red + 1), FromTable(red + 2)};
}
Products NarrowBands(double red, double green, double blue) {
    return {FromTable(kVisual), Narrow(red), Narrow(green), Narrow(blue)};
}

Products UserProducts(NVMeasureConditions const& conditions) {
    Products products{};
    std::size_t place = 0;
    for (Text const key :
         {Key::UserFilterBlack, Key::UserFilterCyan, Key::UserFilterMagenta, Key::UserFilterYellow}) {
        auto const bands = conditions.GetBands(key);
        double sum = 0;
        if (bands)
            for (double const weight : *bands) sum += weight;
        if (!(sum > 0))
            throw TristimException("density standard User needs the condition " + std::string(key) +
                                   " with a positive sum");
        products[place++] = *bands;
    }
    return products;
}

Products ProductsOf(DensityStandard standard, NVMeasureConditions const& conditions) {
    switch (standard) {
    case DensityStandard::ANSIA:
        return Status(kStatusA);
    case DensityStandard::DIN:
    case DensityStandard::ANSIE:
        return Status(kStatusE);
    case DensityStandard::ANSIT:
        return Status(kStatusT);
    case DensityStandard::DINNB:
        return NarrowBands(620, 530, 430);
    case DensityStandard::ANSII:
    case DensityStandard::SPI:
        return NarrowBands(625, 535, 430);
    case DensityStandard::User:
        break;
    }
    return UserProducts(conditions);
}

template <class Values> double Density(Bands const& products, Values const& values) {
    double part = 0;
    double whole = 0;
    for (std::size_t band = 0; band < kBands; ++band) {
        part += products[band] * static_cast<double>(values[band]);
        whole += products[band];
    }
    return -std::log10(std::max(part / whole, 1e-6));
}
template <class Values> Densities AllDensities(Products const& products, Values const& values) {
    return {Density(products[0], values), Density(products[1], values), Density(products[2], values),
            Density(products[3], values)};
}

DensityFilter Choose(DensityFilter wanted, Densities const& all) {
    if (wanted != DensityFilter::Max && wanted != DensityFilter::Auto) return wanted;
    DensityFilter ink = DensityFilter::Cyan;
    for (DensityFilter const other : {DensityFilter::Magenta, DensityFilter::Yellow})
        if (all.Of(other) > all.Of(ink)) ink = other;
    double const highest = all.Of(ink);
    if (wanted == DensityFilter::Max) return all.black >= highest ? DensityFilter::Black : ink;
    double const lowest = std::min({all.cyan, all.magenta, all.yellow});
    return highest <= 0 || lowest >= 0.6 * highest ? DensityFilter::Black : ink;
}

} // namespace

double Densities::Of(DensityFilter filter) const {
    switch (filter) {
    case DensityFilter::Cyan:
        return cyan;
    case DensityFilter::Magenta:
        return magenta;
    case DensityFilter::Yellow:
        return yellow;
    case DensityFilter::Black:
    case DensityFilter::Max:
    case DensityFilter::Auto:
        break;
    }
    return black;
}

DensityReading GetDensity(NVSpectrum const& spectrum, NVMeasureConditions const& conditions) {
    constexpr auto byDefault = static_cast<std::size_t>(DensityStandard::ANSIE);
    std::size_t const standard =
        conditions.GetChoice(Key::DensityStandard, Value::DensityStandard, byDefault);
    auto const wanted = static_cast<DensityFilter>(conditions.GetChoice(
        Key::DensityFilterMode, Value::DensityFilterMode, static_cast<std::size_t>(DensityFilter::Auto)));
    Resolved const resolved = Resolve(conditions, spectrum.GetMeasureConditions());
    std::string const type = resolved.conditions.GetMeasureCondition(Key::SpectrumType);
    if (type != "Remission" && type != "Transmission")
        throw TristimException("a spectrum of type \"" + type + "\" has no density");

    Products const products = ProductsOf(static_cast<DensityStandard>(standard), conditions);
    DensityReading reading{};
    reading.all = AllDensities(products, spectrum.GetValues());
    if (resolved.conditions.GetMeasureCondition(Key::WhiteBase) == "Paper") {
        Densities const paper = AllDensities(products, *resolved.conditions.GetBands(Key::PaperSpectrum));
        reading.all.black -= paper.black;
        reading.all.cyan -= paper.cyan;
        reading.all.magenta -= paper.magenta;
        reading.all.yellow -= paper.yellow;
    }
    reading.filter = Choose(wanted, reading.all);
    reading.value = reading.all.Of(reading.filter);
    // A density has neither illuminant nor colour space.
    reading.conditions = resolved.conditions;
    for (Text const key : {Key::Illumination, Key::Observer, Key::ColorSpaceType, Key::AbsoluteOrDeltaVector,
                           Key::ColorTemperature, Key::FluorescentType, Key::IlluminantName,
                           Key::UserIllumination, Key::Bandpass})
        reading.conditions.Forget(key);
    reading.conditions.SetMeasureCondition(Key::DensityStandard, Value::DensityStandard[standard]);
    reading.conditions.SetMeasureCondition(
        Key::DensityFilterMode, Value::DensityFilterMode[static_cast<std::size_t>(reading.filter)]);
    auto const which = static_cast<DensityStandard>(standard);
    bool const narrow =
        which == DensityStandard::DINNB || which == DensityStandard::ANSII || which == DensityStandard::SPI;
    reading.conditions.SetMeasureCondition(
        Key::Method, narrow ? "Gaussian bands of 20 nm, centres from memory, 380-730 nm"
                            : "ISO 5-3 from 10 nm spectral products, 380-730 nm, ends folded");
    return reading;
}

} // namespace Norvelian::Tristim
