#include "gui/charts/LabColorSpaces.h"

#include <array>

namespace GUI::LabColorSpaces {

using Utilities::String;

namespace {

constexpr std::array settingNames{"XScaleBegin", "XScaleEnd", "YScaleBegin",  "YScaleEnd",  "ZScaleBegin",
                                  "ZScaleEnd",   "XCaption",  "YCaption",     "ZCaption",   "XYGraphType",
                                  "ZGraphType",  "Zoom",      "XYGraduation", "ZGraduation"};

/// The space, and its settings in the order of their names. Differences in CMYK aren't enlarged, and RGB and
/// RxRyRz have a graduation though they have no plot: both are what hosts know.
constexpr std::array<char const*, 1 + settingNames.size()> rows[] = {
    {"CIELab", "-100", "100", "-100", "100", "0", "100", "a", "b", "L", "ab", "L", "100", "20", "20"},
    {"CIELCh", "-100", "100", "-100", "100", "0", "100", "a", "b", "L", "ab", "L", "100", "20", "20"},
    {"CIELChuv", "-100", "100", "-100", "100", "0", "100", "u", "v", "L", "No", "L", "100", "20", "20"},
    {"CIELuv", "-100", "100", "-100", "100", "0", "100", "u", "v", "L", "No", "L", "100", "20", "20"},
    {"CIExyY", "0", "1", "0", "1", "0", "100", "x", "y", "Y", "No", "L", "100", "0.2", "0.2"},
    {"CIEXYZ", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "100", "", ""},
    {"CMYK", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "100", "", ""},
    {"HunterLab", "-100", "100", "-100", "100", "0", "100", "a(I)", "b(I)", "L(I)", "ab", "L", "100", "20",
     "20"},
    {"LABmg", "-100", "100", "-100", "100", "0", "100", "Amg", "Bmg", "Lmg", "ab", "L", "100", "20", "20"},
    {"LCHmg", "-100", "100", "-100", "100", "0", "100", "Amg", "Bmg", "Lmg", "ab", "L", "100", "20", "20"},
    {"RGB", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "100", "20", "20"},
    {"RxRyRz", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "100", "20", "20"},
    {"DeltaCIELab", "-100", "100", "-100", "100", "-100", "100", "a", "b", "L", "ab", "L", "2000", "20",
     "20"},
    {"DeltaCIELCh", "-100", "100", "-100", "100", "-100", "100", "a", "b", "L", "ab", "L", "2000", "20",
     "20"},
    {"DeltaCIELChuv", "-100", "100", "-100", "100", "-100", "100", "u", "v", "L", "No", "L", "2000", "20",
     "20"},
    {"DeltaCIELuv", "-100", "100", "-100", "100", "-100", "100", "u", "v", "L", "No", "L", "2000", "20",
     "20"},
    {"DeltaCIExyY", "-1", "1", "-1", "1", "-100", "100", "x", "y", "Y", "No", "L", "2000", "0.2", "0.2"},
    {"DeltaCIEXYZ", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "2000", "", ""},
    {"DeltaCMYK", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "100", "", ""},
    {"DeltaHunterLab", "-100", "100", "-100", "100", "-100", "100", "a(I)", "b(I)", "L(I)", "ab", "L", "2000",
     "20", "20"},
    {"DeltaLABmg", "-100", "100", "-100", "100", "-100", "100", "Amg", "Bmg", "Lmg", "ab", "L", "2000", "20",
     "20"},
    {"DeltaLCHmg", "-100", "100", "-100", "100", "-100", "100", "Amg", "Bmg", "Lmg", "ab", "L", "2000", "20",
     "20"},
    {"DeltaRGB", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "2000", "", ""},
    {"DeltaRxRyRz", "", "", "", "", "", "", "", "", "", "NoGraph", "NoGraph", "2000", "", ""}};

} // namespace

Table MakeTable() {
    Table table;
    for (auto const& row : rows) {
        Settings settings;
        for (std::size_t i = 0; i < settingNames.size(); ++i) settings[settingNames[i]] = row[i + 1];
        table[row[0]] = settings;
    }
    return table;
}

bool IsPolar(String const& space) {
    for (char const* const polar : {"CIELCh", "CIELChuv", "LCHmg"})
        if (space == polar || space == String("Delta") + polar) return true;
    return false;
}

bool IsPlaneFirst(String const& space) {
    for (char const* const first : {"CIExyY", "CIEXYZ"})
        if (space == first || space == String("Delta") + first) return true;
    return false;
}

} // namespace GUI::LabColorSpaces
