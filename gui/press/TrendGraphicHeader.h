#pragma once

#include "gui/elements/Pane.h"

#include <array>
#include <vector>

namespace Ostrinda {

/// The table of sheets beside a trend graphic: on each line a running number, a text such as a date, and a
/// mark if the sheet is out of tolerance.
///
/// Attributes, each used if it isn't empty: "BackgroundColor" (255,255,255), "ItemHeight" (20; pixels of a
/// line), "FontName" (Arial), "Columns" (32,70,100: where the numbers begin, the texts begin, and a third
/// place that nothing uses; anything but three numbers is ignored), "ToleranceBackground" (255,0,0),
/// "CounterBackground" and "DateBackground" (255,255,255), colours of three numbers or a role, else ignored,
/// "SeparatorHeight" (1; free pixels between lines, read only if "SeperatorHeight" is there too) and
/// "SelectColor" (0,0,255). Beyond these, off by default: "MarkSelected" (No; the selected sheet's line has a
/// bar in "SelectColor" at its left and bold texts), "FontSize" (0; of texts in the middle of their lines),
/// "Signs" (No; a warning sign in the tolerance column in place of its background), "NewestFirst" (No; the
/// last sheet of the range is on top), "Cells" (none; the right edges of further columns, with commas: the
/// texts are divided at tabulators, and from the second part on stand in those, flush right), "OKColumn"
/// (none; where "OK" stands in a box, else it is at the left).
///
/// Of the data source with the update "Properties": "ElementCounter" (long; above 0 so many lines share the
/// pane's height from the next paint on), "Range" (text "3-5": the first and last sheet, from 1; anything
/// else is ignored), "IndexSelected" (long, from 1; 0 for none). With any other update "Values" (a vector of
/// texts, one for each sheet: a leading blank marks one out of tolerance, and isn't shown). With each
/// "IndexOKSheet" (long, from 1; 0 marks the first one too, below it none).
///
/// Lines are drawn while they end above the pane's foot, so that their cost is that of the visible ones.
class TrendGraphicHeader : public GUI::Pane {
public:
    Diagnostics::String GetValueString() override { return "TrendGraphicHeader"; }
    void Initialize(GUI::PlatformIndependentWindowID const& parent, GUI::DescriptionTree const& description,
                    GUI::DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(GUI::PlatformIndependentDeviceContext& context) override;

private:
    /// One line of a paint.
    struct Row {
        /// From 0; -1 for a line without a sheet.
        long index = -1;
        short top = 0;
        short bottom = 0;
    };

    void ReadDescription(GUI::DescriptionTree const& description);
    void ReadProperties();
    void ReadValues();
    void ReadRange(Utilities::String const& range);

    /// Turns a count of lines into the height of one.
    void SettleItemHeight(long height);
    bool IsOKSheet(long index) const;
    bool IsSelectedSheet(long index) const { return markSelected_ && index + 1 == indexSelected_; }
    void PaintRow(GUI::PlatformIndependentDeviceContext& context, Row const& row, short width) const;
    void PaintTexts(GUI::PlatformIndependentDeviceContext& context, Row const& row,
                    Utilities::String const& text) const;
    short TextTop(GUI::PlatformIndependentDeviceContext& context, Row const& row) const;
    void PaintOK(GUI::PlatformIndependentDeviceContext& context, Row const& row) const;
    void SetFont(GUI::PlatformIndependentDeviceContext& context, bool bold) const;
    short FontHeight() const;

    std::vector<Utilities::String> values_;
    long firstIndex_ = -1;
    long lastIndex_ = -1;
    long indexSelected_ = 0;
    long indexOKSheet_ = -1;
    std::array<long, 3> columns_{32, 70, 100};
    std::vector<long> cells_;
    long okColumn_ = 0;
    GUI::RGBVector toleranceBackground_;
    GUI::RGBVector counterBackground_;
    GUI::RGBVector dateBackground_;
    GUI::RGBVector selectColor_;
    long itemHeight_ = 0;
    long separatorHeight_ = 0;
    Utilities::String fontName_;
    short fontSize_ = 0;
    bool markSelected_ = false;
    bool signs_ = false;
    bool newestFirst_ = false;
};

} // namespace Ostrinda
