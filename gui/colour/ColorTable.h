#pragma once

#include "gui/elements/NumberTable.h"
#include "gui/elements/colour/RGBVector.h"

namespace GUI {

/// Ends the row of headings with those of a screen colour.
inline void AddChannelNames(NumberTable& table) { table.Add("R").Add("G").Add("B").EndRow(); }

/// Ends the row with a screen colour, from 0 to 255.
inline void AddColor(NumberTable& table, RGBVector const& color) {
    for (unsigned char const channel : {color.GetRed(), color.GetGreen(), color.GetBlue()})
        table.Add(static_cast<double>(channel));
    table.EndRow();
}

} // namespace GUI
