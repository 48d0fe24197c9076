#pragma once

#include "gui/elements/description/Description.h"
#include "gui/grid/model/CGXStyle.h"

namespace GUI {

/// What a data source says of a cell, as a style with the text as its value.
///
/// Keys, each used if it is there: "Value" (the text; numbers and truth become text), "Background" (a colour;
/// the text is then white or black by contrast unless "FontColor" says otherwise), "FontColor", "FontName",
/// "FontSize", "Bold" ("Yes"), "ReadOnly" ("Yes"), "Number" ("Yes": the text is a number with "." that is
/// shown with the signs of the user's language, at the right), "Alignment" ("Left", "Centre", "Right"),
/// "Control" ("Static", "Edit", "Check" with the texts "Yes" and "No", "Choice", "Patch" with a colour as
/// its text, "Bar", "Button", "Curve" with numbers and ";" between), "Choices" (vector of texts), of a bar or
/// curve "Minimum" and "Maximum", and of a bar "Aim" and "Tolerance". A value that can't be read counts
/// as absent.
CGXStyle ReadGridCell(AttributeMap const& cell);
/// The same for a cell that may also be a bare value.
CGXStyle ReadGridCell(Utilities::Anything const& cell);
/// The text of a value of any simple kind.
Utilities::String ToGridText(Utilities::Anything const& value);
/// The first keys of the above that a style sets.
AttributeMap WriteGridCell(CGXStyle const& style);

} // namespace GUI
