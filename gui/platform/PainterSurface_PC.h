#pragma once

#include "gui/platform/PixelSurface.h"

#include <QPainter>

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

private:
    QPainter* painter_;
};

} // namespace GUI
