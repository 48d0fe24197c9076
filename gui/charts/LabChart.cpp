#include "gui/charts/LabChart.h"

#include "gui/charts/CrossGraph.h"
#include "gui/charts/UpdateMessage.h"
#include "gui/colour/PatchAttributes.h"
#include "gui/elements/description/ElementRegistration.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

constexpr Attribute colorSpaceKey{"ColorSpace", AttributeType::Text, "CIELab",
                                  "The colour space that is shown"};
constexpr Attribute zoomFactorKey{"ZoomFactor", AttributeType::Number, "100",
                                  "Enlargement in percent until the first update"};
constexpr Attribute attributeList[] = {colorSpaceKey,
                                       zoomFactorKey,
                                       PatchAttributes::smooth,
                                       PlaneDecor::ringsAttribute,
                                       PlaneDecor::hueLinesAttribute,
                                       PlaneDecor::gamutEdgeAttribute};

ElementRegistration<LabChart, Pane> const registration({"LabChart", "$Revision: 1.15 $", "GUI"},
                                                       attributeList);

constexpr char const* planeName = "abGraph";
constexpr char const* barName = "LGraph";
constexpr char const* noGraph = "NoGraph";
/// The entries of a row: behind its name.
constexpr std::uint32_t firstValue = 1;
constexpr std::uint32_t secondValue = 2;
constexpr std::uint32_t thirdValue = 3;

SmartPointer<DescriptionTree> MakeFrame(char const* name, char const* top, char const* bottom,
                                        char const* left, char const* right,
                                        SmartPointer<DescriptionTree> const& child) {
    auto frame = Utilities::MakeSmart<DescriptionTree>();
    (*frame)["GUIElementType"] = "FrameBox";
    (*frame)["ElementName"] = name;
    (*frame)["Top"] = top;
    (*frame)["Bottom"] = bottom;
    (*frame)["Left"] = left;
    (*frame)["Right"] = right;
    frame->AddChild(child);
    return frame;
}

/// A plot, but for its smallest and largest size.
SmartPointer<DescriptionTree> MakePlot(char const* name, char const* barType, String const& background) {
    auto plot = Utilities::MakeSmart<DescriptionTree>();
    (*plot)["GUIElementType"] = "CrossGraph";
    (*plot)["ElementName"] = name;
    (*plot)["Register"] = "No";
    (*plot)["MaximalHeight"] = "10000";
    (*plot)["BackgroundColor"] = background;
    (*plot)["LineColor"] = "0,0,0";
    (*plot)["XScaleDrawLines"] = "0";
    (*plot)["YScaleDrawLines"] = "0";
    (*plot)["JustificationOnX"] = "Yes";
    (*plot)["ColorBarType"] = barType;
    (*plot)["Frame"] = "No";
    return plot;
}

String NumberText(double value) {
    if (value > 10) return String(value, 0, '.');
    return String(value, value > 1 ? 1 : 2, '.');
}

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

} // namespace

void LabChart::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    BuildColorSpaceTable();
    Chart::Initialize(parent, description, dataSource);
    AttributeReader const attributes(description);
    colorSpace_ = attributes.Text(colorSpaceKey);
    zoomFactor_ = static_cast<std::uint32_t>(attributes.Unsigned(zoomFactorKey));
    smooth_ = attributes.Flag(PatchAttributes::smooth);
    for (Attribute const& attribute : PlaneDecor::attributes)
        if (attributes.Has(attribute)) decor_[attribute.key] = attributes.Text(attribute);
    CreateChildren();
    OnUpdate("Properties");
}

void LabChart::BuildColorSpaceTable() { colorSpaceTable_ = LabColorSpaces::MakeTable(); }

void LabChart::CreateChildren() {
    auto const lighter = [](unsigned char channel) {
        return String(static_cast<long>(channel + 127 - channel / 2));
    };
    RGBVector const color = GetBackgroundColor();
    String const background =
        lighter(color.GetRed()) + "," + lighter(color.GetGreen()) + "," + lighter(color.GetBlue());

    auto const plane = MakePlot(planeName, "ab", background);
    (*plane)["MinimalWidth"] = "10";
    (*plane)["MaximalWidth"] = "10000";
    (*plane)["MinimalHeight"] = "10";
    auto const bar = MakePlot(barName, "L", background);
    (*bar)["MinimalWidth"] = "20";
    (*bar)["MaximalWidth"] = "1000";
    (*bar)["MinimalHeight"] = "40";

    for (auto entry = decor_.Begin(); entry.IsValid(); ++entry) (*plane)[entry.GetKey()] = entry.GetValue();
    if (smooth_) (*plane)[PatchAttributes::smooth.key] = (*bar)[PatchAttributes::smooth.key] = "Yes";

    // The captions are in the margins above.
    auto const box = Utilities::MakeSmart<DescriptionTree>();
    (*box)["GUIElementType"] = "HBox";
    (*box)["ElementName"] = "HBox";
    box->AddChild(MakeFrame("abGraphFrameBox", "20", "5", "5", "10", plane));
    box->AddChild(MakeFrame("LGraphFrameBox", "20", "5", "20", "5", bar));
    GetGraphDescription() = DescriptionTree();
    GetGraphDescription().AddChild(MakeFrame("ChartFrameBox", "5", "5", "5", "5", box));
    Chart::CreateChildren();
}

SmartPointer<CrossGraph> LabChart::GetPlot(bool isPlane) const {
    GUIElement const* const frame = GetFirstChild();
    if (!frame) return {};
    auto const box = frame->GetChildrenList().Begin();
    if (!box.IsValid()) return {};
    auto plotFrame = box.Current()->GetChildrenList().Begin();
    if (!isPlane && plotFrame.IsValid()) ++plotFrame;
    if (!plotFrame.IsValid()) return {};
    auto const plot = plotFrame.Current()->GetChildrenList().Begin();
    return plot.IsValid() ? SmartPointer<CrossGraph>(plot.Current()) : SmartPointer<CrossGraph>();
}

SmartPointer<CrossGraph> LabChart::GetAbGraph() { return GetPlot(true); }
SmartPointer<CrossGraph> LabChart::GetLGraph() { return GetPlot(false); }

double LabChart::GetScaled(char const* setting) const {
    return GetSettings()[setting].GetDouble() * 100 / zoomFactor_;
}

Anything LabChart::GetValue(String const& element, String const& name) {
    if (element == planeName) return GetPlaneValue(name);
    if (element == barName) return GetBarValue(name);
    return Chart::GetValue(element, name);
}

Anything LabChart::GetPlaneValue(String const& name) {
    for (char const* const scale : {"XScaleBegin", "XScaleEnd", "YScaleBegin", "YScaleEnd"})
        if (name == scale) return GetScaled(scale);
    if (name == "XScaleGraduation" || name == "YScaleGraduation")
        return String(GetScaled("XYGraduation"), 5, '.');
    if (name == "LineColor") return RGBVector().GetAnything();
    if (name == "LineWidth") return 2L;
    if (name == "XValueBegin" || name == "DeltaXValue") return "";
    if (name == "JustificationOnX") return "Yes";
    String const first = name.GetToken(0, ' ');
    if (first == "ToolTipText") return Chart::GetValue(GetElementName(), name + " ab");
    if (first == "ColorBarType") return GetSettings()["XYGraphType"];
    if (name == "Tolerance" || name == PlaneDecor::traceKey || name == PlaneDecor::gamutLightnessKey)
        return colorSpace_ == "CIELab" ? Chart::GetValue(GetElementName(), name) : Anything();
    return GetPair(name, true);
}

Anything LabChart::GetBarValue(String const& name) {
    if (name == "YScaleBegin") return GetScaled("ZScaleBegin");
    if (name == "YScaleEnd") return GetScaled("ZScaleEnd");
    if (name == "XScaleBegin") return -1.0;
    if (name == "XScaleEnd") return 1.0;
    if (name == "XScaleGraduation") return "0";
    if (name == "YScaleGraduation") return String(GetScaled("ZGraduation"), 5, '.');
    if (name == "LineColor") return RGBVector().GetAnything();
    if (name == "LineWidth") return 2L;
    if (name == "XValueBegin") return "1";
    if (name == "DeltaXValue") return {};
    if (name == "JustificationOnX") return "Yes";
    String const first = name.GetToken(0, ' ');
    if (first == "ToolTipText") return Chart::GetValue(GetElementName(), name + " L");
    if (first == "ColorBarType") return GetSettings()["ZGraphType"];
    return GetPair(name, false);
}

Anything LabChart::GetPair(String const& name, bool isPlane) const {
    std::uint16_t const number = UpdateMessage::RowNumber(name);
    if (number == 0) return {};
    if (number > rows_.size())
        throw Norvelian::Utilities::Exceptions::OutOfRangeException("vector index >= vector size");
    Anything const& row = rows_[number - 1U];
    if (!row.IsValid()) return {};
    auto const& values = row.GetVectorOfAnythings();
    Anything::VectorOfAnythings pair(2);
    bool const isPlaneFirst = LabColorSpaces::IsPlaneFirst(colorSpace_);
    if (!isPlane) {
        pair[0] = "0";
        pair[1] = values[isPlaneFirst ? thirdValue : firstValue];
    } else if (LabColorSpaces::IsPolar(colorSpace_)) {
        constexpr short decimals = 15;
        double const chroma = values[secondValue].GetDouble();
        double const hue = values[thirdValue].GetDouble() * std::numbers::pi / 180;
        pair[0] = String(chroma * std::cos(hue), decimals, '.');
        pair[1] = String(chroma * std::sin(hue), decimals, '.');
    } else {
        pair[0] = values[isPlaneFirst ? firstValue : secondValue];
        pair[1] = values[isPlaneFirst ? secondValue : thirdValue];
    }
    return {pair};
}

long LabChart::OnUpdate(Anything const& command) {
    String const message = GetCommand(command);
    if (message == "Properties")
        ReadProperties();
    else
        ReadRows(message);
    ReadUpdate(command);
    Repaint();
    return 0;
}

void LabChart::ReadProperties() {
    String space = colorSpace_;
    Anything const answer = Chart::GetValue(GetElementName(), "ColorScale");
    if (answer.IsValid()) space = answer.GetString();
    LabColorSpaces::Table const& spaces = colorSpaceTable_;
    unsigned long const zoom = spaces[space]["Zoom"].GetUnsignedLong();
    colorSpace_ = space;
    zoomFactor_ = static_cast<std::uint32_t>(zoom);
    for (char const* const message : {"Properties", ""})
        for (char const* const plot : {planeName, barName}) FireCallback(plot, "OnUpdate", message);
}

void LabChart::ReadRows(String const& message) {
    auto const range = UpdateMessage::Range::Parse(message);
    if (!range) return;
    std::uint32_t const begin = range->firstColumn;
    std::uint32_t const end = range->lastColumn;
    auto rows = rows_;
    rows.resize(end >= begin ? end - begin + 1 : 0);
    for (std::uint32_t number = begin; number <= end; ++number) {
        Anything const row = Chart::GetValue(GetElementName(), String(static_cast<unsigned long>(number)));
        if (!row.IsValid()) continue;
        if (number == 0 || number > rows.size())
            throw Norvelian::Utilities::Exceptions::OutOfRangeException("vector index >= vector size");
        rows[number - 1] = row;
    }
    rows_ = std::move(rows);
    String const points = String("1;") + String(static_cast<unsigned long>(begin)) + "-2;" +
                          String(static_cast<unsigned long>(end));
    if (range->first == 1) FireCallback(barName, "OnUpdate", points);
    if (range->last != 1) FireCallback(planeName, "OnUpdate", points);
}

String LabChart::GetNumberTable() {
    NumberTable table;
    table.Add(colorSpace_).EndRow();
    for (Anything const& row : rows_) {
        if (!row.IsValid()) continue;
        bool isName = true;
        for (Anything const& entry : row.GetVectorOfAnythings()) {
            if (std::exchange(isName, false))
                table.Add(entry.GetString());
            else
                table.Add(entry.GetDouble());
        }
        table.EndRow();
    }
    return table.Take();
}

void LabChart::OnPaint(PlatformIndependentDeviceContext& context) {
    static RGBVector const black{ThemeRole::Axis, RGBVector()};
    Chart::OnPaint(context);
    context.SetBrush(black);
    context.SetPen(black, 2, PlatformIndependentDeviceContext::solid);
    context.SetFont(10, 5, 0, "Arial", 0);
    LabColorSpaces::Settings const& settings = GetSettings();
    String const prefix = zoomFactor_ == 100 ? "" : "d";
    auto const widthOf = [&context](String const& text) {
        long width = 0;
        long height = 0;
        context.GetTextExtent(text, width, height);
        return width;
    };
    auto const sizeOf = [](SmartPointer<CrossGraph> const& plot) {
        unsigned long width = 0;
        unsigned long height = 0;
        if (!plot.IsNull()) plot->GetSize(width, height);
        return std::pair(static_cast<long>(width), static_cast<long>(height));
    };
    if (!(settings["XYGraphType"] == noGraph)) {
        auto const [width, height] = sizeOf(GetAbGraph());
        String const above = prefix + settings["YCaption"] + " = " + NumberText(GetScaled("YScaleEnd"));
        context.DrawText(Short(width / 2 + 10 - widthOf(above) / 2), 10, above);
        context.DrawText(Short(width + 12), Short(height / 2 + 5), prefix + settings["XCaption"] + " =");
        context.DrawText(Short(width + 12), Short(height / 2 + 15), NumberText(GetScaled("XScaleEnd")));
    }
    if (!(settings["ZGraphType"] == noGraph)) {
        unsigned long chartWidth = 0;
        unsigned long chartHeight = 0;
        GetSize(chartWidth, chartHeight);
        long const width = sizeOf(GetLGraph()).first;
        String const above = prefix + settings["ZCaption"] + " = " + NumberText(GetScaled("ZScaleEnd"));
        context.DrawText(Short(static_cast<long>(chartWidth) - 20 - width / 2 - widthOf(above) / 2), 10,
                         above);
    }
}

} // namespace GUI
