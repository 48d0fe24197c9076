#include "Utilities/NamingService.h"
#include "gui/colour/ColorGraph.h"
#include "gui/colour/ImagePatch.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "tests/gui/charts/ChartFixture.h"

#include <cmath>
#include <cstdlib>

namespace {

using namespace TestSupport;
using GUI::GamutPlane;
using GUI::RGBVector;
using testing::ElementsAre;
using Utilities::Anything;

std::array<int, 3> Channels(std::uint32_t color) {
    return {static_cast<int>(color >> 16U & 0xFFU), static_cast<int>(color >> 8U & 0xFFU),
            static_cast<int>(color & 0xFFU)};
}

// Planes of several lightnesses and hues, sized so that cells are cut at the edges.
TEST(GamutPlaneTest, AgreesWithTheConversionOfEachPixel) {
    GamutPlane::Transform const transform;
    GamutPlane const plane(transform);
    constexpr std::size_t width = 203;
    constexpr std::size_t height = 150;
    constexpr std::uint32_t outside = 0x010203;
    GamutPlane::Place const places[] = {{{50, -100, 75}, {0, 1, 0}, {0, 0, -1}},
                                        {{8, -50, 37}, {0, 0.5, 0}, {0, 0, -0.5}},
                                        {{93, -100, 75}, {0, 1, 0}, {0, 0, -1}},
                                        {{100, 0, 0}, {0, 0.45, 0.45}, {-0.66, 0, 0}}};
    for (auto const& place : places) {
        auto const pixels = plane.Compute(place, width, height, {outside, 0, 0});
        std::vector<double> lab;
        for (std::size_t y = 0; y < height; ++y)
            for (std::size_t x = 0; x < width; ++x)
                for (double const value : place.At(static_cast<double>(x), static_cast<double>(y)))
                    lab.push_back(value);
        std::vector<GamutPlane::Transform::Shown> exact(width * height);
        transform.Evaluate(lab, exact);
        int worst = 0;
        std::size_t inside = 0;
        std::size_t misjudged = 0;
        for (std::size_t i = 0; i < exact.size(); ++i) {
            bool const isShown = pixels[i] != outside;
            inside += isShown;
            // Near the border interpolation and conversion may differ.
            if (isShown != (exact[i].difference <= 1)) {
                ++misjudged;
                continue;
            }
            if (!isShown) continue;
            auto const channels = Channels(pixels[i]);
            for (std::size_t c = 0; c < 3; ++c)
                worst = std::max(
                    worst, static_cast<int>(std::abs(
                               channels[c] - std::lround(255 * std::clamp(exact[i].rgb[c], 0.0, 1.0)))));
        }
        EXPECT_GT(inside, 100U);
        EXPECT_LE(worst, 1) << place.first[0];
        EXPECT_LE(misjudged, inside / 100 + 4) << place.first[0];
    }
}

struct ColorGraphTest : testing::Test, ChartFixture<GUI::ColorGraph> {};

TEST_F(ColorGraphTest, DrawsItsPlaneAndSpots) {
    Make({{"Range", "50"}, {"SpotSize", "2"}, {"OutsideColor", "9,9,9"}});
    source.values[{"E", "NrOfPatches"}] = 3L;
    for (auto const& [name, x, y] :
         {std::tuple("Patch0", 10.0, 10.0), {"Patch1", 0.0, 0.0}, {"Patch2", NAN, 1e30}}) {
        Anything::MapOfAnythings spot;
        spot["Color"] = RGBVector(1, 2, 3).GetAnything();
        spot["XValue"] = x;
        spot["YValue"] = y;
        source.values[{name, "Data"}] = Anything(spot);
    }
    source.values[{"E", "SelectedSample"}] = 0L;
    Get().OnUpdate({});
    // The pane is 100 by 50 pixels: two units a pixel.
    EXPECT_THAT(Paint("DrawPixels"), ElementsAre("DrawPixels 0 0 100 50 100 592137 592137"));
    EXPECT_THAT(Paint("FillEllipse"), ElementsAre("FillEllipse 47 22 54 29", "FillEllipse 48 23 53 28",
                                                  "FillEllipse 47 12 64 29", "FillEllipse 53 18 58 23"));
    EXPECT_EQ(Count("DrawEllipse"), 2U) << "two rings around the selected one";
    source.values[{"E", "ToolTipText 1"}] = "second";
    EXPECT_EQ(Get().GetToolTipText(50, 25), "second");
    Get().OnLeftButtonDown(GUI::KeyState(), 50, 25);
    auto const click = source.values[{"E", "Click"}].GetMapOfAnythings();
    EXPECT_DOUBLE_EQ(click["L"].GetDouble(), 50);
    EXPECT_DOUBLE_EQ(click["a"].GetDouble(), 1);
    EXPECT_DOUBLE_EQ(click["b"].GetDouble(), -1);
    EXPECT_TRUE(RGBVector(click["Color"]).IsInGamut());

    source.values[{"E", "Plane"}] = "LC";
    source.values[{"E", "Hue"}] = 90.0;
    source.values[{"E", "Range"}] = -3.0; // refused
    Get().OnUpdate({});
    Get().OnLeftButtonDown(GUI::KeyState(), 99, 0);
    auto const leaf = source.values[{"E", "Click"}].GetMapOfAnythings();
    EXPECT_DOUBLE_EQ(leaf["L"].GetDouble(), 99);
    EXPECT_NEAR(leaf["b"].GetDouble(), 49.75, 1e-9);
    EXPECT_FALSE(RGBVector(leaf["Color"]).IsInGamut());
}

/// Four by two pixels: the left half black, the right half white.
class HalfBitmap : public GUI::Bitmap {
public:
    bool PrepareForUnload() override { return true; }
    bool Create(unsigned long, unsigned long) override { return false; }
    bool Load(Utilities::File const&) override { return false; }
    bool LoadAndResize(Utilities::File const&, unsigned long, unsigned long) override { return false; }
    unsigned long GetWidth() const override { return 4; }
    unsigned long GetHeight() const override { return 2; }
    GUI::PlatformIndependentDeviceContext& BeginDraw() override { std::abort(); }
    void EndDraw() override {}
    void GetPixels(Pixels& result) const override {
        result = Pixels(4);
        for (std::uint32_t x = 0; x < 4; ++x) {
            result[x] = Utilities::Vector<RGBVector>(2);
            if (x >= 2) result[x][0] = result[x][1] = RGBVector(255, 255, 255);
        }
    }
    FileFormats GetFileFormats() const override { return {}; }
};

struct ImagePatchTest : testing::Test, ChartFixture<GUI::ImagePatch> {
    ImagePatchTest() {
        Utilities::ResolveComponent<GUI::ImageServiceInterface>("ImageService")
            ->SetBitmap("half", Utilities::MakeSmart<HalfBitmap>());
    }
};

TEST_F(ImagePatchTest, FitsItsPictureAndTellsTheMeanOfARegion) {
    Make({{"Image", "half"}, {"BackgroundColor", "0,0,7"}});
    EXPECT_THAT(Paint("DrawPixels"), ElementsAre("DrawPixels 0 0 100 50 100 0 16777215"));
    // Light is averaged, not the numbers of the screen: half the light of white.
    EXPECT_EQ(Get().GetMeanColor(), RGBVector(188, 188, 188));
    Get().OnLeftButtonDown(GUI::KeyState(), 60, 10);
    Get().OnMouseMove(200, -30);
    EXPECT_THAT(Paint("DrawRectangle"),
                ElementsAre("DrawRectangle 49 -1 101 26", "DrawRectangle 48 -2 102 27"));
    EXPECT_TRUE(Get().OnLeftButtonUp(200, -30));
    ASSERT_EQ(source.told.size(), 2U);
    auto const box = source.told[0].value.GetMapOfAnythings();
    EXPECT_EQ(box["Left"].GetLong(), 2);
    EXPECT_EQ(box["Right"].GetLong(), 4);
    EXPECT_EQ(box["Bottom"].GetLong(), 1);
    EXPECT_EQ(RGBVector(source.told[1].value), RGBVector(255, 255, 255));
    EXPECT_EQ(Get().GetRegion(60, 10), "Region");
    EXPECT_EQ(Get().GetRegion(60, 40), "");
    Get().SetSize(100, 20);
    EXPECT_THAT(Paint("DrawPixels"), ElementsAre("DrawPixels 0 0 100 20 100 7 7")) << "with room beside it";
}

TEST_F(ImagePatchTest, RepeatsItsPicture) {
    Make({{"Image", "half"}, {"Mode", "Tile"}});
    EXPECT_THAT(Paint("DrawPixels"), ElementsAre("DrawPixels 0 0 100 50 100 0 16777215"));
    EXPECT_FALSE(Get().OnLeftButtonDown(GUI::KeyState(), 1, 1));
    Make({{"Image", ""}});
    EXPECT_EQ(Count("DrawPixels"), 0U);
    EXPECT_FALSE(Get().GetMeanColor());
}

} // namespace
