#pragma once

#include "gui/elements/PlatformIndependentDeviceContext.h"
#include "gui/platform/RasterSurface.h"

#include <QFont>
#include <QPainter>
#include <optional>
#include <vector>

class QImage;

namespace GUI {

/// The device context around a platform paint device, made on the stack for the length of one paint.
///
/// Where the pixels behind the device can be reached, one-pixel figures are drawn straight into them;
/// elsewhere (scaled screens, printers, recorded pictures) the platform's painter draws the same
/// figures as well as it can.
class PlatformIndependentDeviceContext_PC : public PlatformIndependentDeviceContext {
public:
    /// Pixels that may be written directly: an image of 32 bits a pixel, where the surface's origin lies
    /// in it, and the part that may be drawn, in the surface's coordinates.
    struct DirectPixels {
        QImage* image;
        QPoint origin;
        QRect clip;
    };

    explicit PlatformIndependentDeviceContext_PC(QPaintDevice& device,
                                                 std::optional<DirectPixels> const& pixels = {});
    /// On an image every pixel is reachable.
    explicit PlatformIndependentDeviceContext_PC(QImage& image);
    ~PlatformIndependentDeviceContext_PC() override;

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

    /// For `_PC` files that draw what has no operation of its own. What was begun is finished first.
    QPainter& GetPainter();

private:
    bool HasPen() const { return penStyle_ != noPen; }
    bool IsThinPen() const { return penWidth_ <= 1; }
    DashPattern NewPattern() const;
    void FlushLines();
    QPainter& Painter();
    void Ellipse(short left, short top, short right, short bottom, bool filled);
    void Polygon(Points const& points, bool filled);
    void UsePen(Qt::PenJoinStyle joins);
    void UseBrush(bool filled);
    QFont const& GetFont();

    QPaintDevice& device_;
    /// Made when it is needed: a pane of plain figures does without.
    std::optional<QPainter> painter_;
    std::optional<RasterSurface> raster_;
    RGBVector penColor_;
    RGBVector brushColor_;
    RGBVector textColor_;
    RGBVector backgroundColor_{255, 255, 255};
    long penWidth_ = 1;
    long penStyle_ = solid;
    QFont const* font_ = nullptr;
    double escapement_ = 0;
    /// Lines begun with `MoveTo` that are still to be drawn as one.
    std::vector<QPoint> lines_;
};

} // namespace GUI
