#include "gui/platform/EllipseFigures_PC.h"

#include <QImage>
#include <QPainter>
#include <cstdint>
#include <unordered_map>

namespace GUI {

namespace {

constexpr QRgb empty = 0xff000000;
constexpr QRgb pen = 0xff0000ff;
constexpr QRgb brush = 0xffff0000;

std::vector<FigureSpan> Render(int width, int height, int penWidth, bool filled) {
    int const margin = penWidth;
    QImage image(width + 2 * margin, height + 2 * margin, QImage::Format_RGB32);
    image.fill(empty);
    QPainter painter(&image);
    if (penWidth == 0) {
        painter.setPen(Qt::NoPen);
    } else {
        QPen thePen(QColor::fromRgb(pen), penWidth == 1 ? 0 : penWidth);
        painter.setPen(thePen);
    }
    if (filled) painter.setBrush(QColor::fromRgb(brush));
    int const inset = penWidth == 0 ? 0 : 1;
    painter.drawEllipse(margin, margin, width - inset, height - inset);
    painter.end();

    std::vector<FigureSpan> spans;
    for (int y = 0; y < image.height(); ++y) {
        auto const* const row = reinterpret_cast<QRgb const*>(image.constScanLine(y));
        for (int x = 0; x < image.width();) {
            int const begin = x;
            while (x < image.width() && row[x] == row[begin]) ++x;
            if (row[begin] == empty) continue;
            spans.push_back({static_cast<std::int16_t>(y - margin), static_cast<std::int16_t>(begin - margin),
                             static_cast<std::int16_t>(x - margin), row[begin] == pen});
        }
    }
    return spans;
}

} // namespace

std::vector<FigureSpan> const* EllipseFigure(int width, int height, int penWidth, bool filled) {
    if (width > maximalFigureSize || height > maximalFigureSize || penWidth > 7) return nullptr;
    static std::unordered_map<std::uint32_t, std::vector<FigureSpan>> figures;
    // Spots come in runs of one size.
    static std::uint32_t lastKey = ~0U;
    static std::vector<FigureSpan> const* last = nullptr;
    auto const key = static_cast<std::uint32_t>(width) << 12U | static_cast<std::uint32_t>(height) << 4U |
                     static_cast<std::uint32_t>(penWidth) << 1U | static_cast<std::uint32_t>(filled);
    if (key == lastKey) return last;
    auto found = figures.find(key);
    if (found == figures.end()) found = figures.emplace(key, Render(width, height, penWidth, filled)).first;
    lastKey = key;
    return last = &found->second;
}

} // namespace GUI
