#include "cxf/colorimetry/Illuminants.h"
#include "cxf/colorimetry/Tables.h"
#include "cxf/colorimetry/Weights.h"
#include "cxf/conditions/IlluminantNames.h"
#include "cxf/print/PrintMeasures.h"
#include "cxf/verification/Checks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Norvelian::Tristim {

void Checks::CorrectedWeights() {
    struct Published {
        std::string name;
        Viewing viewing;
        std::array<Bands, 3> folded{};
    };
    std::vector<Published> sets;
    for (Row const& row : RowsOf(Tables::CorrectedWeights)) {
        std::string const name = std::string(row[0]) + "/" + std::string(row[1]);
        if (sets.empty() || sets.back().name != name)
            sets.push_back({name, ViewingOf(Under(row[0], row[1] == "10" ? 10 : 2))});
        double const band = std::clamp((NumberAt(row, 2) - kBandFirst) / kBandStep, 0.0, kBands - 1.0);
        for (std::size_t c = 0; c < 3; ++c)
            sets.back().folded[c][static_cast<std::size_t>(band)] += NumberAt(row, 3 + c);
    }
    for (Published& set : sets) {
        set.viewing.correctBandpass = true;
        GridSpectrum power = IlluminantPower(set.viewing);
        // The CIE's 1 nm table of D50 is linear between 5 nm; the published weights came from a cubic.
        if (set.name == "D50/2") {
            std::vector<double> everyFifth;
            for (std::size_t i = 0; i < Tables::CieD50.rows; i += 5)
                for (std::size_t column = 0; column < 2; ++column)
                    everyFifth.push_back(Tables::CieD50.At(i, column));
            power = OnGrid({everyFifth.data(), everyFifth.size() / 2, 2}, 1);
        }
        auto const weights = DeriveWeights(power, set.viewing.observer, BandpassOf(set.viewing));
        std::array<Bands const*, 3> const ours{&weights->x, &weights->y, &weights->z};
        for (std::size_t c = 0; c < 3; ++c) {
            double worst = 0;
            for (std::size_t band = 0; band < kBands; ++band)
                worst = std::max(worst, std::abs(set.folded[c][band] - (*ours[c])[band]));
            // Three decimals are published, and several of them are folded into the first and last band.
            Add("corrected weights " + set.name + " " + "XYZ"[c] + ", largest difference",
                "ASTM E308 weights for uncorrected bandpass, as color4j lists them", 0, worst, 0.004);
        }
    }
}

void Checks::Paper() {
    // What the standards say of the function behind the weights; one band at a time shows them.
    double sum = 0;
    double mean = 0;
    double half = 0;
    std::array<double, kBands> weights{};
    for (std::size_t band = 0; band < kBands; ++band) {
        std::vector<float> one(kBands, 0.0F);
        one[band] = 1;
        weights[band] = GetBrightness(NVSpectrum(one)).percent;
        sum += weights[band];
        mean += weights[band] * (kBandFirst + kBandStep * static_cast<double>(band)) / 100;
    }
    double const peak = *std::max_element(weights.begin(), weights.end());
    for (std::size_t band = 0; band + 1 < kBands; ++band) {
        // The stretch above half of the peak, linear between the bands.
        double const low = std::min(weights[band], weights[band + 1]);
        double const high = std::max(weights[band], weights[band + 1]);
        if (low >= peak / 2)
            half += kBandStep;
        else if (high > peak / 2)
            half += kBandStep * (high - peak / 2) / (high - low);
    }
    Add("ISO brightness, sum of the weights", "ISO 2470-1: 100 for the perfect diffuser", 100, sum, 1e-9);
    Add("ISO brightness, effective wavelength", "ISO 2470-1, TAPPI T 452: 457 nm", 457, mean, 0.5);
    Add("ISO brightness, half width", "ISO 2470-1: 44 nm", 44, half, 1);
    // The grey axis of Fogra 51 from its paper and its overprint.
    Lab const paper{95, 1.5, -6};
    GreyBalance const dark = GetGreyBalance(paper, {23, 0, 0}, {23, 0, 0});
    Add("grey balance, share of the paper's a* at the overprint", "Beltrami 2022: 0.15", 0.15,
        dark.wantedA / paper.a, 1e-12);
}

} // namespace Norvelian::Tristim
