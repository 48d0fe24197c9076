#include "gui/charts/CurveLook.h"

#include "gui/charts/PlotText.h"
#include "gui/charts/ScaleMap.h"

#include <algorithm>

namespace GUI {

using Utilities::String;

namespace {

constexpr long sampleLength = 24;
constexpr long toName = 8;
RGBVector const inkColor{ThemeRole::Ink, RGBVector(22, 22, 22)};

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

} // namespace

long ChartLegend::MeasureWidth(PlatformIndependentDeviceContext& context, long most) const {
    PlotText::SelectFont(context);
    long widest = 0;
    for (CurveLook const& look : looks_) widest = std::max(widest, PlotText::WidthOf(context, look.name));
    return std::min(sampleLength + toName + widest, most);
}

long ChartLegend::GetHeight(long most) const {
    return std::min(static_cast<long>(looks_.size()), std::max(most, 0L) / rowHeight) * rowHeight;
}

void ChartLegend::Draw(PlatformIndependentDeviceContext& context, long left, long top, long width,
                       long height) const {
    auto const rows = static_cast<std::size_t>(std::max(height, 0L) / rowHeight);
    std::size_t const shown = looks_.size() <= rows ? looks_.size() : rows - std::min<std::size_t>(rows, 1);
    PlotText::SelectFont(context);
    RGBVector const formerText = context.SetTextColor(inkColor);
    long const nameRoom = width - sampleLength - toName;
    long y = top;
    auto const write = [&](long x, String const& text, long room) {
        String const fitting = PlotText::Fit(context, text, room);
        if (fitting.Length() == 0) return;
        long textWidth = 0;
        long textHeight = 0;
        context.GetTextExtent(fitting, textWidth, textHeight);
        context.DrawText(Short(x), Short(y + (rowHeight - textHeight) / 2), fitting);
    };
    for (std::size_t i = 0; i < shown; ++i, y += rowHeight) {
        CurveLook const& look = looks_[i];
        short const row = Short(y + rowHeight / 2);
        auto const sample = [&](RGBVector const& color, long pen) {
            context.SetPen(color, pen, PlatformIndependentDeviceContext::solid);
            context.DrawLine(Short(left), row, Short(left + sampleLength), row);
        };
        if (look.caseWidth > 0) sample(look.caseColor, look.caseWidth);
        sample(look.color, look.width);
        write(left + sampleLength + toName, look.name, nameRoom);
    }
    if (shown < looks_.size() && rows > 0)
        write(left, String("+") + String(static_cast<unsigned long>(looks_.size() - shown)), width);
    context.SetTextColor(formerText);
}

} // namespace GUI
