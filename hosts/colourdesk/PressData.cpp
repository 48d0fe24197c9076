#include "hosts/colourdesk/PressData.h"

#include "Utilities/LanguageServiceInterface.h"
#include "gui/elements/colour/RGBVector.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string_view>
#include <utility>
#include <vector>

namespace ColourDesk::PressData {

using GUI::RGBVector;
using Utilities::Anything;
using Utilities::String;

namespace {

constexpr std::uint32_t seed = 20261122;
constexpr int zones = 32;
constexpr int patches = 300;
constexpr int manyFields = 500;
constexpr int someFields = 30;
constexpr int sheets = 12;
constexpr long okSheet = 6;
/// Beyond these a zone's density difference is a warning, or out of tolerance.
constexpr double warningDifference = 0.07;
constexpr double limitDifference = 0.10;

/// Numbers from 0 to below 1, the same from every standard library.
class Simulation {
public:
    explicit Simulation(std::uint32_t number) : random_(seed + number) {}
    double Next() { return static_cast<double>(random_()) / 4294967296.0; }
    long Next(long from, long to) {
        return from + static_cast<long>(Next() * static_cast<double>(to - from));
    }

private:
    std::mt19937 random_;
};

struct Unit {
    char const* name;
    RGBVector color;
    char const* verdict;
};
std::array<Unit, 5> const units{{{"Black", RGBVector(40, 40, 40), "Pass"},
                                 {"Cyan", RGBVector(0, 158, 224), "Fail"},
                                 {"Magenta", RGBVector(220, 10, 126), "Pass"},
                                 {"Yellow", RGBVector(250, 225, 0), "Marginal"},
                                 {"TCS06", RGBVector(113, 151, 201), "Pass"}}};

template <class Value> Anything Vector(int count, Value value) {
    Anything::VectorOfAnythings values(static_cast<std::uint32_t>(count));
    for (int i = 0; i < count; ++i) values[static_cast<std::uint32_t>(i)] = value(i);
    return values;
}
Anything Longs(std::initializer_list<long> values) {
    Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}
Anything Map(std::initializer_list<std::pair<char const*, Anything>> entries) {
    Anything::MapOfAnythings map;
    for (auto const& [key, value] : entries) map[key] = value;
    return map;
}
Anything Translated(char const* key) { return Utilities::LanguageServiceInterface::GetTranslation(key); }

/// Of cyan, by zone.
std::vector<double> const& Differences() {
    static auto const differences = [] {
        Simulation simulation(1);
        std::vector<double> values(zones);
        for (double& value : values) value = (simulation.Next() + simulation.Next() - 1) * 0.068;
        values[6] = 0.125;
        values[17] = -0.078;
        return values;
    }();
    return differences;
}
long StateOf(double difference) {
    double const size = std::abs(difference);
    return size > limitDifference ? 2 : size > warningDifference ? 1 : 0;
}

/// Of cyan, by sheet.
double Density(int sheet) {
    Simulation simulation(100 + static_cast<std::uint32_t>(sheet));
    return 1.45 + 0.012 * (simulation.Next() - 0.5) + 0.011 * std::max(0, sheet - 7);
}
/// The mean of the fields' colour differences.
double MeanDifference(int sheet) {
    Simulation simulation(200 + static_cast<std::uint32_t>(sheet));
    return 0.45 + 0.3 * simulation.Next() + 0.02 * sheet;
}

Anything Strip(long left, long right, long top) {
    Simulation simulation(2);
    Anything const colors = Vector(patches, [&simulation](int i) {
        RGBVector color = units[static_cast<std::size_t>(i) % units.size()].color;
        color.Darker(static_cast<unsigned short>(simulation.Next(0, 8)));
        return color.GetAnything();
    });
    return Map({{"1", Map({{"Coordinates", Longs({left, top, right, top + 6})}, {"Colors", colors}})}});
}

Anything Fields(int count) {
    Simulation simulation(3);
    Anything::MapOfAnythings fields(static_cast<std::uint32_t>(count) + 1);
    constexpr std::array<std::pair<long, long>, 5> few{
        {{170, 130}, {520, 190}, {830, 110}, {370, 430}, {830, 470}}};
    for (int i = 0; i < count; ++i) {
        bool const isFew = count == static_cast<int>(few.size());
        // One draw after the other: compilers evaluate arguments in different orders.
        auto place = isFew ? few[static_cast<std::size_t>(i)] : few.front();
        if (!isFew) {
            place.second = simulation.Next(20, 640);
            place.first = simulation.Next(20, 1000);
        }
        auto const channel = [&simulation] { return static_cast<unsigned char>(simulation.Next(50, 240)); };
        auto const blue = channel();
        auto const green = channel();
        auto const red = channel();
        RGBVector const color(red, green, blue);
        fields[String(long{i})] = Map({{"Index", long{i} + 1},
                                       {"Color", color.GetAnything()},
                                       {"Coordinates", Longs({place.first, place.second})}});
    }
    return fields;
}

Anything GetTable(std::string const& state, String const& name) {
    bool const isSheet = state == "Sheet";
    // A row of boxes alone.
    if (state == "Tolerances" &&
        !(name == "TableSize" || name == "NumberOfZones" || name == "ToleranceStates"))
        return {};
    if (name == "TableSize") return Longs({1020, 720});
    if (name == "MeasureStrip") return Strip(20, 1000, 680);
    if (name == "InPictureFields") return Fields(isSheet ? 5 : state == "Zones" ? manyFields : someFields);
    if (name == "SelectedInPictureFields") return 3L;
    if (name == "SelectedPosition" && !isSheet) return Longs({810, 200});
    if (name == "RegisterMarks")
        return Vector(4, [](int i) { return Longs({i % 2 == 0 ? 20L : 1000L, i < 2 ? 20L : 655L}); });
    if (name == "NumberOfZones") return long{zones};
    if (name == "ToleranceStates")
        return Vector(zones,
                      [](int i) { return Anything(StateOf(Differences()[static_cast<std::size_t>(i)])); });
    return {};
}

Anything GetSheets(std::string const& state, String const& name) {
    if (name == "IndexOKSheet") return okSheet;
    if (name == "IndexSelected") return long{sheets};
    if (!(name == "Values")) return {};
    return Vector(sheets, [&state](int i) {
        long const minute = 10 * 60 + 14 + 4 * i;
        std::string text = MeanDifference(i) > 0.75 ? " " : "";
        text += std::to_string(minute / 60) + ":" + std::to_string(minute % 60);
        if (state == "Sheets")
            text += "\t" + String(Density(i), 2, '.').GetStdString() + "\t" +
                    String(MeanDifference(i), 2, '.').GetStdString();
        return Anything(String(text));
    });
}

Anything GetUnit(std::string const& state, String const& name) {
    for (std::size_t i = 0; i < units.size(); ++i) {
        Unit const& unit = units[i];
        if (state != unit.name && !(state == "Unit" && i == 1)) continue;
        if (name == "ColorName") return Translated(unit.name);
        if (name == "TopLineText") return String(static_cast<long>(i) + 1);
        if (name == "TopLineColor") return unit.color.GetAnything();
        if (name == "Verdict") return unit.verdict;
        if (name == "IsActive") return i == 1;
        if (!(name == "PressSectionText")) continue;
        String text = Utilities::LanguageServiceInterface::GetTranslation("Unit %1");
        text.Replace("%1", String(static_cast<long>(i) + 1));
        return text;
    }
    return {};
}

Anything GetButton(std::string const& state, String const& name) {
    if (name == "PaperPressActive") return state != "Normal";
    if (name == "PaperPressAttention") return state == "Attention";
    if (name == "TopLineColor" && state != "Unknown") return RGBVector(0, 92, 150).GetAnything();
    if (name == "TopLineText") return "Press 2";
    if (name == "BottomLineText") return "Coated 115 g";
    return {};
}

Anything Column(int count, double (*value)(int)) {
    Anything::VectorOfAnythings column(static_cast<std::uint32_t>(count) + 1);
    column[0] = "Cyan";
    for (int i = 0; i < count; ++i) column[static_cast<std::uint32_t>(i) + 1] = value(i);
    return column;
}

Anything GetZoneBars(String const& name) {
    if (name == "1") return Column(zones, [](int i) { return Differences()[static_cast<std::size_t>(i)]; });
    if (name == "ValueBegin" || name == "XValueBegin") return "0.5";
    if (name == "ValueStep" || name == "DeltaXValue") return "1";
    if (name == "BarWidth") return "0.6";
    if (name == "PositivLimit") return "0.1";
    if (name == "NegativLimit") return "-0.1";
    if (name == "XScaleBegin") return 0.0;
    if (name == "XScaleEnd") return double{zones};
    if (name == "XScaleDrawLines") return 4.0;
    if (name == "YScaleBegin") return -0.2;
    if (name == "YScaleEnd") return 0.2;
    return name == "YScaleDrawLines" ? Anything(0.1) : Anything();
}

Anything GetTrend(String const& name) {
    if (name == "1") return Column(sheets, Density);
    if (name == "") return Vector(1, [](int) { return Anything("Cyan"); });
    if (name == "CurveColor 0") return "0;158;224";
    if (name == "LineWidth 0") return 2L;
    if (name == "ValueBegin" || name == "ValueStep") return "1";
    if (name == "XScaleBegin") return 1.0;
    if (name == "XScaleEnd") return double{sheets};
    if (name == "XScaleDrawLines") return 1.0;
    if (name == "YScaleBegin") return 1.35;
    if (name == "YScaleEnd") return 1.55;
    return name == "YScaleDrawLines" ? Anything(0.05) : Anything();
}

} // namespace

Anything GetValue(std::string const& component, std::string const& state, String const& name) {
    if (component == "TablePicture") return GetTable(state, name);
    if (component == "TrendGraphicHeader") return GetSheets(state, name);
    if (component == "TrendsPressSection") return GetUnit(state, name);
    if (component == "PaperPressButton") return GetButton(state, name);
    if (component == "ZonesPressSection" && name == "Caption")
        return Translated("Cyan, density difference by ink zone");
    if (component == "ZonesPressSection" && name == "BackgroundColor")
        return RGBVector(0, 158, 224).GetAnything();
    if (component == "BarGraph" && state.empty()) return GetZoneBars(name);
    if (component == "XYGraph" && state.empty()) return GetTrend(name);
    return {};
}

std::string MessageOf(std::string const& component, std::string const& state) {
    if (component == "TablePicture" || component == "TrendGraphicHeader") return "All";
    if (component == "BarChart" && state == "Zones") return "1;1-" + std::to_string(zones) + ";1";
    if (component == "XYChart" && state == "Trend") return "1;1-" + std::to_string(sheets) + ";1";
    return "";
}

} // namespace ColourDesk::PressData
