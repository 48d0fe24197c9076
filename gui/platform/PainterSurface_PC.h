#pragma once

#include "gui/platform/PixelSurface.h"

#include <QPainter>
#include <vector>

namespace GUI {

/// Draws the same pixels through the platform's painter, where the memory behind a surface can't be reached.
/// The painter's coordinates must be the device's pixels while this is used.
class PainterSurface final : public PixelSurface {
public:
    explicit PainterSurface(QPainter& painter) : painter_(&painter) {}

    void FillBox(PixelBox box, std::uint32_t color) override {
        painter_->fillRect(box.left, box.top, box.right - box.left, box.bottom - box.top,
                           QColor::fromRgb(color));
    }
    /// At once, since each call of the painter costs more than a small box.
    void FillBoxes(std::span<PixelBox const> boxes, std::uint32_t color) override {
        rectangles_.clear();
        for (PixelBox const& box : boxes)
            rectangles_.emplace_back(box.left, box.top, box.right - box.left, box.bottom - box.top);
        painter_->setPen(Qt::NoPen);
        painter_->setBrush(QColor::fromRgb(color));
        painter_->drawRects(rectangles_.data(), static_cast<int>(rectangles_.size()));
    }

private:
    QPainter* painter_;
    std::vector<QRect> rectangles_;
};

} // namespace GUI
