#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/samples/ScreenTransform.h"
#include "tests/cxf/support.h"
#include "tests/support/WideProfile.h"

#include <cmath>
#include <lcms2.h>
#include <thread>
#include <type_traits>

using namespace CxfTest;
using Cxf::ScreenColour;
using Cxf::ScreenTransform;
using ::Utilities::MakeSmart;

// What a screen shows can't go through a conversion again.
static_assert(!std::is_invocable_v<decltype([](auto const& c) -> decltype(ScreenTransform().Convert(c)) {}),
                                   ScreenColour>);
static_assert(!std::is_constructible_v<Tristim::XYZ, ScreenColour>);

namespace {

std::array<int, 3> Rgb(ScreenColour const& colour) {
    return {colour.GetRed(), colour.GetGreen(), colour.GetBlue()};
}

} // namespace

TEST(Screen, WhiteGreyAndBlack) {
    ScreenTransform const screen;
    EXPECT_EQ(Rgb(screen.Convert(Flat(1))), (std::array{255, 255, 255}));
    EXPECT_EQ(Rgb(screen.Convert(Flat(0))), (std::array{0, 0, 0}));
    // Linear 0.214041 is 127.5 in sRGB.
    auto const grey = Rgb(screen.Convert(Flat(0.2159F)));
    for (int const channel : grey) EXPECT_NEAR(channel, 128, 1);
    EXPECT_TRUE(screen.Convert(Flat(1)).IsInGamut());
}

TEST(Screen, AgreesWithTheFormulaOfSrgb) {
    ScreenTransform const screen;
    auto const set = Cxf::ReadSampleSet(SHIPPED_DATA "samples/cie_named_34_36band.txt");
    for (auto const& sample : set->GetSamples()) {
        auto const shown = screen.Convert(*sample);
        auto const computed =
            Tristim::TristimService::GetVector(SpectrumOf(*sample), With({{Key::ColorSpaceType, "RGB"}}));
        bool inside = true;
        for (short i = 0; i < 3; ++i)
            inside = inside && computed.GetExact(i) > -1 && computed.GetExact(i) < 256;
        auto const rgb = Rgb(shown);
        for (short i = 0; i < 3; ++i)
            if (inside) {
                EXPECT_NEAR(rgb[static_cast<std::size_t>(i)], computed.GetExact(i), 1.6) << sample->GetName();
            }
        if (inside) {
            EXPECT_TRUE(shown.IsInGamut()) << sample->GetName();
        }
    }
}

TEST(Screen, GamutDependsOnTheScreen) {
    ScreenTransform const srgb;
    ScreenTransform const wide(Tests::WideProfile());
    // A saturated cyan: outside of sRGB, inside the wide screen.
    Tristim::XYZ const white{96.42, 100, 82.49};
    Tristim::XYZ const cyan = Tristim::XYZOf({60, -55, -20}, white);
    EXPECT_FALSE(srgb.Convert(cyan, white).IsInGamut());
    EXPECT_TRUE(wide.Convert(cyan, white).IsInGamut());
    EXPECT_FALSE(wide.Convert(Tristim::XYZOf({60, -150, 90}, white), white).IsInGamut());
    EXPECT_FALSE(srgb.Convert(Flat(1.4F)).IsInGamut()) << "brighter than the screen's white";
}

TEST(Screen, ColoursUnderOtherWhitesAreAdapted) {
    ScreenTransform const screen;
    for (char const* const illumination : {"A", "D65", "D50"}) {
        auto const white = Tristim::TristimService::GetVector(
            Flat(1), With({{Key::Illumination, illumination}, {Key::ColorSpaceType, "CIEXYZ"}}));
        Cxf::Sample sample("white");
        sample.AddSampleAttribute(MakeSmart<Cxf::ColorVector>(
            std::vector<double>{0, 50, 50, 50}, Cxf::Conditions(With({{Key::ColorSpaceType, "CMYK"}}))));
        EXPECT_THROW(screen.Convert(sample), Tristim::TristimException)
            << "device colours don't say what they look like";
        sample.AddSampleAttribute(MakeSmart<Cxf::ColorVector>(white.GetExactValues(),
                                                              Cxf::Conditions(white.GetMeasureConditions())));
        EXPECT_EQ(Rgb(screen.Convert(sample)), (std::array{255, 255, 255})) << illumination;
    }
    // Light: the equal-energy spectrum is the white.
    EXPECT_EQ(Rgb(screen.Convert(Flat(1, {{Key::SpectrumType, "AmbientLight"}}))),
              (std::array{255, 255, 255}));
}

TEST(Screen, BatchIsTheSameAsOneByOne) {
    ScreenTransform const screen;
    std::vector<double> lab;
    for (int i = 0; i < 600; ++i)
        lab.insert(lab.end(), {i / 6.0, (i * 37) % 120 - 60.0, (i * 53) % 120 - 60.0});
    std::vector<ScreenColour> many(600);
    screen.Convert(lab, many);
    for (std::size_t i = 0; i < many.size(); i += 41) {
        ScreenColour one;
        screen.Convert(std::span<double const>(lab).subspan(3 * i, 3), {&one, 1});
        EXPECT_EQ(one, many[i]);
    }
    EXPECT_THROW(screen.Convert(std::span<double const>(lab).first(5), many), Tristim::TristimException);
}

TEST(Screen, BadProfilesAreRefused) {
    EXPECT_THROW(ScreenTransform{std::string_view("")}, Tristim::TristimException);
    EXPECT_THROW(ScreenTransform{std::string_view("no profile at all")}, Tristim::TristimException);
    std::string const whole = Tests::WideProfile();
    EXPECT_THROW(ScreenTransform{std::string_view(whole).substr(0, 200)}, Tristim::TristimException);
    EXPECT_FALSE(ScreenTransform(whole).GetProfileName().empty());
}

TEST(Screen, OneTransformForEachThread) {
    std::vector<std::thread> threads;
    std::vector<std::array<int, 3>> results(4);
    for (auto& result : results)
        threads.emplace_back([&result] {
            ScreenTransform const screen;
            for (int i = 0; i < 50; ++i) result = Rgb(screen.Convert(Reddish()));
        });
    for (auto& thread : threads) thread.join();
    for (auto const& result : results) EXPECT_EQ(result, results.front());
}
