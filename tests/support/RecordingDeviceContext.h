#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <string>
#include <vector>

namespace TestSupport {

/// A surface that writes down what is asked of it, one row of text for each call: the operation's name
/// and its arguments with blanks between, a colour as "r,g,b". A character is 6 by 10 pixels.
class RecordingDeviceContext : public GUI::PlatformIndependentDeviceContext {
public:
    using Rows = std::vector<std::string>;

    Rows const& GetRows() const { return rows_; }
    /// The rows that begin with that text.
    Rows GetRows(std::string const& operation) const;

    GUI::RGBVector SetBackgroundColor(GUI::RGBVector const& color) override;
    GUI::RGBVector SetTextColor(GUI::RGBVector const& color) override;
    void SetPen(GUI::RGBVector const& color, long width, long style) override;
    void SetBrush(GUI::RGBVector const& color) override;
    void SetFont(short height, short width, short escapement, Utilities::String const& face,
                 short bold) override;
    void MoveTo(short x, short y) override;
    void LineTo(short x, short y) override;
    void DrawLine(short x1, short y1, short x2, short y2) override;
    void DrawRectangle(short left, short top, short right, short bottom) override;
    void FillRectangle(short left, short top, short right, short bottom) override;
    void DrawEllipse(short left, short top, short right, short bottom) override;
    void FillEllipse(short left, short top, short right, short bottom) override;
    void DrawArc(short cx, short cy, short radius, float startAngle, float sweepAngle) override;
    void FillPie(short cx, short cy, short radius, float startAngle, float sweepAngle) override;
    void DrawPolygon(Points points) override;
    void FillPolygon(Points points) override;
    void DrawImage(short x, short y, Utilities::String const& imageName) override;
    void DrawText(short x, short y, Utilities::String const& text) override;
    void GetTextExtent(Utilities::String const& text, long& width, long& height) override;
    void SetSmooth(bool smooth) override;
    /// Writes the box, the number of colours in a row, and the first and last colour.
    void DrawPixels(short left, short top, short right, short bottom, std::span<std::uint32_t const> colors,
                    long width) override;

private:
    template <class... Arguments> void Add(char const* operation, Arguments const&... arguments);

    Rows rows_;
    GUI::RGBVector background_;
    GUI::RGBVector text_;
};

} // namespace TestSupport
