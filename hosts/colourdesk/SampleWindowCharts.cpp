// What the charts ask: curves over the wavelength, spots in the a*b* plane.
#include "hosts/colourdesk/ElementKeys.h"
#include "hosts/colourdesk/SampleWindow.h"

#include <algorithm>
#include <cmath>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr int bands = 36;
/// The a*b* plane is shown at least this far out.
constexpr double smallestRange = 60;

} // namespace

Anything SampleWindow::GetCurveValue(String const& key) const {
    if (key == "XScaleBegin") return 380.0;
    if (key == "XScaleEnd") return 730.0;
    if (key == "YScaleBegin") return 0.0;
    if (key == "YScaleEnd") return reflectanceEnd_;
    if (key == "XValueBegin" || key == "ValueBegin") return "380";
    if (key == "DeltaXValue" || key == "ValueStep") return "10";
    if (key == "ActiveCurve")
        return static_cast<short>(pages_.IsShown(selected_) ? selected_ - pages_.GetFirst() : -1);
    if (key == "LegendCurves") {
        // Of many, the selected one.
        constexpr long most = 6;
        if (pages_.GetSize() <= most) return {};
        Anything::VectorOfAnythings chosen(pages_.IsShown(selected_) ? 1 : 0);
        if (chosen.GetSize() != 0) chosen[0] = selected_ - pages_.GetFirst();
        return {chosen};
    }
    if (key == "View") return curveView_;
    if (key == "") {
        Anything::VectorOfAnythings names(static_cast<std::uint32_t>(pages_.GetSize()));
        for (std::uint32_t i = 0; i < names.GetSize(); ++i)
            names[i] = At(pages_.GetFirst() + static_cast<long>(i)).name.c_str();
        return {names};
    }
    if (StartsWith(key, "CurveColor ")) {
        long const sample = pages_.GetFirst() + NumberBehind(key, "CurveColor ");
        if (!pages_.IsShown(sample)) return {};
        auto const& color = At(sample).color;
        return (std::to_string(color.GetRed()) + ";" + std::to_string(color.GetGreen()) + ";" +
                std::to_string(color.GetBlue()))
            .c_str();
    }
    if (StartsWith(key, "LineWidth "))
        return pages_.GetFirst() + NumberBehind(key, "LineWidth ") == selected_ ? 3L : 1L;
    if (StartsWith(key, "ToolTipText ")) {
        long const band = NumberBehind(key, "ToolTipText ");
        String const name = key.Mid(key.FindSubstring(" Curve ", 0) + 7, key.Length());
        String const wavelength(370 + 10 * band);
        return name + ", " + wavelength + " nm";
    }
    if (key.Length() != 0 && key.GetStdString().find_first_not_of("0123456789") == std::string::npos)
        return GetCurve(pages_.GetFirst() + key.GetLong() - 1);
    return {};
}

Anything SampleWindow::GetCurve(long sample) const {
    if (sample < 0 || sample >= Count()) return {};
    ShownSample const& shown = At(sample);
    Anything::VectorOfAnythings column(1 + bands);
    column[0] = shown.name.c_str();
    for (std::uint32_t i = 0; i < bands; ++i)
        column[1 + i] = String(static_cast<double>(shown.spectrum[i]), 6, '.');
    return {column};
}

Anything SampleWindow::GetLabChartValue(String const& key) const {
    if (key == "NrOfPatches") return pages_.GetSize();
    if (key == "SelectedSample") return pages_.IsShown(selected_) ? selected_ - pages_.GetFirst() : -1L;
    if (StartsWith(key, "ToolTipText "))
        return ToolTip(pages_.GetFirst() + NumberBehind(key, "ToolTipText ")).c_str();
    if (key == "XValueBegin" || key == "YValueBegin") return static_cast<short>(-labRange_);
    if (key == "View") return labView_;
    if (key == "GamutLightness" && selected_ >= 0) return std::clamp(At(selected_).lab[0], 0.0, 100.0);
    if (key == "Tolerance" && selected_ >= 0) {
        auto const& lab = At(selected_).lab;
        Anything::MapOfAnythings record;
        record["L"] = lab[0];
        record["a"] = lab[1];
        record["b"] = lab[2];
        record["Limit"] = 5.0;
        return record;
    }
    if (key == "XValueEnd" || key == "YValueEnd") return labRange_;
    return {};
}

short SampleWindow::RangeOf(SampleDocument const& document) {
    double range = smallestRange;
    for (ShownSample const& shown : document.GetSamples())
        range = std::max({range, std::abs(shown.lab[1]), std::abs(shown.lab[2])});
    return static_cast<short>(std::min(std::ceil(range / 10) * 10 + 10, 1000.0));
}

Anything SampleWindow::GetSpot(long sample) const {
    if (sample < 0 || sample >= Count()) return {};
    ShownSample const& shown = At(sample);
    Anything::MapOfAnythings spot;
    spot["Color"] = shown.color.GetAnything();
    spot["XValue"] = shown.lab[1];
    spot["YValue"] = shown.lab[2];
    return {spot};
}

} // namespace ColourDesk
