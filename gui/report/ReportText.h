#pragma once

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

#include <vector>

namespace GUI {

/// How a text of a report looks. Sizes are pixels of 96 an inch.
struct ReportFont {
    Utilities::String face = "Noto Sans";
    short size = 14;
    bool isBold = false;
    RGBVector color{ThemeRole::Ink, RGBVector()};

    void Use(PlatformIndependentDeviceContext& context) const;
    /// Of a line with what separates it from the next one.
    long GetLineHeight() const { return size + size / 2; }
};

long WidthOf(PlatformIndependentDeviceContext& context, Utilities::String const& text);

/// The lines of a text that fit a width in the selected font. It breaks at blanks and where the text does,
/// and within words that are too long. Never without a line.
std::vector<Utilities::String> WrapText(PlatformIndependentDeviceContext& context,
                                        Utilities::String const& text, long width);

/// The text, cut at the end with an ellipsis where it is wider than that in the selected font.
Utilities::String ElideText(PlatformIndependentDeviceContext& context, Utilities::String const& text,
                            long width);

} // namespace GUI
