#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/elements/colour/RGBVector.h"

#include <vector>

namespace GUI {

/// A colour with its place in a plane of values.
struct ColorSpot {
    RGBVector color;
    double x = 0;
    double y = 0;
};

/// Asks the element's data source for spots: under the element name "Patch" with each number from 0 on
/// "Data", a map of "Color" (100,100,100), "XValue" (0) and "YValue" (0). Ends early if an answer releases
/// the element.
std::vector<ColorSpot> ReadColorSpots(GUIElement& element, long count);

/// Places and colours, a spot a row.
Utilities::String WriteColorSpots(std::vector<ColorSpot> const& spots);

} // namespace GUI
