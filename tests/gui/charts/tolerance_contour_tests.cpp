#include "gui/charts/LabChart.h"
#include "gui/charts/XYColorChart.h"
#include "tests/gui/charts/ChartFixture.h"

#include <cmath>

namespace {

using namespace TestSupport;
using GUI::ToleranceContour;
using Utilities::Anything;

Anything Record(char const* formula, double a, double b, double limit) {
    Anything::MapOfAnythings record;
    record["Formula"] = formula;
    record["L"] = 50.0;
    record["a"] = a;
    record["b"] = b;
    record["Limit"] = limit;
    return record;
}

TEST(ToleranceContourTest, IsWhereTheFormulaSays) {
    ToleranceContour const circle(Record("CIELab", 30, -20, 2));
    for (auto const& [a, b] : circle.GetPoints()) EXPECT_NEAR(std::hypot(a - 30, b + 20), 2, 0.002);
    // CIE 116: of C* 50 the weights are 1 + 0.045 C* along the chroma and 1 + 0.015 C* along the hue.
    ToleranceContour const ellipse(Record("94", 50, 0, 0.1));
    ASSERT_EQ(ellipse.GetPoints().size(), 120U);
    EXPECT_NEAR(ellipse.GetPoints()[0].first, 50.325, 0.002);
    EXPECT_NEAR(ellipse.GetPoints()[60].first, 49.675, 0.002);
    EXPECT_NEAR(ellipse.GetPoints()[30].second, 0.175, 0.002);
    EXPECT_TRUE(ToleranceContour(Record("CIELab", 0, 0, 0)).IsEmpty());
    EXPECT_TRUE(ToleranceContour(Record("CIELab", NAN, 0, 1)).IsEmpty());
    EXPECT_TRUE(ToleranceContour(Record("CIELuv", 0, 0, 1)).IsEmpty());
    EXPECT_ANY_THROW(ToleranceContour(Record("No formula", 0, 0, 1)));
}

struct TolerantChart : testing::Test, ChartFixture<GUI::XYColorChart> {};

TEST_F(TolerantChart, DrawsTheContourBeneathItsSpots) {
    Make({{"LineColor", "9,8,7"}});
    EXPECT_EQ(Count("LineTo"), 0U);
    source.values[{"E", "Tolerance"}] = Record("CIELab", 0, 0, 50);
    source.values[{"E", "NrOfPatches"}] = 1L;
    Get().OnUpdate({});
    auto const rows = Paint();
    auto const at = [&rows](char const* row) { return std::find(rows.begin(), rows.end(), row); };
    EXPECT_EQ(Count("LineTo"), 120U);
    EXPECT_NE(at("SetPen 9,8,7 2 0"), rows.end());
    EXPECT_NE(at("LineTo 75 25"), rows.end()) << "a* is 50";
    EXPECT_NE(at("DrawLine 46 25 55 25"), rows.end()) << "the standard";
    EXPECT_LT(at("LineTo 75 25"), at("SetPen 50,50,50 1 0"));
}

struct TolerantLabChart : testing::Test, ChartFixture<GUI::LabChart> {};

TEST_F(TolerantLabChart, ShowsItInThePlaneOfCIELabAlone) {
    source.values[{"E", "Tolerance"}] = Record("CIELab", 0, 0, 50);
    for (auto const& [space, isShown] : {std::pair("CIELab", true), {"CIELuv", false}}) {
        source.values[{"E", "ColorScale"}] = space;
        Make({});
        EXPECT_EQ(Get().GetValue("abGraph", "Tolerance").IsValid(), isShown) << space;
        EXPECT_FALSE(Get().GetValue("LGraph", "Tolerance").IsValid());
    }
}

} // namespace
