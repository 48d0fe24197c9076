#pragma once

#include "gui/controls/ControlAttributes.h"
#include "gui/elements/GUIElement.h"

namespace GUI {

/// A scroll bar over a number of values, some of which are seen at once.
///
/// Attributes: "JustificationOnX" (Yes: horizontal; "No": vertical), "ToolTipText", "AccessibleName". Of the
/// data source at each update: "NumberOfValues", "NumberOfShowValues", "Position" (long each), "Enabled",
/// "ToolTipText", "Visible". The position is between 0 and the last at which values fill the bar; the bar
/// takes no input while all values are seen.
///
/// When the user has moved it, the data source is told "Position", and then "OnChange" runs with the
/// position.
class ScrollBar : public GUIElement {
public:
    static constexpr Attribute attributes[] = {CommonAttributes::justificationOnX,
                                               ControlAttributes::toolTipText,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "ScrollBar"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// What the data source said last.
    struct Range {
        long values = 0;
        long shown = 0;
        long position = 0;
        /// The largest position.
        long GetLast() const;
    };
    Range const& ReadRange();
    /// The user has moved the bar.
    void OnMoved(long position);

private:
    Range range_;
};

} // namespace GUI
