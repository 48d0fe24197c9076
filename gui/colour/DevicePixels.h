#pragma once

#include "gui/elements/GUIElement.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

namespace GUI {

/// The pixels of the screen that an element covers, for a picture that is computed for them. An element
/// beyond any screen gets coarser ones, rather than memory for each of its own.
struct DevicePixels {
    /// Pixels of the picture a pixel of the element.
    double scale = 1;
    std::size_t width = 0;
    std::size_t height = 0;

    static DevicePixels Of(GUIElement const& element, PlatformIndependentDeviceContext& context) {
        constexpr double most = 1e7;
        unsigned long elementWidth = 0;
        unsigned long elementHeight = 0;
        element.GetSize(elementWidth, elementHeight);
        DevicePixels pixels;
        pixels.scale = context.GetScale();
        double const area = static_cast<double>(elementWidth) * static_cast<double>(elementHeight) *
                            pixels.scale * pixels.scale;
        if (area > most) pixels.scale *= std::sqrt(most / area);
        auto const scaled = [&pixels](unsigned long size) {
            return static_cast<std::size_t>(std::lround(pixels.scale * static_cast<double>(size)));
        };
        pixels.width = scaled(elementWidth);
        pixels.height = scaled(elementHeight);
        return pixels;
    }
    bool IsEmpty() const { return width == 0 || height == 0; }

    /// The picture, over the whole element.
    void Draw(PlatformIndependentDeviceContext& context, GUIElement const& element,
              std::span<std::uint32_t const> colors) const {
        unsigned long elementWidth = 0;
        unsigned long elementHeight = 0;
        element.GetSize(elementWidth, elementHeight);
        context.DrawPixels(0, 0, static_cast<short>(elementWidth), static_cast<short>(elementHeight), colors,
                           static_cast<long>(width));
    }
};

} // namespace GUI
