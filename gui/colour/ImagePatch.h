#pragma once

#include "gui/colour/ColorGUIElement.h"
#include "gui/elements/NumberTable.h"
#include "gui/elements/drawing/Bitmap.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace GUI {

/// A picture of the image service, fitted into the pane with its own proportions or repeated over it, and a
/// region of it with its mean colour. The region is chosen by dragging the mouse over the picture.
///
/// Attributes: "Image" (none; name of the picture), "Mode" ("Fit": as large as the pane allows, in its
/// middle; "Tile": at its own size from the upper left corner), "Selects" (Yes; whether the mouse chooses a
/// region; in a tiled picture it doesn't).
///
/// Values asked of the data source under the element's name: at each update "Image" (text), "Region" (a map
/// of "Left", "Top", "Right", "Bottom" in pixels of the picture, right and bottom outside; an empty or
/// invalid box takes the region away).
///
/// When the mouse button is released over a new region the data source is told "Region" (such a map; one
/// without an area takes it away) and "MeanColor" (a colour record). The mean is that of the light, so it is
/// taken of linear sRGB values; the mean of the whole picture is what `GetMeanColor` gives without a region.
///
/// The picture is scaled for the screen's own pixels, each the mean of what it covers, and kept until it or
/// the pane's size changes. The region's mark is beside it in two tones.
class ImagePatch : public ColorGUIElement, public SupportsNumberTable {
public:
    /// In pixels of the picture; right and bottom are outside.
    struct Box {
        long left = 0;
        long top = 0;
        long right = 0;
        long bottom = 0;

        bool IsEmpty() const { return right <= left || bottom <= top; }
        bool operator==(Box const&) const = default;
    };

    Diagnostics::String GetValueString() override { return "ImagePatch"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaint(PlatformIndependentDeviceContext& context) override;
    bool OnLeftButtonDown(KeyState keyState, long x, long y) override;
    bool OnMouseMove(long x, long y) override;
    bool OnLeftButtonUp(long x, long y) override;
    /// "Region" where the region is.
    Utilities::String GetRegion(unsigned long x, unsigned long y) override;

    std::optional<Box> const& GetBox() const { return region_; }
    /// Nothing without a picture.
    std::optional<RGBVector> GetMeanColor() const;
    /// The mean colour.
    Utilities::String GetNumberTable() override;

private:
    struct Place {
        double left = 0;
        double top = 0;
        /// Pixels of the pane a pixel of the picture.
        double scale = 1;
    };

    bool IsTiled() const { return mode_ == "Tile"; }
    void Load();
    std::uint32_t At(long column, long row) const;
    Place GetPlace() const;
    /// The picture's pixel under a point of the pane, or the nearest one.
    std::pair<long, long> ToPicture(long x, long y) const;
    void Render(std::size_t width, std::size_t height, double scale);
    void RenderTiles(double scale);
    void RenderFitted(double scale);
    void DrawMark(PlatformIndependentDeviceContext& context) const;
    static Utilities::Anything ToRecord(Box const& box);
    std::optional<Box> FromRecord(Utilities::Anything const& record) const;

    Utilities::String name_;
    Utilities::String mode_;
    bool selects_ = true;
    /// The picture by rows, 0xRRGGBB.
    std::vector<std::uint32_t> source_;
    long width_ = 0;
    long height_ = 0;
    std::optional<Box> region_;
    /// Where the mouse was pressed, in the picture.
    std::optional<std::pair<long, long>> anchor_;

    std::vector<std::uint32_t> rendered_;
    std::size_t renderedWidth_ = 0;
    std::size_t renderedHeight_ = 0;
};

} // namespace GUI
