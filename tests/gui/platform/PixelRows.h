#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <QImage>
#include <functional>
#include <string>
#include <vector>

/// Pictures as text, for the tests of drawing.
namespace TestSupport {

using Drawing = std::function<void(GUI::PlatformIndependentDeviceContext&)>;
using Rows = std::vector<std::string>;

inline GUI::RGBVector const penColor(200, 0, 0);
inline GUI::RGBVector const brushColor(0, 0, 200);

/// '#' is the pen, '+' the brush, '.' what was there before, '?' anything else.
inline Rows ToRows(QImage const& image) {
    Rows rows;
    for (int y = 0; y < image.height(); ++y) {
        std::string row;
        for (int x = 0; x < image.width(); ++x) {
            QRgb const pixel = image.pixel(x, y);
            row += pixel == 0xffffffff        ? '.'
                   : pixel == qRgb(200, 0, 0) ? '#'
                   : pixel == qRgb(0, 0, 200) ? '+'
                                              : '?';
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace TestSupport
