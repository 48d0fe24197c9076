#include "tests/support/RecordingDeviceContext.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace TestSupport {

using GUI::RGBVector;
using Utilities::String;

namespace {

template <class T> void Write(std::ostream& row, T const& argument) { row << ' ' << argument; }
void Write(std::ostream& row, RGBVector const& color) {
    row << ' ' << int{color.GetRed()} << ',' << int{color.GetGreen()} << ',' << int{color.GetBlue()};
}
void Write(std::ostream& row, String const& text) { row << " \"" << text.GetCharPointer() << '"'; }
void Write(std::ostream& row, GUI::PlatformIndependentDeviceContext::Points const& points) {
    for (auto const& point : points) row << ' ' << point.first << ',' << point.second;
}

} // namespace

template <class... Arguments>
void RecordingDeviceContext::Add(char const* operation, Arguments const&... arguments) {
    std::ostringstream row;
    row << operation;
    (Write(row, arguments), ...);
    rows_.push_back(row.str());
}

RecordingDeviceContext::Rows RecordingDeviceContext::GetRows(std::string const& operation) const {
    Rows found;
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(found),
                 [&operation](std::string const& row) { return row.starts_with(operation); });
    return found;
}

RGBVector RecordingDeviceContext::SetBackgroundColor(RGBVector const& color) {
    Add("SetBackgroundColor", color);
    return std::exchange(background_, color);
}
RGBVector RecordingDeviceContext::SetTextColor(RGBVector const& color) {
    Add("SetTextColor", color);
    return std::exchange(text_, color);
}
void RecordingDeviceContext::SetPen(RGBVector const& color, long width, long style) {
    Add("SetPen", color, width, style);
}
void RecordingDeviceContext::SetBrush(RGBVector const& color) { Add("SetBrush", color); }
void RecordingDeviceContext::SetFont(short height, short width, short escapement, String const& face,
                                     short bold) {
    Add("SetFont", height, width, escapement, face, bold);
}
void RecordingDeviceContext::MoveTo(short x, short y) { Add("MoveTo", x, y); }
void RecordingDeviceContext::LineTo(short x, short y) { Add("LineTo", x, y); }
void RecordingDeviceContext::DrawLine(short x1, short y1, short x2, short y2) {
    Add("DrawLine", x1, y1, x2, y2);
}
void RecordingDeviceContext::DrawRectangle(short left, short top, short right, short bottom) {
    Add("DrawRectangle", left, top, right, bottom);
}
void RecordingDeviceContext::FillRectangle(short left, short top, short right, short bottom) {
    Add("FillRectangle", left, top, right, bottom);
}
void RecordingDeviceContext::DrawEllipse(short left, short top, short right, short bottom) {
    Add("DrawEllipse", left, top, right, bottom);
}
void RecordingDeviceContext::FillEllipse(short left, short top, short right, short bottom) {
    Add("FillEllipse", left, top, right, bottom);
}
void RecordingDeviceContext::DrawArc(short cx, short cy, short radius, float startAngle, float sweepAngle) {
    Add("DrawArc", cx, cy, radius, startAngle, sweepAngle);
}
void RecordingDeviceContext::FillPie(short cx, short cy, short radius, float startAngle, float sweepAngle) {
    Add("FillPie", cx, cy, radius, startAngle, sweepAngle);
}
void RecordingDeviceContext::DrawPolygon(Points points) { Add("DrawPolygon", points); }
void RecordingDeviceContext::FillPolygon(Points points) { Add("FillPolygon", points); }
void RecordingDeviceContext::DrawImage(short x, short y, String const& imageName) {
    Add("DrawImage", x, y, imageName);
}
void RecordingDeviceContext::DrawText(short x, short y, String const& text) { Add("DrawText", x, y, text); }
void RecordingDeviceContext::GetTextExtent(String const& text, long& width, long& height) {
    width = 6 * text.Length();
    height = 10;
}
void RecordingDeviceContext::SetSmooth(bool smooth) { Add("SetSmooth", smooth); }
void RecordingDeviceContext::DrawPixels(short left, short top, short right, short bottom,
                                        std::span<std::uint32_t const> colors, long width) {
    Add("DrawPixels", left, top, right, bottom, width, colors.empty() ? 0 : colors.front(),
        colors.empty() ? 0 : colors.back());
}

} // namespace TestSupport
