#pragma once

#include "gui/elements/Pane.h"

#include <cstdint>

namespace GUI {

/// Says why a place shows no data: it is empty, something failed, or work is going on.
///
/// Attributes: "Icon" (none; an image over the title of an empty place), and those of `Pane`.
///
/// Of the data source at each update: "Notice" ("Empty", "Error", "Busy"; anything else draws nothing but the
/// background), "Title" and "Text" (several lines are told apart by line feeds), "Hint" (at the right of a
/// busy title, such as "Esc stops"), "Progress" (0 to 1; any other number for unknown). Texts are shown as
/// they are.
///
/// The cross of an error fires "OnClose" with the element name; a click on it by key does so too.
class Notice : public Pane {
public:
    static constexpr Attribute icon{"Icon", AttributeType::ImageName, "",
                                    "Image over an empty place's title"};
    static constexpr Attribute attributes[] = {icon};

    Diagnostics::String GetValueString() override { return "Notice"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    Accessible GetAccessible() override;

private:
    enum class Kind : std::uint8_t { None, Empty, Error, Busy };

    void Read();
    void PaintGround(PlatformIndependentDeviceContext& context, short width, short height) const;
    void PaintEmpty(PlatformIndependentDeviceContext& context, short width, short height) const;
    void PaintError(PlatformIndependentDeviceContext& context, short width) const;
    void PaintBusy(PlatformIndependentDeviceContext& context, short width, short height) const;

    Kind kind_ = Kind::None;
    Utilities::String icon_;
    Utilities::String title_;
    Utilities::String text_;
    Utilities::String hint_;
    double progress_ = -1;
};

} // namespace GUI
