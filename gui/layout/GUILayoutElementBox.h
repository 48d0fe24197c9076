#pragma once

#include "Utilities/Tools/Vector.h"
#include "gui/elements/GUIElement.h"
#include "gui/layout/EvenSharing.h"

#include <cstdint>
#include <vector>

namespace GUI {

/// Base of the boxes that arrange their children along one axis, in the order of the description. A box
/// draws nothing.
///
/// Attributes: "Seamless" (No): where a child begins and how long it is are each cut to whole pixels, which
/// leaves a pixel between children now and then; with Yes a child ends where the next one begins.
///
/// A parent calls `SetPosition` first and `SetSize` after it: a box places its children in `SetSize`
/// only. Across the axis every child gets the box's full extent, whatever its limits. A child that can't
/// be built ends the construction of the children behind it, without a word but to the diagnostics sink.
///
/// While the outermost `SetSize` runs, an element is asked for its size range once: what a box has added
/// up is kept until that call returns or some size range or list of children changes. Without that the time
/// grew with the square of the depth.
///
/// The sharing itself is `ShareSpace`. What is kept here between layouts makes the layout of a tree of 1000
/// elements faster, of which the benchmark `layout.resize-1000` tells: the array of children 30 %, the sums
/// 20 %, the even sharing 15 %.
class GUILayoutElementBox : public GUIElement {
public:
    static constexpr Attribute seamless{"Seamless", AttributeType::Flag, "No",
                                        "Whether no pixel is left between children"};
    /// Why the attributes of sizes have no effect on a box.
    static constexpr char const* sizesFollow = "No effect: the size range of a box is that of its children";

    Diagnostics::String GetValueString() override { return "GUILayoutElementBox"; }
    /// `GUIElement`'s attributes, then the children.
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;

protected:
    enum class Axis : std::uint8_t { Horizontal, Vertical };

    /// Along the axis the sums of the children's limits, across it the largest of them.
    template <Axis axis>
    void AddUpSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                              unsigned long& minimalHeight, unsigned long& maximalHeight);
    /// Shares the size given by `GUIElement::SetSize` among the children and places them.
    template <Axis axis> void LayOutChildren(std::uint32_t width, std::uint32_t height);

    /// One size for each entry of `minima`; see `ShareSpace`. Throws `OutOfRangeException` "vector index
    /// >= vector size" if there are fewer maxima.
    static Utilities::Vector<float> DistributeSizes(float available, Utilities::Vector<float> const& minima,
                                                    Utilities::Vector<float> const& maxima);

private:
    struct SizeRange {
        std::uint32_t minimalWidth = 0;
        std::uint32_t maximalWidth = 0;
        std::uint32_t minimalHeight = 0;
        std::uint32_t maximalHeight = 0;
    };
    struct PackedRange {
        std::uint64_t widths;
        std::uint64_t heights;
    };
    class Pass;

    template <Axis axis> void AskChildren();
    template <Axis axis> void AddUp();
    void CollectChildren();

    bool seamless_ = false;
    std::uint32_t positionX_ = 0;
    std::uint32_t positionY_ = 0;
    /// The children up to the first null one, and the revision of the list that they were taken from.
    std::vector<GUIElement*> elements_;
    std::uint32_t collectedAt_ = 0;
    /// What they answered last, and the layout revision at which they did; 0 if it must not be kept.
    std::vector<PackedRange> ranges_;
    std::uint64_t askedAt_ = 0;
    /// What follows from the answers.
    bool isAddedUp_ = false;
    SizeRange sum_;
    std::vector<ChildLimits> limits_;
    LimitsSummary summary_;
};

} // namespace GUI
