#pragma once

#include "gui/elements/PaintedPart.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"
#include "gui/platform/DeviceGrid.h"
#include "gui/platform/PainterSurface_PC.h"
#include "gui/platform/RasterSurface.h"

#include <QFont>
#include <QPainter>
#include <QRegion>
#include <QTransform>
#include <optional>
#include <span>
#include <vector>

class QImage;

namespace GUI {

/// A part of a surface, in the surface's logical pixels.
struct SurfacePart {
    /// Where (0, 0) of the drawing is.
    QPoint origin;
    /// Not relative to the origin. May have several rectangles; an empty one lets nothing through.
    QRegion clip;
};

/// The memory behind a surface as `QPaintDevice::redirected` gives it inside a paint: an image, and which
/// place of the surface the image's first pixel shows. Without an image, or with one that hasn't 32 bits a
/// pixel, the painter draws.
struct SurfaceBacking {
    QImage* image = nullptr;
    QPoint offset;
};

/// The device context around a platform paint device, made on the stack for the length of one paint.
///
/// It draws on a part of a surface: coordinates are relative to the part's origin, and nothing is drawn
/// outside its clip. Edges and pens of the device's own pixels are placed by `DeviceGrid`: of boxes, lines
/// parallel to an axis, ellipses and polygons every pixel is exact on every screen, at every scale. Thin
/// figures and boxes are drawn straight into the memory behind the surface where it can be reached, and
/// with the same pixels by the platform's painter elsewhere. On surfaces without pixels (recorded pictures,
/// printers) the painter draws lines and curves as such.
class PlatformIndependentDeviceContext_PC : public PlatformIndependentDeviceContext, public PaintedPart {
public:
    /// All of a surface.
    explicit PlatformIndependentDeviceContext_PC(QPaintDevice& surface);
    PlatformIndependentDeviceContext_PC(QPaintDevice& surface, SurfacePart const& part,
                                        SurfaceBacking const& backing = {});
    /// Draws through a painter that is already active, and leaves its state as it was. The part's
    /// coordinates are the painter's. What the painter is clipped to is not known where the memory is
    /// written directly: with a backing the part's clip alone limits the drawing.
    PlatformIndependentDeviceContext_PC(QPainter& painter, SurfacePart const& part,
                                        SurfaceBacking const& backing = {});
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
    void SetSmooth(bool smooth) override;
    void DrawPixels(short left, short top, short right, short bottom, std::span<std::uint32_t const> colors,
                    long width) override;
    double GetScale() override;
    std::optional<PaneBox> GetPaintedBox() const override;

    /// For `_PC` files that draw what has no operation of its own, in the part's coordinates and clip. What
    /// was begun is finished first. The painter may be left in any state.
    QPainter& GetPainter();
    /// Whether anything was drawn, or the painter was asked for.
    bool HasDrawn() const { return drawn_; }

private:
    /// The coordinates that the painter is set to.
    enum class Space : std::uint8_t { Unknown, Part, Device };

    bool HasPen() const { return penStyle_ != noPen; }
    bool IsThinPen() const { return penWidth_ <= 1; }
    int PenSize() const { return grid_.Thickness(penWidth_); }
    /// Whether places are pixels of the device; else they are the surface's coordinates.
    bool HasGrid() { return Pixels() != nullptr; }
    DashPattern NewPattern() const;

    void SetBacking(SurfaceBacking const& backing);
    void StartPainter();
    QPainter& Painter(Space space);
    /// Null where there are no pixels.
    PixelSurface* Pixels();

    void FlushLines();
    void DrawLines(std::span<QPoint const> points);
    /// With the pen as it is.
    void DrawStroke(std::span<QPoint const> points);
    /// A solid line parallel to an axis.
    void DrawWideLine(PixelSurface& pixels, QPoint from, QPoint to);
    void DrawWideLines(PixelSurface& pixels, std::span<QPoint const> points);
    void Ellipse(short left, short top, short right, short bottom, bool filled);
    void Polygon(Points const& points, bool filled);

    /// @name The same with antialiasing
    /// False if that is not asked for, or the platform's painter has to do it.
    /// @{
    bool IsSmooth();
    bool DrawSmoothLines(std::span<QPoint const> points);
    bool DrawSmoothEllipse(short left, short top, short right, short bottom, bool filled);
    bool DrawSmoothArc(QPoint center, short radius, double startAngle, double sweepAngle);
    bool FillSmoothPie(QPoint center, short radius, double startAngle, double sweepAngle);
    bool FillSmoothPolygon(std::span<QPoint const> corners);
    /// In pixels of the device.
    double PenBreadth() const;
    SmoothPoint OnDevice(QPoint at) const;
    /// The middle of the pen at a place.
    SmoothPoint PenMiddleOnDevice(QPoint at) const;
    /// @}

    /// The box of a rectangle with its outline, in pixels of the device.
    PixelBox OuterBox(short left, short top, short right, short bottom) const;

    /// The painter with pen and brush, for what it draws by itself; and the places for it: where the middle
    /// of the pen goes at a place, and the box of a figure from its first to its last row and column.
    QPainter& PainterWithPen(Qt::PenJoinStyle joins, bool filled);
    QPointF PenMiddle(QPoint at);
    QRectF FigureBox(QPoint topLeft, QPoint last);
    /// The painter with (x, y) as its origin.
    QPainter& PainterAt(short x, short y);
    QFont const& GetFont();

    bool drawn_ = false;
    bool smooth_ = false;
    QPaintDevice* device_;
    std::optional<SurfacePart> part_;
    DeviceGrid grid_;
    std::optional<RasterSurface> raster_;
    /// Made when it is needed: a pane of plain figures does without.
    std::optional<QPainter> ownPainter_;
    QPainter* painter_ = nullptr;
    bool painterStarted_ = false;
    /// Whether the painter draws pixels that the grid can be laid over.
    bool painterHasPixels_ = false;
    std::optional<PainterSurface> painterSurface_;
    Space space_ = Space::Unknown;
    QTransform toPart_;
    QTransform toDevice_;
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
