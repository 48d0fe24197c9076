#pragma once

#include "gui/elements/Pane.h"

namespace GUI {

/// The panel that a `FrameBox` with a title, a condition or a surround shows behind its child: a ground with
/// thin rounded edges, the title at the left of its head, the condition of the numbers on it at the right.
///
/// Of the data source at each update, under the frame's "ElementName": "Title" and "Condition" (texts, shown
/// as they are). A condition that has no room beside the title is left out of the picture, and is in the tool
/// tip all the same.
class FramePanel : public Pane {
public:
    static constexpr Attribute title{"Title", AttributeType::Text, "",
                                     "Title in the head of the panel; a key of the language service"};
    static constexpr Attribute condition{"Condition", AttributeType::Text, "",
                                         "At the right of the head; a key too"};
    static constexpr Attribute surround{
        "Surround", AttributeType::Flag, "No",
        "Whether the panel is the surround of measured colours instead of a ground for charts"};
    /// Whether a frame of that description has a panel.
    static bool IsIn(DescriptionTree const& description);

    Diagnostics::String GetValueString() override { return "FramePanel"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    Utilities::String GetToolTipText(unsigned short x, unsigned short y) override;
    Accessible GetAccessible() override;

private:
    void ReadTexts();

    Utilities::String titleKey_;
    Utilities::String conditionKey_;
    Utilities::String title_;
    Utilities::String condition_;
    bool surround_ = false;
};

} // namespace GUI
