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
inline constexpr Attribute axes{
    "Axes", AttributeType::Text, "Zero",
    "\"Edges\": scales along the left and lower edge, a solid grid at round values"};
inline constexpr Attribute difference{"Difference", AttributeType::Flag, "No",
                                      "Curves less that of the standard"};
inline constexpr Attribute band{"Band", AttributeType::Text, "No",
                                "Filled: \"Range\" from the lowest to the highest curve, \"Zero\" from zero"};
inline constexpr Attribute cases{"Cases", AttributeType::Flag, "No",
                                 "Curves stand out: the active one on top, pale ones on pale ground"};
inline constexpr Attribute legend{"Legend", AttributeType::Text, "No",
                                  "Names of the curves: \"Inside\" the plot or \"Beside\" it"};
inline constexpr Attribute cursor{"Cursor", AttributeType::Flag, "No",
                                  "A line at the value under the mouse, with a read-out"};
inline constexpr Attribute valueFormat{"ValueFormat", AttributeType::Text, "Reflectance",
                                       "How values are written: a quantity of the number formats"};
inline constexpr Attribute xUnit{"XUnit", AttributeType::Text, "nm", "Behind positions in read-outs"};
inline constexpr Attribute live{"Live", AttributeType::Flag, "No",
                                "Values come by range: a message that begins behind 1 adds to what is there"};
inline constexpr Attribute xTitle{"XTitle", AttributeType::Text, "", "Title of the X scale, with its unit"};
inline constexpr Attribute yTitle{"YTitle", AttributeType::Text, "", "Title of the Y scale, with its unit"};
inline constexpr Attribute spectrum{"Spectrum", AttributeType::Flag, "No",
                                    "The colours of the visible spectrum under the X scale, which is in nm"};
inline constexpr Attribute labels{
    "Labels", AttributeType::Flag, "No",
    "Name, value and verdict of each bar in words and signs, over its own tolerance"};
inline constexpr Attribute barFormat{"ValueFormat", AttributeType::Text, "Difference",
                                     "How the bars' values are written: a quantity of the number formats"};
inline constexpr Attribute colorBarType{
    "ColorBarType", AttributeType::Text, "No",
    "Coloured bars along the edges: \"ab\", \"L\" or none; \"NoGraph\" crosses out"};

} // namespace GUI::GraphAttributes
