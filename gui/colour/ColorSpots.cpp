#include "gui/colour/ColorSpots.h"

#include "gui/colour/ColorTable.h"

namespace GUI {

using Utilities::Anything;
using Utilities::String;

std::vector<ColorSpot> ReadColorSpots(GUIElement& element, long count) {
    std::vector<ColorSpot> spots;
    CallScope const call(element);
    // Each answer may be the last.
    for (long i = 0; i < count && element.GetDataSource(); ++i) {
        Anything const data = element.GetDataSource()->GetValue(String("Patch") + String(i), "Data");
        ColorSpot spot{RGBVector(100, 100, 100), 0, 0};
        if (data.IsValid()) {
            auto const& record = data.GetMapOfAnythings();
            if (auto const color = record.Find("Color"); color.IsValid())
                spot.color = RGBVector(color.GetValue());
            if (auto const x = record.Find("XValue"); x.IsValid()) spot.x = x.GetValue().GetDouble();
            if (auto const y = record.Find("YValue"); y.IsValid()) spot.y = y.GetValue().GetDouble();
        }
        spots.push_back(spot);
    }
    return spots;
}

String WriteColorSpots(std::vector<ColorSpot> const& spots) {
    NumberTable table;
    table.Add("x").Add("y");
    AddChannelNames(table);
    for (ColorSpot const& spot : spots) {
        table.Add(spot.x).Add(spot.y);
        AddColor(table, spot.color);
    }
    return table.Take();
}

} // namespace GUI
