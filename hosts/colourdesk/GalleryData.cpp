#include "hosts/colourdesk/GalleryData.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/colour/RGBVector.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>

namespace ColourDesk::GalleryData {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr double pi = 3.14159265358979;
constexpr int spots = 12;

/// The number behind a prefix.
std::optional<int> NumberBehind(std::string const& text, std::string_view prefix) {
    if (!text.starts_with(prefix) || text.size() == prefix.size()) return std::nullopt;
    for (char const c : text.substr(prefix.size()))
        if (c < '0' || c > '9') return std::nullopt;
    return static_cast<int>(String(text.substr(prefix.size())).GetLong());
}

GUI::RGBVector Hue(double turn) {
    auto const channel = [turn](double shift) {
        return static_cast<unsigned char>(std::lround(140 + 90 * std::cos(2 * pi * (turn - shift))));
    };
    return {channel(0), channel(1.0 / 3), channel(2.0 / 3)};
}

template <class Value> Anything Column(std::string const& name, int count, Value value) {
    Anything::VectorOfAnythings column(static_cast<std::uint32_t>(count) + 1);
    column[0] = String(name);
    for (int i = 0; i < count; ++i) column[static_cast<std::uint32_t>(i) + 1] = value(i);
    return column;
}

Anything Row(std::initializer_list<Anything> values) {
    Anything::VectorOfAnythings row(static_cast<std::uint32_t>(values.size()));
    std::uint32_t next = 0;
    for (Anything const& value : values) row[next++] = value;
    return row;
}

/// A scale from and to, and the distance of its numbers.
struct Scale {
    double xBegin, xEnd, xLines, yBegin, yEnd, yLines;

    Anything Get(String const& name) const {
        if (name == "XScaleBegin") return xBegin;
        if (name == "XScaleEnd") return xEnd;
        if (name == "XScaleDrawLines") return xLines;
        if (name == "YScaleBegin") return yBegin;
        if (name == "YScaleEnd") return yEnd;
        if (name == "YScaleDrawLines") return yLines;
        return {};
    }
};

Anything GetBars(String const& name) {
    constexpr std::array<double, 8> differences{1.2, -0.8, 2.6, 0.3, -3.9, 1.9, -1.4, 0.7};
    if (name == "1")
        return Column("Differences", static_cast<int>(differences.size()),
                      [&differences](int i) { return Anything(differences[static_cast<std::size_t>(i)]); });
    if (name == "ValueBegin" || name == "XValueBegin") return "5";
    if (name == "ValueStep" || name == "DeltaXValue") return "10";
    if (name == "BarWidth") return "6";
    if (name == "Names")
        return Row(
            {"\u0394L*", "\u0394a*", "\u0394b*", "\u0394C*", "\u0394H*", "\u0394E00", "\u0394h", "\u0394R"});
    if (name == "Limits") {
        Anything::VectorOfAnythings limits(differences.size());
        Anything::MapOfAnythings limit;
        limit["Lower"] = -2.0;
        limit["Upper"] = 2.0;
        limit["Warning"] = 1.5;
        for (Anything& entry : limits) entry = limit;
        return {limits};
    }
    if (name == "PositivLimit") return "2";
    if (name == "NegativLimit") return "-2";
    return Scale{0, 80, 10, -3, 3, 1}.Get(name);
}

Anything GetCurves(String const& name) {
    constexpr int bands = 36;
    constexpr std::array<char const*, 3> colors{"29;95;166", "0;105;92", "179;38;30"};
    for (int i = 0; i < 3; ++i) {
        if (name == String(long{i} + 1))
            return Column("Curve", bands, [i](int band) {
                return Anything(0.08 + 0.1 * i +
                                (0.7 - 0.1 * i) * std::exp(-std::pow((band - 8.0 - 9 * i) / 5, 2)));
            });
        if (name == String("CurveColor ") + String(long{i})) return colors[static_cast<std::size_t>(i)];
    }
    if (name == "") return Row({"Cyan", "Green", "Red"});
    if (name == "StandardCurve") return 1L;
    if (name == "Cursor") return 560.0;
    if (name == "ValueBegin") return "380";
    if (name == "ValueStep") return "10";
    return Scale{380, 730, 50, 0, 1, 0.2}.Get(name);
}

Anything GetSpot(int number) {
    double const turn = number / static_cast<double>(spots);
    Anything::MapOfAnythings spot;
    spot["Color"] = Hue(turn).GetAnything();
    spot["XValue"] = 40 * std::cos(2 * pi * turn);
    spot["YValue"] = 40 * std::sin(2 * pi * turn);
    return spot;
}

Anything GetHarmony(std::string const& state, std::string const& name) {
    if (name == "NumberOfSlices") return short{8};
    if (name == "SelectedSlice" && state == "Selected") return short{2};
    auto const slice = NumberBehind(name, "Color of Slice ");
    if (!slice) return {};
    GUI::RGBVector color = Hue(*slice < 10 ? *slice / 8.0 : *slice / 12.0);
    color.SetInGamut(*slice % 5 != 3);
    return color.GetAnything();
}

/// Of a light reddish standard.
Anything GetTolerance() {
    Anything::MapOfAnythings record;
    record["L"] = 65.0;
    record["a"] = 40.0;
    record["b"] = 20.0;
    record["Limit"] = 6.0;
    return record;
}

Anything GetPlane(std::string const& state, String const& name) {
    if (name == "Trace" && state == "Rings") {
        constexpr std::uint32_t points = 8;
        Anything::VectorOfAnythings trace(points);
        for (std::uint32_t i = 0; i < points; ++i) {
            Anything::MapOfAnythings point;
            point["XValue"] = 30 + 2.0 * i;
            point["YValue"] = -40 + 3.0 * i + 4 * std::sin(1.9 * i);
            trace[i] = point;
        }
        return {trace};
    }
    if (name == "Plane") return state == "Leaf" ? "LC" : "ab";
    if (name == "Lightness") return 65.0;
    if (name == "Hue") return 40.0;
    if (name == "NrOfPatches") return state == "Leaf" ? 0L : long{spots};
    if (name == "SelectedSample") return 4L;
    if (name == "Tolerance") return GetTolerance();
    return {};
}

Anything GetChartRow(String const& name) {
    if (name == "Tolerance") return GetTolerance();
    auto const number = NumberBehind(name, "");
    if (name == "ColorScale") return "CIELab";
    if (!number || *number < 1 || *number > spots) return {};
    double const angle = 2 * pi * *number / spots;
    return Row({"Sample", 40.0 + 3 * *number, 60 * std::cos(angle), 60 * std::sin(angle)});
}

Anything Translated(char const* key) { return Utilities::LanguageServiceInterface::GetTranslation(key); }

Anything GetVerdict(std::string const& state, String const& name) {
    if (name == "Verdict") return state.c_str();
    if (name == "Quantity") return "\u0394E00";
    if (name == "Condition") return "D50 \u00b7 2\u00b0 \u00b7 M1";
    if (name == "Limit") return Translated("limit 1.00");
    if (name == "Warning") return Translated("warning 0.80");
    if (name == "Reason" && state == "Fail") return Translated("\u0394E00 1.19 above 1.00");
    if (name == "Value")
        return state == "Pass" ? "0.75" : state == "Marginal" ? "0.92" : state == "Fail" ? "1.19" : "";
    return {};
}

Anything GetNotice(std::string const& state, String const& name) {
    bool const isError = state == "Error";
    bool const isBusy = state == "Busy";
    if (name == "Notice") return state.c_str();
    if (name == "Title")
        return Translated(isError ? "File not loaded" : isBusy ? "Measuring 2 of 3" : "No readings yet");
    if (name == "Text" && !isBusy)
        return Translated(isError ? "The earlier data is kept." : "Press F9 or choose Measure.");
    if (name == "Hint" && isBusy) return Translated("Esc stops");
    if (name == "Progress") return 2.0 / 3;
    return {};
}

} // namespace

namespace {

Anything Map(std::initializer_list<std::pair<char const*, Anything>> entries) {
    Anything::MapOfAnythings map;
    for (auto const& [key, value] : entries) map[key] = value;
    return map;
}

/// Each kind of cell in a column of its own.
Anything GetTable(String const& name) {
    if (name == "ColumnStyles")
        return Row(
            {Map({{"Width", "110"}}), Map({{"Width", "64"}, {"Control", "Patch"}}),
             Map({{"Width", "72"}, {"Number", "Yes"}}), Map({{"Width", "64"}, {"Control", "Check"}}),
             Map({{"Width", "90"}, {"Control", "Choice"}, {"Choices", Row({"A", "D50", "D65", "F11"})}}),
             Map({{"Width", "150"},
                  {"Control", "Bar"},
                  {"Number", "Yes"},
                  {"Minimum", -3.0},
                  {"Maximum", 3.0},
                  {"Tolerance", 1.0}}),
             Map({{"Width", "96"}, {"Control", "Button"}})});
    if (name == "MergedCells") return Row({"5;6-6;6"});
    auto const row = NumberBehind(name.GetStdString(), "");
    if (!row) return {};
    auto const text = [](Anything const& value) { return Map({{"Value", value}}); };
    if (*row == 0)
        return Row({text("Sample"), text("Colour"), text("L*"), text("Use"), text("Illuminant"),
                    text("\u0394L*"), text("Action")});
    constexpr int rows = 6;
    GUI::RGBVector const color = Hue(static_cast<double>(*row) / rows);
    std::string const channels = std::to_string(color.GetRed()) + "," + std::to_string(color.GetGreen()) +
                                 "," + std::to_string(color.GetBlue());
    Anything sampleName = text(String("Tile " + std::to_string(*row)));
    if (*row == 2) sampleName = Map({{"Value", "Tile 2"}, {"Background", color.GetAnything()}});
    return Row({sampleName, text(channels.c_str()), text(String(40 + 7.25 * *row, 2, '.')),
                text(*row % 2 == 0 ? "Yes" : "No"), text(*row == 5 ? "merged cells" : "D65"),
                text(String(2.5 * std::sin(1.7 * *row), 2, '.')), text("Measure")});
}

/// Sets and samples, with all that a node may have before its text.
Anything GetNodes(std::string const& state, String const& name) {
    if (name == "Selected") return state == "Selected" ? "set/2" : "";
    if (!(name == "Children")) return {};
    constexpr long tiles = 3;
    Anything::VectorOfAnythings samples(tiles);
    for (long i = 0; i < tiles; ++i)
        samples[static_cast<std::uint32_t>(i)] =
            Map({{"Key", String(i + 1)},
                 {"Text", "Tile " + String(i + 1)},
                 {"Columns", Row({String(47.25 + 7.25 * static_cast<double>(i), 2, '.')})},
                 {"Color", Hue(static_cast<double>(i + 1) / 6).GetAnything()},
                 {"Check", i != 1}});
    return Row({Map({{"Key", "set"},
                     {"Text", "Set A"},
                     {"Expanded", true},
                     {"Check", "Partial"},
                     {"Children", samples}}),
                Map({{"Key", "other"}, {"Text", "Set B"}, {"Check", false}, {"HasChildren", true}})});
}

} // namespace

Anything SelectCell(long row, long column) {
    return Map({{"Command", "Select"}, {"Row", row}, {"Column", column}});
}

Anything GetValue(std::string const& component, std::string const& state, String const& name) {
    if (component == "BarGraph") return GetBars(name);
    if (component == "Grid") return GetTable(name);
    if (component == "TreeView" && !(name == "Enabled")) return GetNodes(state, name);
    if (component == "XYGraph") return GetCurves(name);
    if (auto const spot = NumberBehind(component, "Patch"); spot && name == "Data") return GetSpot(*spot);
    if (component == "ColorWheel" || component == "PalimarSky") return GetHarmony(state, name);
    if (component == "ColorGraph" || component == "XYColorChart") return GetPlane(state, name);
    if (component == "LabChart") return GetChartRow(name);
    if (component == "CrossGraph") {
        if (auto const point = NumberBehind(name, ""); point && *point >= 1)
            return Row({50 * std::cos(2 * pi * *point / spots), 50 * std::sin(2 * pi * *point / spots)});
        return Scale{-100, 100, 50, -100, 100, 50}.Get(name);
    }
    if (component == "Verdict") return GetVerdict(state, name);
    if (component == "Notice") return GetNotice(state, name);
    if (component == "ImagePatch" && name == "Region" && state == "Region") {
        Anything::MapOfAnythings box;
        box["Left"] = 4L;
        box["Top"] = 10L;
        box["Right"] = 24L;
        box["Bottom"] = 36L;
        return box;
    }
    return {};
}

std::string MessageOf(std::string const& component) {
    if (component == "BarChart") return "1;1-8;1";
    if (component == "Grid") return "Data";
    if (component == "XYChart") return "1;1-36;3";
    if (component == "LabChart" || component == "CrossGraph") return "1;1-4;" + std::to_string(spots);
    bool const asks = component == "ColorWheel" || component == "PalimarSky" || component == "ColorGraph" ||
                      component == "XYColorChart" || component == "ImagePatch";
    return asks ? "data" : "";
}

} // namespace ColourDesk::GalleryData
