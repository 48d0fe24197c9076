#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include "gui/platform/Color_PC.h"
#include "gui/platform/EllipseFigure.h"

#include <QImage>
#include <QPaintEngine>
#include <algorithm>
#include <utility>

namespace GUI {

namespace {

/// On and off lengths in pixels.
constexpr int dashOn = 18;
constexpr int dashOff = 6;
constexpr int dotOn = 3;
constexpr int dotOff = 3;

/// Pens beyond this are wider than any surface. It keeps the arithmetic of places within 32 bits.
constexpr long widestPen = 32767;

/// From a place to the middle of its pixel, on surfaces without pixels. A hair less than a half, which
/// would go to the next pixel where a recorded picture is played at its own size.
constexpr double toMiddleOfPixel = 0.49;

int ToCoordinate(long value) {
    constexpr long farthest = 1L << 20;
    return static_cast<int>(std::clamp(value, -farthest, farthest));
}

} // namespace

PlatformIndependentDeviceContext_PC::PlatformIndependentDeviceContext_PC(QPaintDevice& surface)
    : device_(&surface) {}

PlatformIndependentDeviceContext_PC::PlatformIndependentDeviceContext_PC(QPaintDevice& surface,
                                                                         SurfacePart const& part,
                                                                         SurfaceBacking const& backing)
    : device_(&surface), part_(part) {
    SetBacking(backing);
}

PlatformIndependentDeviceContext_PC::PlatformIndependentDeviceContext_PC(QPainter& painter,
                                                                         SurfacePart const& part,
                                                                         SurfaceBacking const& backing)
    : device_(painter.device()), part_(part), painter_(&painter) {
    SetBacking(backing);
}

PlatformIndependentDeviceContext_PC::PlatformIndependentDeviceContext_PC(QImage& image) : device_(&image) {
    SetBacking({&image, QPoint(0, 0)});
}

PlatformIndependentDeviceContext_PC::~PlatformIndependentDeviceContext_PC() {
    FlushLines();
    if (painterStarted_ && !ownPainter_) painter_->restore();
}

void PlatformIndependentDeviceContext_PC::SetBacking(SurfaceBacking const& backing) {
    if (!backing.image) return;
    QImage& image = *backing.image;
    bool const fits = image.format() == QImage::Format_RGB32 ||
                      image.format() == QImage::Format_ARGB32_Premultiplied ||
                      image.format() == QImage::Format_ARGB32;
    if (!fits || image.devicePixelRatio() < 1) return;
    DeviceGrid surface;
    surface.scale = image.devicePixelRatio();
    surface.originX = -backing.offset.x() * surface.scale;
    surface.originY = -backing.offset.y() * surface.scale;
    std::vector<PixelBox> clip;
    if (part_) {
        for (QRect const& box : part_->clip)
            clip.push_back({std::max(surface.X(box.x()), 0), std::max(surface.Y(box.y()), 0),
                            std::min(surface.X(box.x() + box.width()), image.width()),
                            std::min(surface.Y(box.y() + box.height()), image.height())});
    } else {
        clip.push_back({0, 0, image.width(), image.height()});
    }
    grid_ = surface;
    if (part_) {
        grid_.originX += part_->origin.x() * surface.scale;
        grid_.originY += part_->origin.y() * surface.scale;
    }
    // The painter draws into the same memory: the image must not be copied on write.
    auto* const bits = reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(image.constBits()));
    raster_.emplace(bits, image.bytesPerLine() / 4, std::move(clip));
}

void PlatformIndependentDeviceContext_PC::StartPainter() {
    painterStarted_ = drawn_ = true;
    if (painter_)
        painter_->save();
    else
        painter_ = &ownPainter_.emplace(device_);
    QTransform const toDevice = painter_->deviceTransform();
    QTransform const base = painter_->worldTransform();
    painterHasPixels_ = painter_->paintEngine()->type() == QPaintEngine::Raster &&
                        toDevice.type() <= QTransform::TxScale && toDevice.m11() == toDevice.m22() &&
                        toDevice.m11() >= 1;
    toPart_ = base;
    if (painterHasPixels_) {
        toDevice_ = toDevice.inverted() * base;
        painterSurface_.emplace(*painter_);
    }
    if (!raster_ && painterHasPixels_) grid_ = {toDevice.m11(), toDevice.dx(), toDevice.dy()};
    if (!part_) return;
    QPoint const origin = part_->origin;
    toPart_ = QTransform::fromTranslate(origin.x(), origin.y()) * base;
    if (!raster_ && painterHasPixels_) {
        grid_.originX += grid_.scale * origin.x();
        grid_.originY += grid_.scale * origin.y();
    }
    QRegion clip = part_->clip;
    if (painterHasPixels_) {
        painter_->setWorldTransform(toDevice_);
        clip = {};
        for (QRect const& logical : part_->clip) {
            QRect const box = logical.translated(-origin);
            QPoint const corner(grid_.X(box.x()), grid_.Y(box.y()));
            QPoint const end(grid_.X(box.x() + box.width()), grid_.Y(box.y() + box.height()));
            clip += QRect(corner, end - QPoint(1, 1));
        }
    }
    painter_->setClipRegion(clip, Qt::IntersectClip);
}

std::optional<PaneBox> PlatformIndependentDeviceContext_PC::GetPaintedBox() const {
    if (!part_) return {};
    QRect const box = part_->clip.boundingRect().translated(-part_->origin);
    return PaneBox{box.x(), box.y(), long{box.x()} + box.width(), long{box.y()} + box.height()};
}

QPainter& PlatformIndependentDeviceContext_PC::GetPainter() {
    FlushLines();
    QPainter& painter = Painter(Space::Part);
    space_ = Space::Unknown;
    return painter;
}

QPainter& PlatformIndependentDeviceContext_PC::Painter(Space space) {
    if (!painterStarted_) StartPainter();
    if (space_ != space) painter_->setWorldTransform(space == Space::Device ? toDevice_ : toPart_);
    space_ = space;
    return *painter_;
}

PixelSurface* PlatformIndependentDeviceContext_PC::Pixels() {
    drawn_ = true;
    if (raster_) return &*raster_;
    if (!painterStarted_) StartPainter();
    if (!painterHasPixels_) return nullptr;
    Painter(Space::Device);
    return &*painterSurface_;
}

RGBVector PlatformIndependentDeviceContext_PC::SetBackgroundColor(RGBVector const& color) {
    return std::exchange(backgroundColor_, Resolve(color));
}

void PlatformIndependentDeviceContext_PC::SetPen(RGBVector const& color, long width, long style) {
    FlushLines();
    penColor_ = Resolve(color);
    penWidth_ = std::clamp(width, 1L, widestPen);
    penStyle_ = style;
}

void PlatformIndependentDeviceContext_PC::SetSmooth(bool smooth) {
    FlushLines();
    smooth_ = smooth;
}

void PlatformIndependentDeviceContext_PC::SetBrush(RGBVector const& color) { brushColor_ = Resolve(color); }

DashPattern PlatformIndependentDeviceContext_PC::NewPattern() const {
    switch (penStyle_) {
    case dashed:
        return {grid_.Thickness(dashOn), grid_.Thickness(dashOff), 0};
    case dotted:
        return {grid_.Thickness(dotOn), grid_.Thickness(dotOff), 0};
    default:
        return {1, 0, 0};
    }
}

QPainter& PlatformIndependentDeviceContext_PC::PainterWithPen(Qt::PenJoinStyle joins, bool filled) {
    // Curves and wide lines are the platform's; on a surface with pixels it gets whole pixels to draw at.
    QPainter& painter = Painter(HasGrid() ? Space::Device : Space::Part);
    painter.setRenderHint(QPainter::Antialiasing, smooth_);
    painter.setBrush(filled ? QBrush(ToColor(brushColor_)) : QBrush(Qt::NoBrush));
    if (!HasPen()) {
        painter.setPen(Qt::NoPen);
        return painter;
    }
    int const size = HasGrid() ? PenSize() : static_cast<int>(penWidth_);
    // A cosmetic pen is the fast one.
    QPen pen(ToColor(penColor_), HasGrid() && size == 1 ? 0.0 : static_cast<double>(size), Qt::SolidLine,
             Qt::FlatCap, joins);
    DashPattern const pattern = NewPattern();
    if (pattern.off != 0)
        pen.setDashPattern({static_cast<double>(pattern.on) / size, static_cast<double>(pattern.off) / size});
    painter.setPen(pen);
    return painter;
}

QPointF PlatformIndependentDeviceContext_PC::PenMiddle(QPoint at) {
    if (!HasGrid()) {
        double const middle = penWidth_ % 2 != 0 ? toMiddleOfPixel : 0;
        return {at.x() + middle, at.y() + middle};
    }
    // Where the platform puts a pen of an odd size on a pixel, it takes the pixel's corner for its middle.
    long const before = penWidth_ / 2;
    int const half = PenSize() / 2;
    return QPointF(grid_.X(at.x() - before) + half, grid_.Y(at.y() - before) + half);
}

QRectF PlatformIndependentDeviceContext_PC::FigureBox(QPoint topLeft, QPoint last) {
    if (HasPen()) return {PenMiddle(topLeft), PenMiddle(last)};
    if (!HasGrid()) return {QPointF(topLeft), QPointF(last)};
    return {QPointF(grid_.X(topLeft.x()), grid_.Y(topLeft.y())),
            QPointF(grid_.X(last.x()), grid_.Y(last.y()))};
}

PixelBox PlatformIndependentDeviceContext_PC::OuterBox(short left, short top, short right,
                                                       short bottom) const {
    // The pen of the last row and column ends that far behind them.
    long const before = HasPen() ? penWidth_ / 2 : 0;
    long const behind = HasPen() ? (penWidth_ - 1) / 2 : 0;
    return {grid_.X(left - before), grid_.Y(top - before), grid_.X(right + behind), grid_.Y(bottom + behind)};
}

void PlatformIndependentDeviceContext_PC::DrawRectangle(short left, short top, short right, short bottom) {
    FlushLines();
    if (left >= right || top >= bottom || !HasPen()) return;
    PixelSurface* const pixels = Pixels();
    if (pixels && penStyle_ == solid) {
        std::uint32_t const color = ToPixel(penColor_);
        PixelBox const box = OuterBox(left, top, right, bottom);
        int const across = std::min(PenSize(), box.right - box.left);
        int const down = std::min(PenSize(), box.bottom - box.top);
        pixels->FillBox({box.left, box.top, box.right, box.top + down}, color);
        pixels->FillBox({box.left, box.bottom - down, box.right, box.bottom}, color);
        pixels->FillBox({box.left, box.top, box.left + across, box.bottom}, color);
        pixels->FillBox({box.right - across, box.top, box.right, box.bottom}, color);
        return;
    }
    PainterWithPen(Qt::MiterJoin, false).drawRect(FigureBox({left, top}, {right - 1, bottom - 1}));
}

void PlatformIndependentDeviceContext_PC::FillRectangle(short left, short top, short right, short bottom) {
    FlushLines();
    if (left >= right || top >= bottom) return;
    if (PixelSurface* const pixels = Pixels()) {
        bool const isOneColor = penStyle_ == solid && penColor_ == brushColor_;
        pixels->FillBox(isOneColor ? OuterBox(left, top, right, bottom)
                                   : PixelBox{grid_.X(left), grid_.Y(top), grid_.X(right), grid_.Y(bottom)},
                        ToPixel(brushColor_));
        if (isOneColor) return;
    } else
        Painter(Space::Part).fillRect(left, top, right - left, bottom - top, ToColor(brushColor_));
    DrawRectangle(left, top, right, bottom);
}

void PlatformIndependentDeviceContext_PC::Ellipse(short left, short top, short right, short bottom,
                                                  bool filled) {
    FlushLines();
    if (left >= right || top >= bottom || (!filled && !HasPen())) return;
    // There is nothing round about so few pixels, and the platform's painter leaves the box.
    if (right - left <= 2 || bottom - top <= 2) {
        if (filled)
            FillRectangle(left, top, right, bottom);
        else
            DrawRectangle(left, top, right, bottom);
        return;
    }
    if (DrawSmoothEllipse(left, top, right, bottom, filled)) return;
    PixelSurface* const pixels = Pixels();
    if (pixels && !smooth_ && (penStyle_ == solid || !HasPen())) {
        // The odd pixel of an even width is outside on every side.
        long const before = HasPen() ? penWidth_ / 2 : 0;
        PixelBox const box{grid_.X(left - before), grid_.Y(top - before), grid_.X(right + before),
                           grid_.Y(bottom + before)};
        auto const& figure =
            EllipseFigure(box.right - box.left, box.bottom - box.top, HasPen() ? PenSize() : 0, filled);
        pixels->Figure(figure, box.left, box.top, ToPixel(penColor_), ToPixel(brushColor_));
        return;
    }
    int const inset = HasPen() ? 1 : 0;
    PainterWithPen(Qt::RoundJoin, filled)
        .drawEllipse(FigureBox({left, top}, {right - inset, bottom - inset}));
}

void PlatformIndependentDeviceContext_PC::DrawEllipse(short left, short top, short right, short bottom) {
    Ellipse(left, top, right, bottom, false);
}

void PlatformIndependentDeviceContext_PC::FillEllipse(short left, short top, short right, short bottom) {
    Ellipse(left, top, right, bottom, true);
}

void PlatformIndependentDeviceContext_PC::DrawArc(short cx, short cy, short radius, float startAngle,
                                                  float sweepAngle) {
    FlushLines();
    if (radius <= 0 || !HasPen() || DrawSmoothArc({cx, cy}, radius, startAngle, sweepAngle)) return;
    PainterWithPen(Qt::RoundJoin, false)
        .drawArc(FigureBox({cx - radius, cy - radius}, {cx + radius, cy + radius}), qRound(startAngle * 16),
                 qRound(sweepAngle * 16));
}

void PlatformIndependentDeviceContext_PC::FillPie(short cx, short cy, short radius, float startAngle,
                                                  float sweepAngle) {
    FlushLines();
    if (radius <= 0 || FillSmoothPie({cx, cy}, radius, startAngle, sweepAngle)) return;
    QPainter& painter = PainterWithPen(Qt::RoundJoin, true);
    QRectF const box = FigureBox({cx - radius, cy - radius}, {cx + radius, cy + radius});
    // A full circle has no radii to outline.
    if (sweepAngle >= 360 || sweepAngle <= -360)
        painter.drawEllipse(box);
    else
        painter.drawPie(box, qRound(startAngle * 16), qRound(sweepAngle * 16));
}

void PlatformIndependentDeviceContext_PC::Polygon(Points const& points, bool filled) {
    FlushLines();
    if (points.GetSize() == 0) return;
    std::vector<QPoint> corners;
    corners.reserve(points.GetSize() + 1);
    for (auto const& point : points)
        corners.emplace_back(ToCoordinate(point.first), ToCoordinate(point.second));
    PixelSurface* const pixels = Pixels();
    bool const isFilled = filled && FillSmoothPolygon(corners);
    if (pixels && filled && !isFilled && !smooth_) {
        std::vector<PixelPoint> places;
        places.reserve(corners.size());
        for (QPoint const& corner : corners) places.push_back({grid_.X(corner.x()), grid_.Y(corner.y())});
        pixels->Polygon(places, ToPixel(brushColor_));
    }
    if (pixels && !HasPen() && (isFilled || !smooth_)) return;
    if (pixels && IsThinPen() && (isFilled || !filled || !smooth_)) {
        corners.push_back(corners.front());
        DrawLines(corners);
        return;
    }
    QPainter& painter = PainterWithPen(Qt::MiterJoin, filled && (!pixels || smooth_) && !isFilled);
    std::vector<QPointF> middles;
    middles.reserve(corners.size());
    auto const edge = [this](QPoint at) {
        return HasGrid() ? QPointF(grid_.X(at.x()), grid_.Y(at.y())) : QPointF(at);
    };
    for (QPoint const& corner : corners) middles.push_back(HasPen() ? PenMiddle(corner) : edge(corner));
    painter.drawPolygon(middles.data(), static_cast<int>(middles.size()));
}

void PlatformIndependentDeviceContext_PC::DrawPolygon(Points points) { Polygon(points, false); }
void PlatformIndependentDeviceContext_PC::FillPolygon(Points points) { Polygon(points, true); }

} // namespace GUI
