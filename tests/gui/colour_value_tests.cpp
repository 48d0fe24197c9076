#include "cxf/conditions/TristimException.h"
#include "cxf/samples/Sample.h"
#include "gui/elements/colour/ScreenRGB.h"
#include "gui/elements/colour/SpectrumColor.h"

#include <cstdlib>
#include <gtest/gtest.h>

using GUI::RGBVector;
using GUI::SpectrumColor;
using Norvelian::Tristim::NVSpectrum;
using Utilities::MakeSmart;
using Utilities::String;

namespace {

NVSpectrum Ramp(float first, float step) {
    std::vector<float> values;
    for (int i = 0; i < 36; ++i) values.push_back(first + step * static_cast<float>(i));
    return NVSpectrum(values);
}

} // namespace

TEST(SpectrumColor, TextFormOfADefaultObject) {
    std::string expected =
        "[File]\nApplication=\tNorvelian Ostrinda V0.5\nVersion=\t3\n[Standard]\n[SplTol]\nTol=\tdE*\t3.00\n"
        "[MeasValue]\nID=\nInfo=\nDate=\t05-12-1995\t17:04:13\nM_Cond=\tNo\tAbs\nRemission=";
    for (int i = 0; i < 36; ++i) expected += "\t0.00000";
    EXPECT_EQ(SpectrumColor().ToString().GetStdString(), expected + "\n");
}

TEST(SpectrumColor, TextsReadBackToFiveDecimals) {
    SpectrumColor const color(Ramp(-0.1234567F, 0.0345678F));
    SpectrumColor copy;
    ASSERT_TRUE(copy.FromString(color.ToString()));
    for (std::size_t i = 0; i < 36; ++i)
        EXPECT_NEAR(copy.GetSpectrum().GetValues()[i], color.GetSpectrum().GetValues()[i], 0.0000051F);

    std::string const head = "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n";
    EXPECT_FALSE(copy.FromString(head.substr(0, head.size() - 1))) << "eleven lines";
    EXPECT_FALSE(copy.FromString(head + "Transmission=\t1"));
    EXPECT_NEAR(copy.GetSpectrum().GetValues()[3], color.GetSpectrum().GetValues()[3], 0.00001F)
        << "unchanged";
    EXPECT_TRUE(copy.FromString(head + "Remission=\t0.5\t0.25")) << "missing values are zero";
    EXPECT_EQ(copy.GetSpectrum().GetValues()[1], 0.25F);
    EXPECT_EQ(copy.GetSpectrum().GetValues()[2], 0);
}

TEST(SpectrumColor, ValuesAndNames) {
    SpectrumColor color(Ramp(0.5F, 0));
    EXPECT_EQ(color.GetColorValues()[0].GetStdString().substr(0, 5), "76.06");
    EXPECT_EQ(color.GetColorValues()[0].GetStdString().size(), 8U) << "five decimals";
    color.SetColorSpace("CIELCh");
    EXPECT_TRUE(color.GetColorValueNames()[2] == "h*");
    color.SetColorSpace("no space");
    EXPECT_THROW(color.GetColorValues(), Norvelian::Tristim::TristimException);
    auto const spaces = SpectrumColor::GetColorSpaces().GetMapOfAnythings();
    EXPECT_EQ(spaces.GetSize(), 14U);
    EXPECT_TRUE(spaces["13"].GetString() == "CMYK");
    EXPECT_TRUE(SpectrumColor::GetDeltaEFormulas().GetMapOfAnythings()["3"].GetString() == "FMCII");

    SpectrumColor const white(Ramp(1, 0));
    EXPECT_NEAR(color.GetDeltaE(white), 100 - 76.069F, 0.001F);
    color.SetDeltaEFormula("2000");
    EXPECT_LT(color.GetDeltaE(white), 20);
}

TEST(SpectrumColor, ScreenValuesAreTruncatedAndNotClamped) {
    EXPECT_EQ(SpectrumColor().GetRGB(), RGBVector(0, 0, 0));
    // 0.2159 of the light is 128.2 in sRGB; twice the white is 346, of which the low 8 bits remain.
    EXPECT_EQ(SpectrumColor(Ramp(0.2159F, 0)).GetRGB(), RGBVector(128, 128, 128));
    EXPECT_EQ(SpectrumColor(Ramp(2, 0)).GetRGB(), RGBVector(345 - 256, 345 - 256, 345 - 256));
}

TEST(RGBVector, SaysWhetherTheScreenCanShowIt) {
    Utilities::Anything::MapOfAnythings record;
    for (char const* channel : {"Red", "Green", "Blue"}) record[channel] = short{9};
    EXPECT_TRUE(RGBVector(Utilities::Anything(record)).IsInGamut()) << "nothing is said";
    record["IsInScreenGamut"] = false;
    RGBVector const color{Utilities::Anything(record)};
    EXPECT_FALSE(color.IsInGamut());
    EXPECT_FALSE(color.GetAnything().GetMapOfAnythings()["IsInScreenGamut"].GetBool());
}

TEST(ScreenRGB, GivesTheRecordOfAPatchWithItsGamutFlag) {
    namespace Cxf = Norvelian::ColorExchangeFormat;
    Tintorium::ScreenRGB const screen;
    Cxf::Sample sample("a");
    EXPECT_THROW(screen.GetColorValue(sample), Norvelian::Tristim::TristimException);
    sample.AddSampleAttribute(MakeSmart<Cxf::Spectrum>(380, 10, std::vector<double>(36, 1)));
    RGBVector const white(screen.GetColorValue(sample));
    EXPECT_EQ(white, RGBVector(255, 255, 255));
    EXPECT_TRUE(white.IsInGamut());
    EXPECT_FALSE(screen.GetRGB(Ramp(1.5F, 0)).IsInGamut());
    EXPECT_THROW(Tintorium::ScreenRGB("no profile"), Norvelian::Tristim::TristimException);
}
