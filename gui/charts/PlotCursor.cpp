#include "gui/charts/PlotCursor.h"

#include "gui/charts/PlotText.h"
#include "gui/charts/ScaleMap.h"

#include <algorithm>

namespace GUI {

using Utilities::String;

namespace {

constexpr long toCursor = 10;
constexpr long padding = 10;
constexpr long rowHeight = 18;
constexpr long between = 16;
constexpr long widest = 260;

RGBVector const lineColor{ThemeRole::Ink2, RGBVector(74, 74, 74)};
RGBVector const inkColor{ThemeRole::Ink, RGBVector(22, 22, 22)};
RGBVector const fieldColor{ThemeRole::Field, RGBVector(255, 255, 255)};
RGBVector const borderColor{ThemeRole::Border, RGBVector(122, 122, 122)};

short Short(long value) { return ScaleMap::ToShort(static_cast<double>(value)); }

} // namespace

void PlotReadOut::Draw(PlatformIndependentDeviceContext& context, long column, long top, long plotWidth,
                       long plotHeight) const {
    PlotText::SelectFont(context, true);
    long valueWidth = 0;
    for (Row const& row : rows) valueWidth = std::max(valueWidth, PlotText::WidthOf(context, row.value));
    PlotText::SelectFont(context);
    long inner = PlotText::WidthOf(context, heading);
    for (Row const& row : rows)
        inner = std::max(inner, PlotText::WidthOf(context, row.name) + between + valueWidth);
    inner = std::min({inner, widest, plotWidth - 2 * padding});
    long const height = std::min(static_cast<long>(rows.size() + 1) * rowHeight + padding, plotHeight);
    long const width = inner + 2 * padding;
    if (inner <= 0 || height < rowHeight) return;
    bool const isRight = column + toCursor + width <= plotWidth || column < plotWidth / 2;
    long const left = std::clamp(isRight ? column + toCursor : column - toCursor - width, 0L,
                                 std::max(plotWidth - width, 0L));
    long const upper = std::clamp(top, 0L, std::max(plotHeight - height, 0L));
    context.SetBrush(fieldColor);
    context.SetPen(borderColor, 1, PlatformIndependentDeviceContext::solid);
    context.FillRectangle(Short(left), Short(upper), Short(left + width), Short(upper + height));
    long y = upper + padding / 2;
    auto const write = [&](String const& text, bool isValue, RGBVector const& color) {
        context.SetTextColor(color);
        long textWidth = 0;
        long textHeight = 0;
        context.GetTextExtent(text, textWidth, textHeight);
        long const x = isValue ? left + width - padding - textWidth : left + padding;
        context.DrawText(Short(x), Short(y + (rowHeight - textHeight) / 2), text);
    };
    RGBVector const formerText = context.SetTextColor(lineColor);
    write(PlotText::Fit(context, heading, inner), false, lineColor);
    for (Row const& row : rows) {
        y += rowHeight;
        if (y + rowHeight > upper + height) break;
        PlotText::SelectFont(context);
        write(PlotText::Fit(context, row.name, inner - between - valueWidth), false, inkColor);
        PlotText::SelectFont(context, true);
        write(row.value, true, inkColor);
    }
    context.SetTextColor(formerText);
}

void DrawCursorLine(PlatformIndependentDeviceContext& context, short column, long plotHeight) {
    context.SetPen(lineColor, 1, PlatformIndependentDeviceContext::solid);
    context.DrawLine(column, 0, column, Short(plotHeight));
}

void DrawCursorRing(PlatformIndependentDeviceContext& context, short x, short y) {
    constexpr int radius = 4;
    context.SetBrush(fieldColor);
    context.SetPen(inkColor, 1, PlatformIndependentDeviceContext::solid);
    context.FillEllipse(ScaleMap::ToShort(x - radius), ScaleMap::ToShort(y - radius),
                        ScaleMap::ToShort(x + radius + 1), ScaleMap::ToShort(y + radius + 1));
}

} // namespace GUI
