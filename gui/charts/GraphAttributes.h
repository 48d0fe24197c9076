#pragma once

#include "gui/elements/description/Attributes.h"

/// Keys that a graph reads and that charts hand on to it.
namespace GUI::GraphAttributes {

inline constexpr Attribute lineColor{"LineColor", AttributeType::Colour, "0,0,0 axis",
                                     "Colour of axes, grid and ticks"};
inline constexpr Attribute xScaleDrawLines{"XScaleDrawLines", AttributeType::Number, "0",
                                           "Distance between vertical grid lines; 0 for none"};
inline constexpr Attribute xScaleGraduation{"XScaleGraduation", AttributeType::Number, "0",
                                            "Distance between ticks on the X axis; 0 for none"};
inline constexpr Attribute yScaleDrawLines{"YScaleDrawLines", AttributeType::Number, "0",
                                           "Distance between horizontal grid lines; 0 for none"};
inline constexpr Attribute yScaleGraduation{"YScaleGraduation", AttributeType::Number, "0",
                                            "Distance between ticks on the Y axis; 0 for none"};
inline constexpr Attribute justificationOnX{"JustificationOnX", AttributeType::Flag, "Yes",
                                            "The X scale runs from left to right, not from top to bottom"};
inline constexpr Attribute left{"Left", AttributeType::Number, "0", "Left margin of the plot in pixels"};
inline constexpr Attribute top{"Top", AttributeType::Number, "0", "Upper margin of the plot in pixels"};
inline constexpr Attribute right{"Right", AttributeType::Number, "0", "Right margin of the plot in pixels"};
inline constexpr Attribute bottom{"Bottom", AttributeType::Number, "0", "Lower margin of the plot in pixels"};
inline constexpr Attribute drawAxis{"DrawAxis", AttributeType::Flag, "Yes", "Whether the axes are drawn"};
inline constexpr Attribute thickLineGraduation{"ThickLineGraduation", AttributeType::Number, "0",
                                               "A separating line behind every so many bars; 0 for none"};
inline constexpr Attribute numbersAtLines{"NumbersAtLines", AttributeType::Flag, "No",
                                          "Numbers are at the lines that they belong to"};
inline constexpr Attribute colorBarType{
    "ColorBarType", AttributeType::Text, "No",
    "Coloured bars along the edges: \"ab\", \"L\" or none; \"NoGraph\" crosses out"};

} // namespace GUI::GraphAttributes
