#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <string>
#include <vector>

class QFont;
class QImage;

namespace GUI {

/// A surface that is an SVG drawing: each figure becomes one of the drawing, with the conventions of pens and
/// edges that screens have, and each text stays a text in the room that it takes on the screen. Pictures are
/// embedded.
///
/// It writes what is in one `<svg>` element, whose coordinates are pixels, to the end of `target`.
class SvgDeviceContext_PC : public PlatformIndependentDeviceContext {
public:
    explicit SvgDeviceContext_PC(std::string& target) : target_(&target) {}
    ~SvgDeviceContext_PC() override { FlushLines(); }

    RGBVector SetBackgroundColor(RGBVector const& color) override;
    RGBVector SetTextColor(RGBVector const& color) override;
    void SetPen(RGBVector const& color, long width, long style) override;
    void SetBrush(RGBVector const& color) override;
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
    void DrawPixels(short left, short top, short right, short bottom, std::span<std::uint32_t const> colors,
                    long width) override;

private:
    struct Point {
        short x;
        short y;
    };

    bool HasPen() const { return penStyle_ != noPen; }
    QFont const& GetFont();
    /// Of the pen's middle at a place, in half pixels.
    long Middle(long place) const { return 2 * place + penWidth_ % 2; }
    SvgDeviceContext_PC& Write(std::string_view text);
    SvgDeviceContext_PC& Write(double number);
    /// In half pixels.
    SvgDeviceContext_PC& WriteHalves(long halves);
    void WriteColor(std::string_view attribute, RGBVector const& color);
    /// With the attributes of pen and brush, and closes the element.
    void EndFigure(bool filled, bool isLine = false);
    void WritePoints(std::string_view element, Points const& points, bool filled);
    void WriteEllipse(short left, short top, short right, short bottom, bool filled);
    void WriteRectangle(short left, short top, short right, short bottom, bool filled);
    void WriteArc(short cx, short cy, short radius, float startAngle, float sweepAngle, bool isPie);
    void WriteImage(double x, double y, double width, double height, QImage const& image);
    void FlushLines();

    std::string* target_;
    RGBVector penColor_;
    RGBVector brushColor_;
    RGBVector textColor_;
    RGBVector backgroundColor_{255, 255, 255};
    long penWidth_ = 1;
    long penStyle_ = solid;
    QFont const* font_ = nullptr;
    double escapement_ = 0;
    /// Lines begun with `MoveTo`.
    std::vector<Point> lines_;
};

} // namespace GUI
