#pragma once

#include "gui/elements/PaintedPart.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace GUI {

/// A print on a press's control table in miniature: the measure strips with their patches, the measuring
/// fields in the picture, the register marks, and for the zone picture a row of tolerance boxes, one for each
/// ink zone. All places come from the data source in table units, whatever those are. It only draws.
///
/// Attributes: "Type" (1: the sheet with its fields, at one scale for both axes; 2: the zones, each axis at
/// its own scale; any other: strips, fields and marks alone, each axis at its own scale), "FontName" (Arial),
/// "FontSize" (12; points, or pixels below 0) and "Bold" (Yes) of the zones' numbers, "ZonesGraduation" (0;
/// after so many zones a black line and a number, 0 for none). "Frame" and "BackgroundColor" have no effect:
/// the ground is white. Beyond these, each off by default: "Centred" (No; a sheet is in the middle of the
/// pane, else its offset is half its size on the other axis), "SurroundColor" (none; the sheet is white on a
/// ground of this colour), "NeutralMarks" (No; fields and selection are marked in black and white alone),
/// "FieldNumbers" (No; each field's index beside it), "BoxHeight" (8; of the tolerance boxes in pixels),
/// "Signs" (No; zones within tolerance are pale and outlined, others have the sign of their verdict, above a
/// box smaller than 14 pixels).
///
/// Asked of the data source at an update, each used if it is valid: "TableSize" (two longs), "MeasureStrip"
/// (a map of maps with "Coordinates", the longs x1, y1, x2, y2, and "Colors", a vector), "InPictureFields" (a
/// map of maps with "Index", "Color" and "Coordinates", longs by x and y), "RegisterMarks" (a vector of
/// vectors of two longs), "NumberOfZones" (long; at most 32767), "ToleranceStates" (a vector of longs: 0
/// within, 1 warning, 2 out of tolerance); and of the selection "SelectedInPictureFields" (a field's index)
/// and "SelectedPosition" (two longs). An update without a command or with "All" reads everything,
/// "SelectionChanged" the selection alone, "ToleranceStates" the zones' states alone. What can't be read as
/// the type it should have throws, and what was shown before stays.
class TablePicture : public Pane {
public:
    Diagnostics::String GetValueString() override { return "TablePicture"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;

    /// The pixel of a place on the table; (0, 0) for a table without a size. Beyond 16 bits it is the
    /// nearest.
    virtual void TableToPixel(double const& x, double const& y, short& pixelX, short& pixelY);

private:
    using Place = std::pair<long, long>;
    struct Strip {
        Place from;
        Place to;
        std::vector<RGBVector> colors;
    };
    struct Field {
        long index = 0;
        RGBVector color;
        std::vector<Place> places;
    };
    /// All that an update reads.
    struct Table {
        Place size{0, 0};
        std::vector<Strip> strips;
        std::vector<Field> fields;
        /// The corners of a box around all of them, and the origin.
        Place fieldsFrom{0, 0};
        Place fieldsTo{0, 0};
        std::vector<Place> marks;
        long zones = 0;
        std::vector<long> states;
    };
    /// A pixel; as wide as sums of pixels need.
    struct Pixel {
        int x = 0;
        int y = 0;
    };

    static constexpr long sheetType = 1;
    static constexpr long zoneType = 2;

    Table ReadTable();
    std::vector<long> ReadStates();
    /// Repaints the zones whose states aren't what they were.
    void TakeStates(std::vector<long> states);
    /// Where a zone's box, sign and number are.
    std::pair<Pixel, Pixel> GetZoneBox(long zone);
    void ReadSelection();

    bool IsEmpty() const { return table_.size.first <= 0 || table_.size.second <= 0; }
    Pixel At(double x, double y);
    Pixel At(Place const& place) {
        return At(static_cast<double>(place.first), static_cast<double>(place.second));
    }
    double ZoneWidth() const {
        return static_cast<double>(table_.size.first) / static_cast<double>(table_.zones);
    }
    bool IsGraduated(long zone) const { return graduation_ > 0 && zone % graduation_ == 0; }
    /// Of the pane, and what is left of its height over the reserve.
    Pixel GetExtent() const;
    int GetPaperHeight() const;

    void PaintSheet(PlatformIndependentDeviceContext& context);
    void PaintZoneFrame(PlatformIndependentDeviceContext& context);
    void PaintStrip(PlatformIndependentDeviceContext& context, Strip const& strip);
    /// Whether a field may be in the part that is painted.
    bool MeetsFields();
    void PaintField(PlatformIndependentDeviceContext& context, Field const& field);
    void PaintMark(PlatformIndependentDeviceContext& context, Pixel at) const;
    void PaintSelectedPosition(PlatformIndependentDeviceContext& context);
    void PaintZones(PlatformIndependentDeviceContext& context);
    void PaintZoneBox(PlatformIndependentDeviceContext& context, long state, Pixel from, Pixel to) const;
    /// In the box, or above one that is too small. Gives the upper edge of both.
    int PaintZoneSign(PlatformIndependentDeviceContext& context, long state, int middle, int top, int bottom);

    Table table_;
    /// Of the paint that is going on; none for all.
    std::optional<PaneBox> painted_;
    long selectedField_ = -1;
    Place selectedPosition_{0, 0};
    bool hasSelectedPosition_ = false;

    std::int32_t type_ = sheetType;
    std::uint32_t bottomReserve_ = 0;
    Utilities::String fontName_;
    short fontSize_ = 0;
    bool bold_ = true;
    short graduation_ = 0;
    bool centred_ = false;
    bool hasSurround_ = false;
    bool neutralMarks_ = false;
    bool fieldNumbers_ = false;
    short boxHeight_ = 0;
    bool signs_ = false;
    /// Of lines, marks and texts.
    RGBVector ink_;
};

} // namespace GUI
