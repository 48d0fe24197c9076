#pragma once

#include "gui/controls/ImageButton.h"

#include <array>
#include <optional>

namespace GUI {

/// An image button with a field of colour in its image.
///
/// Attributes: "ColorPosSizeUp", "ColorPosSizeOver", "ColorPosSizeDown", "ColorPosSizeDisabled" (none: no
/// field; four numbers with commas: x, y, width, height of the field in that state's image). Of the data
/// source at each update: "ButtonColor" (a colour; 100,100,100 until there is one).
class ColorImageButton : public ImageButton {
public:
    static constexpr Attribute fieldUp{"ColorPosSizeUp", AttributeType::Text, "",
                                       "Field of colour when up: x, y, width, height"};
    static constexpr Attribute fieldOver{"ColorPosSizeOver", AttributeType::Text, "",
                                         "The same when the mouse is over it"};
    static constexpr Attribute fieldDown{"ColorPosSizeDown", AttributeType::Text, "", "The same when down"};
    static constexpr Attribute fieldDisabled{"ColorPosSizeDisabled", AttributeType::Text, "",
                                             "The same when disabled"};

    Diagnostics::String GetValueString() override { return "ColorImageButton"; }
    /// A field that isn't four numbers throws `OutOfRangeException`.
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    long OnUpdate(Utilities::Anything const& command) override;

private:
    struct Field {
        short x;
        short y;
        short width;
        short height;
    };
    static std::optional<Field> ReadField(Utilities::String const& text);
    std::optional<Field> const& GetField();

    static constexpr std::size_t stateCount = 4;
    /// In the order of `states` in the source.
    std::array<std::optional<Field>, stateCount> fields_;
    RGBVector color_{100, 100, 100};
};

} // namespace GUI
