// The ink zones of the picture: their lines and their tolerance boxes.
#include "gui/elements/drawing/VerdictSign.h"
#include "gui/press/TableDrawing.h"
#include "gui/press/TablePicture.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::String;
using namespace TableDrawing;

namespace {

constexpr int signSize = 14;
constexpr long warningState = 1;
constexpr long outState = 2;
RGBVector const quietLine{ThemeRole::Grid, RGBVector(233, 233, 233)};
RGBVector const good{ThemeRole::Pass, RGBVector(20, 178, 109)};
RGBVector const warning{ThemeRole::Warn, RGBVector(255, 249, 164)};
RGBVector const bad{ThemeRole::Fail, RGBVector(233, 0, 41)};
RGBVector const paleGood{ThemeRole::Band, RGBVector(233, 233, 233)};
RGBVector const boxOutline{ThemeRole::Border, RGBVector(128, 128, 128)};

bool IsOff(long state) { return state == warningState || state == outState; }

} // namespace

void TablePicture::TakeStates(std::vector<long> states) {
    auto const former = std::exchange(table_.states, std::move(states));
    if (former.size() != table_.states.size() || type_ != zoneType) return Repaint();
    for (std::size_t i = 0; i < table_.states.size(); ++i) {
        if (former[i] == table_.states[i]) continue;
        // A sign moves the zone's number.
        if (signs_ && IsGraduated(static_cast<long>(i))) return Repaint();
        auto const [from, to] = GetZoneBox(static_cast<long>(i));
        RepaintPart(*this, {from.x, from.y, to.x, to.y});
        if (!IsAttached()) return;
    }
}

std::pair<TablePicture::Pixel, TablePicture::Pixel> TablePicture::GetZoneBox(long zone) {
    constexpr int around = 2;
    constexpr int signReach = signSize / 2 + around;
    int const middle = At((static_cast<double>(zone) + 0.5) * ZoneWidth(), 0).x;
    int const left = At(static_cast<double>(zone) * ZoneWidth(), 0).x;
    int const right = At(static_cast<double>(zone + 1) * ZoneWidth(), 0).x;
    int const height = GetExtent().y;
    // A sign over the box is as high as that.
    int const room = boxHeight_ + (signs_ ? signSize + around : 0);
    return {{std::min(left - around, middle - signReach),
             height - static_cast<int>(bottomReserve_ / 2) - room - around},
            {std::max(right + around, middle + signReach), height}};
}

void TablePicture::PaintZoneFrame(PlatformIndependentDeviceContext& context) {
    auto const [width, height] = GetExtent();
    int const paperHeight = GetPaperHeight();
    int const foot = height - static_cast<int>(bottomReserve_ / 2);
    context.SetPen(ink_, static_cast<long>(bottomReserve_), Context::solid);
    Line(context, 0, foot, width, foot);
    if (table_.zones > 1) {
        context.SetPen(quietLine, 2, Context::solid);
        for (int quarter = 1; quarter <= 3; ++quarter)
            Line(context, 0, quarter * (paperHeight / 4), width, quarter * (paperHeight / 4));
        for (long i = 0; i < table_.zones; ++i) {
            context.SetPen(IsGraduated(i + 1) ? ink_ : quietLine, IsGraduated(i + 1) ? 1 : 2, Context::solid);
            int const x = At(static_cast<double>(i + 1) * ZoneWidth(), 0).x;
            Line(context, x, 0, x, paperHeight);
        }
    }
    context.SetPen(ink_, 1, Context::solid);
    Line(context, 0, 0, 0, height);
    Line(context, width - 1, 0, width - 1, height);
}

void TablePicture::PaintZones(PlatformIndependentDeviceContext& context) {
    int const half = (At(ZoneWidth(), 0).x - 4) / 2;
    int const bottom = GetExtent().y - static_cast<int>(bottomReserve_ / 2);
    int const top = bottom - 2 * (boxHeight_ / 2);
    context.SetFont(fontSize_, 0, 0, fontName_, bold_);
    long textWidth = 0;
    long textHeight = 0;
    context.GetTextExtent("X", textWidth, textHeight);
    for (long i = 0; i < std::min(table_.zones, static_cast<long>(table_.states.size())); ++i) {
        long const state = table_.states[static_cast<std::size_t>(i)];
        auto const [from, to] = GetZoneBox(i);
        constexpr int mostDigits = 5;
        if (!Meets(painted_, from.x, from.y - textHeight, to.x + mostDigits * textWidth, to.y)) continue;
        int const middle = At(static_cast<double>(i) * ZoneWidth() + ZoneWidth() / 2.0, 0).x;
        PaintZoneBox(context, state, {middle - half, top}, {middle + half, bottom});
        int const highest = signs_ && IsOff(state) ? PaintZoneSign(context, state, middle, top, bottom) : top;
        if (!IsGraduated(i)) continue;
        context.SetTextColor(ink_);
        context.DrawText(Short(middle - half + 1), Short(highest - textHeight), String(i + 1));
    }
}

void TablePicture::PaintZoneBox(PlatformIndependentDeviceContext& context, long state, Pixel from,
                                Pixel to) const {
    if (IsOff(state))
        UseColor(context, state == outState ? bad : warning);
    else
        UseColor(context, signs_ ? paleGood : good, 0);
    if (signs_ && state != outState) context.SetPen(IsOff(state) ? ink_ : boxOutline, 1, Context::solid);
    context.FillRectangle(Short(from.x), Short(from.y), Short(to.x), Short(to.y));
}

int TablePicture::PaintZoneSign(PlatformIndependentDeviceContext& context, long state, int middle, int top,
                                int bottom) {
    constexpr int size = signSize;
    VerdictKind const kind = state == outState ? VerdictKind::Fail : VerdictKind::Marginal;
    bool const fits = bottom - top >= size && At(ZoneWidth(), 0).x - 4 >= size;
    int const signTop = fits ? (top + bottom - size) / 2 : top - size - 1;
    DrawVerdictSign(context, kind, fits ? VerdictTones::Reversed(kind) : VerdictTones::Of(kind),
                    Short(middle - size / 2), Short(signTop), size);
    return std::min(top, signTop);
}

} // namespace GUI
