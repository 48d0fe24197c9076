#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/print/ColourStrength.h"
#include "cxf/print/Density.h"
#include "cxf/print/PrintMeasures.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace CxfTest;
using testing::HasSubstr;
using Tristim::DensityFilter;
using Tristim::GetDensity;
using Tristim::TristimException;
using Tristim::XYZ;

namespace {

/// 0.01 between two wavelengths and 0.8 elsewhere: an ink that absorbs one third of the spectrum.
Tristim::NVSpectrum Ink(int from, int to) {
    std::vector<float> bands;
    for (int nm = 380; nm <= 730; nm += 10) bands.push_back(nm >= from && nm <= to ? 0.01F : 0.8F);
    return Tristim::NVSpectrum(bands);
}

} // namespace

TEST(Density, EveryStatusHasItsTabulatedProducts) {
    // A spectrum of 0.5 with one band at 1 gives the band's share of the products back: D = -log10(0.5 (1 +
    // s)). Expected are products of ISO 5-3 over their sum; a table that is shifted by one band or swapped
    // for another status misses them.
    struct Case {
        char const* standard;
        double Tristim::Densities::*filter;
        int nm;
        double product;
        double sum;
    };
    using D = Tristim::Densities;
    for (Case const& one :
         {Case{"ANSIA", &D::cyan, 610, 43.45, 291.57},    Case{"ANSIA", &D::cyan, 620, 100, 291.57},
          Case{"ANSIA", &D::cyan, 640, 40.18, 291.57},    Case{"ANSIA", &D::magenta, 520, 60.53, 313.12},
          Case{"ANSIA", &D::magenta, 550, 44.06, 313.12}, Case{"ANSIA", &D::yellow, 430, 65.92, 305.06},
          Case{"ANSIA", &D::yellow, 460, 41.69, 305.06},  Case{"ANSIE", &D::cyan, 590, 29.99, 312.89},
          Case{"ANSIE", &D::cyan, 620, 54.95, 312.89},    Case{"ANSIE", &D::magenta, 510, 68.08, 524.34},
          Case{"ANSIE", &D::magenta, 560, 41.98, 524.34}, Case{"ANSIE", &D::yellow, 420, 59.98, 526.85},
          Case{"ANSIE", &D::yellow, 470, 46.99, 526.85},  Case{"DIN", &D::yellow, 420, 59.98, 526.85},
          Case{"ANSIT", &D::cyan, 600, 100, 312.88},      Case{"ANSIT", &D::magenta, 530, 100, 524.33},
          Case{"ANSIT", &D::yellow, 420, 39.99, 711.09},  Case{"ANSIT", &D::yellow, 490, 65.01, 711.09},
          Case{"ANSIT", &D::black, 510, 32.58, 1057.33},  Case{"ANSIA", &D::black, 630, 39.17, 1057.33}}) {
        std::vector<float> bands(36, 0.5F);
        bands[static_cast<std::size_t>((one.nm - 380) / 10)] = 1;
        auto const all =
            GetDensity(Tristim::NVSpectrum(bands), With({{Key::DensityStandard, one.standard}})).all;
        double const share = 2 * std::pow(10, -(all.*one.filter)) - 1;
        EXPECT_NEAR(share, one.product / one.sum, 2e-5) << one.standard << ' ' << one.nm;
    }
}

TEST(Density, NarrowBandsLieAtTheirCentresAndSayThatThoseAreUnverified) {
    for (auto const& [standard, red, green] :
         {std::tuple{"DINNB", 620, 530}, {"ANSII", 630, 540}, {"SPI", 630, 540}}) {
        auto const density = [standard = standard](int nm) {
            std::vector<float> bands(36, 1.0F);
            bands[static_cast<std::size_t>((nm - 380) / 10)] = 0.1F;
            return GetDensity(Tristim::NVSpectrum(bands), With({{Key::DensityStandard, standard}}));
        };
        // 20 nm away a band of 20 nm half width has a sixteenth left.
        EXPECT_GT(density(red).all.cyan, 4 * density(red + 20).all.cyan) << standard;
        EXPECT_GT(density(green).all.magenta, 4 * density(green + 20).all.magenta) << standard;
        EXPECT_THAT(density(red).conditions.GetMeasureCondition(Key::Method), HasSubstr("from memory"));
    }
    EXPECT_THAT(GetDensity(Flat(1), {}).conditions.GetMeasureCondition(Key::Method), HasSubstr("ISO 5-3"));
}

TEST(Density, AutoAndMax) {
    EXPECT_EQ(GetDensity(Flat(0.02F), {}).filter, DensityFilter::Black) << "grey";
    EXPECT_EQ(GetDensity(Flat(1), {}).filter, DensityFilter::Black) << "white";
    auto const max = GetDensity(Ink(590, 700), With({{Key::DensityFilterMode, "Max"}}));
    EXPECT_EQ(max.filter, DensityFilter::Cyan);
    auto const stated = GetDensity(Ink(590, 700), With({{Key::DensityFilterMode, "Yellow"}}));
    EXPECT_EQ(stated.filter, DensityFilter::Yellow);
    EXPECT_NEAR(stated.value, -std::log10(0.8), 1e-6);
}

TEST(Density, PaperAndOddValues) {
    auto conditions = With({{Key::WhiteBase, "Paper"}, {Key::DensityFilterMode, "Black"}});
    Tristim::Bands paper{};
    paper.fill(0.8);
    conditions.SetBands(Key::PaperSpectrum, paper);
    EXPECT_NEAR(GetDensity(Flat(0.08F), conditions).value, 1, 1e-6);
    EXPECT_DOUBLE_EQ(GetDensity(Flat(0), {}).value, 6);
    EXPECT_DOUBLE_EQ(GetDensity(Flat(-0.1F), {}).value, 6);
    EXPECT_NEAR(GetDensity(Flat(1.25F), {}).all.cyan, -std::log10(1.25), 1e-6);
    EXPECT_THAT(MessageOf<TristimException>([] {
                    GetDensity(Flat(1, {{Key::SpectrumType, "Emission"}}), {});
                }),
                HasSubstr("Emission"));
}

TEST(Density, UserFilters) {
    auto conditions = With({{Key::DensityStandard, "User"}, {Key::DensityFilterMode, "Cyan"}});
    EXPECT_THAT(MessageOf<TristimException>([&] { GetDensity(Flat(1), conditions); }),
                HasSubstr(Key::UserFilterBlack));
    Tristim::Bands band{};
    band[24] = 1; // 620 nm
    for (char const* const key :
         {Key::UserFilterBlack, Key::UserFilterCyan, Key::UserFilterMagenta, Key::UserFilterYellow})
        conditions.SetBands(key, band);
    EXPECT_NEAR(GetDensity(Ink(620, 620), conditions).value, 2, 1e-6);
}

TEST(PrintMeasures, ByTheirFormulas) {
    EXPECT_NEAR(Tristim::DotArea(0.1, 0.4, 1.6), 100 * (1 - std::pow(10, -0.3)) / (1 - std::pow(10, -1.5)),
                1e-9);
    EXPECT_NEAR(Tristim::DotArea(0.1, 0.1, 1.6), 0, 1e-12);
    EXPECT_NEAR(Tristim::DotArea(0.1, 1.6, 1.6, 1.7), 100, 1e-12);
    EXPECT_LT(Tristim::DotArea(0, 0.3, 1.5, 2), Tristim::DotArea(0, 0.3, 1.5));
    EXPECT_NEAR(Tristim::DotGain(0, 0.3, 1.5, 40), 11.5102, 1e-4);
    EXPECT_NEAR(Tristim::PrintContrast(0, 0.9, 1.5), 40, 1e-9);
    using Tristim::TrappingFormula;
    EXPECT_NEAR(Tristim::Trapping(TrappingFormula::Preucil, 1.0, 1.4, 2.05), 75, 1e-9);
    EXPECT_NEAR(Tristim::Trapping(TrappingFormula::Brunner, 1.0, 1.4, 2.4), 100, 1e-9);
    EXPECT_NEAR(Tristim::Trapping(TrappingFormula::Ritz, 1.0, 1.4, 2.4), 100, 1e-9);
    auto const hue = Tristim::HueErrorAndGreyness({0, 1.5, 0.6, 0.3});
    EXPECT_NEAR(hue.hueError, 25, 1e-9);
    EXPECT_NEAR(hue.greyness, 20, 1e-9);
    // Paper L* 95, overprint of C, M, Y L* 23: halfway down, 1 - 0.85 / 2 of the paper's tint is wanted.
    auto const onOverprint = Tristim::GetGreyBalance({95, 1, -4}, {23, 0, 0}, {59, 0.575, -2.3});
    EXPECT_NEAR(onOverprint.deltaCh, 0, 1e-9);
    auto const balance = Tristim::GetGreyBalance({95, 1, -4}, {15, 0, 0}, {55, 1, -4});
    EXPECT_NEAR(balance.wantedA, 0.575, 1e-9);
    EXPECT_NEAR(balance.deltaCh, std::hypot(1 - 0.575, 4 - 2.3), 1e-9);
    EXPECT_THAT(MessageOf<TristimException>([] { static_cast<void>(Tristim::DotArea(0.1, 0.4, 0.1)); }),
                HasSubstr("Murray-Davies"));
    EXPECT_THROW(static_cast<void>(Tristim::DotArea(0, 0.4, 1, 0)), TristimException);
}

TEST(PrintMeasures, WhitenessYellownessOpacity) {
    auto const bluish = Ink(560, 700);
    EXPECT_GT(Tristim::GetWhiteness(Flat(0.9F)).whiteness, 70);
    EXPECT_TRUE(Tristim::GetWhiteness(Flat(0.9F)).isWhite);
    EXPECT_FALSE(Tristim::GetWhiteness(bluish).isWhite);
    // The limits of 2004 aren't symmetric: a tint of -3.5 is a white, one of 2.5 isn't.
    XYZ const d65{0.3127 / 0.3290, 1, 0.3583 / 0.3290};
    auto const tinted = [&](double tint) {
        double const x = 0.3127 - tint / 1000;
        return Tristim::WhitenessOf({90 * x / 0.3290, 90, 90 * (1 - x - 0.3290) / 0.3290},
                                    {100 * d65.x, 100, 100 * d65.z}, Tristim::Observer::TwoDegree);
    };
    EXPECT_NEAR(tinted(-3.5).tint, -3.5, 1e-9);
    EXPECT_TRUE(tinted(-3.5).isWhite);
    EXPECT_FALSE(tinted(-4.5).isWhite);
    EXPECT_TRUE(tinted(1.5).isWhite);
    EXPECT_FALSE(tinted(2.5).isWhite);
    for (auto const light :
         {Tristim::Illumination::C, Tristim::Illumination::D50, Tristim::Illumination::D65})
        EXPECT_NEAR(Tristim::GetWhitenessE313(Flat(0.9F), light, Tristim::Observer::TwoDegree).whiteness, 90,
                    0.01);
    EXPECT_THROW(static_cast<void>(Tristim::GetWhitenessE313(Flat(1), Tristim::Illumination::A,
                                                             Tristim::Observer::TwoDegree)),
                 TristimException);
    // Opacity of paper is of C and 2 degrees, whatever else is asked elsewhere.
    auto const c2 = With({{Key::Illumination, "C"}, {Key::ColorSpaceType, "CIEXYZ"}});
    EXPECT_NEAR(Tristim::GetPaperOpacity(Reddish(), Flat(0.8F)).value,
                100 * Tristim::TristimService::GetVector(Reddish(), c2).GetExact(1) / 80, 1e-3);
    EXPECT_GT(Tristim::GetYellowness(Ink(380, 460)).value, 40);
    EXPECT_LT(Tristim::GetYellowness(bluish).value, -40);
    EXPECT_THROW(static_cast<void>(Tristim::GetYellowness(Flat(1), Tristim::Illumination::D50)),
                 TristimException);
    EXPECT_NEAR(Tristim::GetOpacity(Flat(0.72F), Flat(0.8F), {}).value, 90, 1e-4);
    EXPECT_THROW(static_cast<void>(Tristim::GetOpacity(Flat(0.5F), Flat(0), {})), TristimException);
}

TEST(PrintMeasures, BrightnessIsNamedAfterItsGeometry) {
    // A step at 455 nm: the weights of 460 to 510 nm.
    std::vector<float> step(36, 0.0F);
    for (std::size_t band = 8; band < 36; ++band) step[band] = 1;
    EXPECT_NEAR(Tristim::GetBrightness(Tristim::NVSpectrum(step)).percent, 57.204, 1e-4);
    for (auto const& [geometry, name] :
         {std::pair{"d:0", "ISO brightness (ISO 2470)"}, {"45:0", "R457, 45:0"}})
        EXPECT_EQ(Tristim::GetBrightness(Flat(0.9F, {{Key::Geometry, geometry}})).name, name);
    EXPECT_EQ(Tristim::GetBrightness(Flat(0.9F)).name, "R457, geometry unknown");
    EXPECT_THROW(static_cast<void>(Tristim::GetBrightness(Flat(1, {{Key::SpectrumType, "Emission"}}))),
                 TristimException);
}

TEST(PrintMeasures, MetamerismShowsOnlyUnderTheOtherLight) {
    auto const d65 = With({{Key::Illumination, "D65"}});
    auto const a = With({{Key::Illumination, "A"}});
    EXPECT_NEAR(Tristim::GetMetamerismIndex(Reddish(), Reddish(), d65, a).value, 0, 1e-9);
    // A pair of different shape: corrected to a match under D65, it can't match under A.
    EXPECT_GT(Tristim::GetMetamerismIndex(Flat(0.3F), Reddish(), d65, a).value, 1);
    EXPECT_NEAR(Tristim::GetMetamerismIndex(Flat(0.3F), Reddish(), d65, d65).value, 0, 1e-9);
}

TEST(PrintMeasures, ColourStrength) {
    // K/S of 0.5 is 0.25 and of 0.2 is 1.6.
    auto const half = GetColourStrength(Flat(0.5F), Flat(0.2F));
    EXPECT_NEAR(half.atMaximum, 640, 1e-4);
    EXPECT_NEAR(half.apparent, 640, 1e-4);
    auto const red = GetColourStrength(Reddish(), Flat(0.08F));
    EXPECT_EQ(red.wavelength, 400) << "Reddish is flat up to 570 nm";
    EXPECT_NEAR(red.atMaximum, 100, 1e-6);
    EXPECT_GT(red.apparent, 110);
    EXPECT_THROW(static_cast<void>(GetColourStrength(Flat(0.5F), Flat(0))), TristimException);
    EXPECT_THROW(static_cast<void>(GetColourStrength(Flat(1), Flat(0.5F))), TristimException);
    EXPECT_THROW(static_cast<void>(GetColourStrength(Flat(0.5F), Flat(0.5F, {{Key::Filter, "UVCut"}}))),
                 TristimException);
}
