// Themes, and numbers as they are written on the screen: no platform.
#include "gui/elements/colour/Theme.h"
#include "gui/elements/drawing/NumberFormat.h"

#include "core/base/Exceptions.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using GUI::NumberFormat;
using GUI::RGBVector;
using GUI::Theme;
using GUI::ThemeRole;
using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::String;

namespace {

/// Relative luminance of sRGB, as the contrast of texts is defined on.
double Luminance(RGBVector const& color) {
    auto const linear = [](unsigned char channel) {
        double const value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.GetRed()) + 0.7152 * linear(color.GetGreen()) +
           0.0722 * linear(color.GetBlue());
}

double Contrast(RGBVector const& first, RGBVector const& second) {
    double const one = Luminance(first);
    double const other = Luminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

} // namespace

TEST(Theme, TextsAndOutlinesCanBeSeenInAll) {
    for (char const* const name : {"Light", "Dark", "Report", "Line"}) {
        auto const theme = Theme::Find(name);
        ASSERT_TRUE(theme) << name;
        auto const contrast = [&](ThemeRole front, ThemeRole back) {
            return Contrast(theme->Get(front), theme->Get(back));
        };
        for (ThemeRole const ground :
             {ThemeRole::Window, ThemeRole::Panel, ThemeRole::Header, ThemeRole::Field})
            for (ThemeRole const text : {ThemeRole::Ink, ThemeRole::Ink2})
                EXPECT_GE(contrast(text, ground), 4.5) << name << static_cast<int>(ground);
        EXPECT_GE(contrast(ThemeRole::Ink2, ThemeRole::Surround), 5.0) << name;
        for (auto const& [text, ground] :
             {std::pair(ThemeRole::AccentInk, ThemeRole::Accent),
              std::pair(ThemeRole::PassInk, ThemeRole::Pass), std::pair(ThemeRole::WarnInk, ThemeRole::Warn),
              std::pair(ThemeRole::FailInk, ThemeRole::Fail)})
            EXPECT_GE(contrast(text, ground), 4.5) << name << static_cast<int>(ground);
        for (ThemeRole const ground : {ThemeRole::Window, ThemeRole::Panel, ThemeRole::Field})
            EXPECT_GE(contrast(ThemeRole::Border, ground), 3.0) << name << static_cast<int>(ground);
        // What is around a measured colour has none.
        RGBVector const& surround = theme->Get(ThemeRole::Surround);
        EXPECT_TRUE(surround.GetRed() == surround.GetGreen() && surround.GetGreen() == surround.GetBlue());
    }
    EXPECT_FALSE(Theme::Find("light"));
}

TEST(Theme, AColourIsItsOwnOrTheThemes) {
    auto const dark = *Theme::Find("Dark");
    RGBVector const panel(String("panel"));
    EXPECT_EQ(panel.GetRed(), 0xF7) << "without a theme, that of Light";
    EXPECT_EQ(dark.Resolve(panel), RGBVector(0x2B, 0x2B, 0x2B));
    RGBVector const black(String("0,0,0 ink"));
    EXPECT_EQ(black.GetRed(), 0);
    EXPECT_EQ(dark.Resolve(black), RGBVector(0xF0, 0xF0, 0xF0));
    EXPECT_EQ(dark.Resolve(RGBVector(1, 2, 3)), RGBVector(1, 2, 3));
    EXPECT_EQ(RGBVector(black.GetAnything()), black) << "the role travels as a record";
    RGBVector darker = panel;
    darker.Darker(10);
    EXPECT_EQ(dark.Resolve(darker), darker);
    for (char const* const text : {"pan", "0,0,0 pan", "0,0 ink", "0,0,0 ink ink", ""})
        EXPECT_THROW(RGBVector{String(text)}, OutOfRangeException) << text;
    auto record = black.GetAnything().GetMapOfAnythings();
    record["Role"] = short{99};
    EXPECT_THROW(RGBVector{Utilities::Anything(record)}, OutOfRangeException);
}

TEST(NumberFormat, WritesForPeople) {
    struct Row {
        char const* quantity;
        double value;
        char const* expected;
    };
    for (Row const& row :
         {Row{"Lab", -12.345678, "\u221212.35"}, Row{"Lab", -0.004, "0.00"}, Row{"Difference", 0.5, "+0.50"},
          Row{"Difference", -0.001, "0.00"}, Row{"Hue", 207.04, "207.0\u00b0"},
          Row{"Reflectance", 0.331, "0.3310"}, Row{"Wavelength", 550, "550"}, Row{"Density", 1.2, "1.20"},
          Row{"DeltaE", std::numeric_limits<double>::quiet_NaN(), "\u2013"},
          Row{"DeltaE", std::numeric_limits<double>::infinity(), "\u2013"}})
        EXPECT_EQ(NumberFormat::Find(row.quantity)->Write(row.value).GetStdString(), row.expected)
            << row.value;
    EXPECT_FALSE(NumberFormat::Find("Lightness"));
}
