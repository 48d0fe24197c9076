#include "cxf/colorimetry/Illuminants.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/ConditionText.h"
#include "cxf/conditions/IlluminantNames.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/samples/ColorOf.h"
#include "tests/cxf/support.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace CxfTest;
using Cxf::Extensions::Cxf2NV;
using testing::HasSubstr;

namespace {

template <class Curve> Cxf::Spectrum Sampled(double first, double last, double step, Curve const& curve) {
    std::vector<double> values;
    for (double nm = first; nm < last + step / 2; nm += step) values.push_back(curve(nm));
    return {first, step, values, {}, true};
}

} // namespace

TEST(Resampling, ALineCountsWithItsWidthAndNotByChance) {
    // A line of 1 nm between two bands; taking every tenth value would lose it or make it ten times too
    // strong.
    for (double const line : {545.0, 550.0, 553.0}) {
        auto const spectrum = Cxf2NV(
            Sampled(360, 780, 1, [line](double nm) { return std::abs(nm - line) < 0.5 ? 10.0 : 0.0; }));
        double sum = 0;
        for (float const value : spectrum.GetValues()) sum += static_cast<double>(value);
        EXPECT_NEAR(sum, 1, 1e-6) << line;
    }
}

TEST(Resampling, FineStepsAreWeightedAsATriangle) {
    auto const bump = [](double nm) { return std::abs(nm - 550) < 0.1 ? 1.0 : 0.0; };
    auto const by5 = Cxf2NV(Sampled(380, 730, 5, bump));
    EXPECT_FLOAT_EQ(by5.GetValues()[17], 0.5F); // 1, 2, 1
    EXPECT_FLOAT_EQ(by5.GetValues()[16], 0.0F);
    // A straight line stays one, up to the ends and on grids that don't meet the bands.
    auto const slope = [](double nm) { return 0.1 + 0.002 * (nm - 380); };
    for (double const step : {1.0, 3.0, 3.5, 5.0, 7.0}) {
        auto const bands = Cxf2NV(Sampled(380, 730, step, slope));
        for (std::size_t band = 0; band + 1 < 36; ++band)
            EXPECT_NEAR(static_cast<double>(bands.GetValues()[band]),
                        slope(380 + 10.0 * static_cast<double>(band)), 1e-6)
                << step;
    }
}

TEST(Resampling, EveryResultSaysSo) {
    auto const narrow = Cxf2NV(Sampled(400, 700, 10, [](double) { return 0.4; }));
    auto const full = Cxf2NV(Sampled(380, 730, 10, [](double) { return 0.5; }));
    std::string const said = "end values repeated below 400 nm and above 700 nm";
    auto const conditions = With({{Key::Illumination, "D50"}, {Key::Observer, "TwoDegree"}});
    auto const resampling = [](Tristim::NVColorVector const& vector) {
        return vector.GetMeasureConditions().GetMeasureCondition(Key::Resampling);
    };
    auto const lab = Tristim::TristimService::GetVector(narrow, conditions);
    EXPECT_EQ(resampling(lab), said);
    EXPECT_EQ(resampling(Tristim::TristimService::Convert(lab, With({{Key::ColorSpaceType, "CIEXYZ"}}))),
              said);
    EXPECT_EQ(resampling(Tristim::TristimService::GetDeltaVector(full, narrow, conditions)),
              "reference: none; sample: " + said);
    EXPECT_THAT(ConditionText(lab.GetMeasureConditions()), HasSubstr(said));
    EXPECT_EQ(resampling(Tristim::TristimService::GetVector(full, conditions)), "");
}

TEST(Resampling, LessThanTheVisibleRangeIsNotExtended) {
    auto const half = [](double) { return 0.5; };
    for (auto const& [first, last] : {std::pair{410.0, 700.0}, {400.0, 690.0}, {500.0, 600.0}})
        EXPECT_THAT(MessageOf<Tristim::TristimException>(
                        [&, first = first, last = last] { Cxf2NV(Sampled(first, last, 10, half)); }),
                    HasSubstr("expected at least 400 to 700 nm"));
    EXPECT_NO_THROW(Cxf2NV(Sampled(400, 700, 10, half)));
}

TEST(Resampling, NativeWavelengthsCanBeSummedThemselves) {
    auto const colour = [](Cxf::Spectrum const& spectrum, char const* integration) {
        Cxf::Sample sample("s");
        sample.AddSampleAttribute(Utilities::MakeSmart<Cxf::Spectrum>(
            spectrum.GetFirst(), spectrum.GetStep(), spectrum.GetValues(), Cxf::Conditions(), true));
        auto conditions = Tristim::Under("D65", 2);
        conditions.SetMeasureCondition(Key::ColorSpaceType, "CIEXYZ");
        conditions.SetMeasureCondition(Key::Integration, integration);
        return ColorOf(sample, conditions);
    };
    // An edge within 2 nm at 588 nm, which bands by 10 nm smear: the sums by 1 nm are exact.
    auto const edge = Sampled(360, 830, 1, [](double nm) { return nm < 588 ? 0.0 : 1.0; });
    double const native = colour(edge, "Native").GetExact(1);
    EXPECT_GT(std::abs(native - colour(edge, "Bands").GetExact(1)), 0.005);
    auto const light = Tristim::IlluminantPower(ViewingOf(Tristim::Under("D65", 2)));
    auto const& eye = Tristim::ColourMatching(Tristim::Observer::TwoDegree)[1];
    double part = 0;
    double whole = 0;
    for (std::size_t i = 0; i < Tristim::kGridSize; ++i) {
        whole += light[i] * eye[i];
        if (Tristim::kGridFirst + static_cast<int>(i) >= 588) part += light[i] * eye[i];
    }
    EXPECT_NEAR(native, 100 * part / whole, 1e-6);
    auto const power = Sampled(360, 830, 1, [](double) { return 1.0; });
    EXPECT_NEAR(colour(power, "Native").GetExact(0), colour(power, "Bands").GetExact(0), 1e-6);
    auto const narrow =
        colour(Sampled(400, 700, 5, [](double) { return 0.5; }), "Native").GetMeasureConditions();
    EXPECT_THAT(narrow.GetMeasureCondition(Key::Resampling), HasSubstr("end values repeated below 400 nm"));
    EXPECT_THAT(narrow.GetMeasureCondition(Key::Method), HasSubstr("values by 5 nm"));
}
