#pragma once

#include "cxf/conditions/NVSpectrum.h"

namespace Norvelian::Tristim {

/// In the order of the vocabulary's tables.
enum class DensityStandard { DIN, DINNB, ANSIA, ANSIE, ANSII, ANSIT, SPI, User };
enum class DensityFilter { Black, Cyan, Magenta, Yellow, Max, Auto };

/// The densities behind the four filters; cyan ink is read through the red filter, and so on.
struct Densities {
    double black;
    double cyan;
    double magenta;
    double yellow;

    double Of(DensityFilter filter) const; ///< for the four filters only
};

struct DensityReading {
    double value;
    DensityFilter filter; ///< the filter that was read, also where "Max" or "Auto" chose it
    Densities all;
    /// Standard, filter, white base and method, and what the measurement says of itself.
    NVMeasureConditions conditions;
};

/// Optical densities from spectra: D = -log10(sum of product times value / sum of products) over the 36
/// bands, with the products below 380 nm added to 380 and those above 730 nm to 730 (ISO 5-3, computed from
/// 10 nm spectral products).
///
///  - ANSIA, ANSIE, ANSIT: ISO 5-3 status A, E, T. DIN: the wide-band densities of DIN 16536, which are
///    those of status E. Black is the ISO visual density for every standard.
///  - ANSII: ISO 5-3:1995 status I, and SPI, another name for it: bands of 20 nm full width at half maximum
///    at 430, 535 and 625 nm. DINNB: the narrow bands of DIN 16536 at 430, 530 and 620 nm, 20 nm wide. They
///    are Gaussians, sampled at the spectrum's bands. Their centres and width are from memory: a search of
///    public sources found that the two are narrow bands (pedrogargalaca.com.br, "Status I / SPI, DIN NB")
///    but no wavelengths, and the method of the result says so.
///  - User: products from the conditions `Key::UserFilterBlack` to `UserFilterYellow`.
///
/// "Max" is the highest of the four. "Auto" reads black if the lowest of cyan, magenta and yellow is at least
/// 0.6 of the highest (or the highest isn't positive) and else the highest of the three: the ink.
///
/// With white base "Paper", densities are relative to the paper of `Key::PaperSpectrum`. A band sum below
/// 1e-6 of the whole, negative ones included, gives the density 6.
///
/// Throws `TristimException` for spectra of light, for missing or powerless user filters, and for values
/// outside of the vocabulary. Defaults: standard ANSIE, filter Auto, Absolute.
DensityReading GetDensity(NVSpectrum const& spectrum, NVMeasureConditions const& conditions);

} // namespace Norvelian::Tristim
