#include "cxf/conditions/TristimException.h"
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

namespace {

/// 0.01 between two wavelengths and 0.8 elsewhere: an ink that absorbs one third of the spectrum.
Tristim::NVSpectrum Ink(int from, int to) {
    std::vector<float> bands;
    for (int nm = 380; nm <= 730; nm += 10) bands.push_back(nm >= from && nm <= to ? 0.01F : 0.8F);
    return Tristim::NVSpectrum(bands);
}

} // namespace

TEST(Density, TheInkIsReadThroughItsOwnFilter) {
    struct Case {
        Tristim::NVSpectrum ink;
        DensityFilter filter;
    };
    for (char const* const standard : {"DIN", "DINNB", "ANSIA", "ANSIE", "ANSII", "ANSIT", "SPI"})
        for (Case const& one :
             {Case{Ink(590, 700), DensityFilter::Cyan}, Case{Ink(490, 580), DensityFilter::Magenta},
              Case{Ink(380, 490), DensityFilter::Yellow}}) {
            auto const reading = GetDensity(one.ink, With({{Key::DensityStandard, standard}}));
            EXPECT_EQ(reading.filter, one.filter) << standard;
            EXPECT_GT(reading.value, 1) << standard;
            EXPECT_EQ(reading.conditions.GetMeasureCondition(Key::DensityStandard), standard);
        }
}

TEST(Density, StatusTAndEDifferInYellow) {
    // A yellow that absorbs below 450 nm only: status E sees less of what lies above than status T does.
    auto const e = GetDensity(Ink(380, 450), With({{Key::DensityStandard, "ANSIE"}}));
    auto const t = GetDensity(Ink(380, 450), With({{Key::DensityStandard, "ANSIT"}}));
    EXPECT_GT(e.all.yellow, t.all.yellow + 0.1);
    EXPECT_NEAR(e.all.cyan, t.all.cyan, 1e-9);
    EXPECT_NEAR(GetDensity(Ink(380, 450), With({{Key::DensityStandard, "DIN"}})).all.yellow, e.all.yellow,
                1e-12);
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
    EXPECT_GT(Tristim::GetYellowness(Ink(380, 460)), 40);
    EXPECT_LT(Tristim::GetYellowness(bluish), -40);
    EXPECT_THROW(static_cast<void>(Tristim::GetYellowness(Flat(1), Tristim::Illumination::D50)),
                 TristimException);
    EXPECT_NEAR(Tristim::GetOpacity(Flat(0.72F), Flat(0.8F), {}), 90, 1e-4);
    EXPECT_THROW(static_cast<void>(Tristim::GetOpacity(Flat(0.5F), Flat(0), {})), TristimException);
}

TEST(PrintMeasures, MetamerismShowsOnlyUnderTheOtherLight) {
    auto const d65 = With({{Key::Illumination, "D65"}});
    auto const a = With({{Key::Illumination, "A"}});
    EXPECT_NEAR(Tristim::GetMetamerismIndex(Reddish(), Reddish(), d65, a), 0, 1e-9);
    // A pair of different shape: corrected to a match under D65, it can't match under A.
    EXPECT_GT(Tristim::GetMetamerismIndex(Flat(0.3F), Reddish(), d65, a), 1);
    EXPECT_NEAR(Tristim::GetMetamerismIndex(Flat(0.3F), Reddish(), d65, d65), 0, 1e-9);
}
