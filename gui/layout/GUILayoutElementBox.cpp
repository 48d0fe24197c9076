#include "gui/layout/GUILayoutElementBox.h"

#include "Diagnostics/Sink.h"

#include <algorithm>
#include <array>

namespace GUI {

using Utilities::Vector;

/// The run of the outermost `SetSize` of a tree of boxes. Answers of children are kept within it alone:
/// whatever may change between two passes, an element's own override included, is asked for anew.
class GUILayoutElementBox::Pass {
public:
    Pass() {
        if (depth++ == 0) AdvanceLayoutRevision();
    }
    ~Pass() { --depth; }
    Pass(Pass const&) = delete;
    Pass& operator=(Pass const&) = delete;

    static bool IsRunning() { return depth != 0; }

private:
    static int depth;
};

int GUILayoutElementBox::Pass::depth = 0;

namespace {

/// Room for the sizes of one box: on the stack for as many children as boxes have.
class SizeBuffer {
public:
    explicit SizeBuffer(std::size_t count) : count_(count) {
        if (count > few_.size()) many_.resize(count);
    }
    std::span<float> Get() { return {many_.empty() ? few_.data() : many_.data(), count_}; }

private:
    std::size_t count_;
    std::array<float, 48> few_;
    std::vector<float> many_;
};

} // namespace

void GUILayoutElementBox::SetPosition(unsigned long x, unsigned long y) {
    GUIElement::SetPosition(x, y);
    positionX_ = static_cast<std::uint32_t>(x);
    positionY_ = static_cast<std::uint32_t>(y);
}

void GUILayoutElementBox::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                                  GUIElement const& /*element*/) const {
    PassOnPaintWindowDecorators(context);
}

void GUILayoutElementBox::InitializeBox(PlatformIndependentWindowID const& parent,
                                        DescriptionTree const& description, DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    try {
        CreateChildren(parent, description, GetDataSource());
    } catch (...) {
        Diagnostics::DropException("GUILayoutElementBox::Initialize");
    }
}

template <GUILayoutElementBox::Axis axis> void GUILayoutElementBox::AskChildren() {
    range_ = {};
    limits_.assign(GetChildrenList().GetSize(), {});
    // The counter is 16 bits wide by contract: a box of more children begins again at its first entry.
    std::uint16_t child = 0;
    for (auto it = GetChildrenList().Begin(); it.IsValid(); ++it, ++child) {
        GUIElement* const element = it.Current().Get();
        if (!element) break;
        unsigned long minimalWidth = 0;
        unsigned long maximalWidth = 0;
        unsigned long minimalHeight = 0;
        unsigned long maximalHeight = 0;
        element->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
        SizeRange const range{
            static_cast<std::uint32_t>(minimalWidth), static_cast<std::uint32_t>(maximalWidth),
            static_cast<std::uint32_t>(minimalHeight), static_cast<std::uint32_t>(maximalHeight)};
        if constexpr (axis == Axis::Horizontal) {
            range_.minimalWidth += range.minimalWidth;
            range_.maximalWidth += range.maximalWidth;
            range_.minimalHeight = std::max(range_.minimalHeight, range.minimalHeight);
            range_.maximalHeight = std::max(range_.maximalHeight, range.maximalHeight);
            limits_[child] = {static_cast<float>(range.minimalWidth), static_cast<float>(range.maximalWidth)};
        } else {
            range_.minimalWidth = std::max(range_.minimalWidth, range.minimalWidth);
            range_.maximalWidth = std::max(range_.maximalWidth, range.maximalWidth);
            range_.minimalHeight += range.minimalHeight;
            range_.maximalHeight += range.maximalHeight;
            limits_[child] = {static_cast<float>(range.minimalHeight),
                              static_cast<float>(range.maximalHeight)};
        }
    }
    askedAt_ = Pass::IsRunning() ? GetLayoutRevision() : 0;
}

template <GUILayoutElementBox::Axis axis>
void GUILayoutElementBox::AddUpSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                               unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (!Pass::IsRunning() || askedAt_ != GetLayoutRevision()) AskChildren<axis>();
    minimalWidth = range_.minimalWidth;
    maximalWidth = range_.maximalWidth;
    minimalHeight = range_.minimalHeight;
    maximalHeight = range_.maximalHeight;
}

template <GUILayoutElementBox::Axis axis>
void GUILayoutElementBox::LayOutChildren(std::uint32_t width, std::uint32_t height) {
    constexpr bool horizontal = axis == Axis::Horizontal;
    Pass const pass;
    if (askedAt_ != GetLayoutRevision()) AskChildren<axis>();
    SizeBuffer buffer(limits_.size());
    auto const sizes = buffer.Get();
    ShareSpace(static_cast<float>(horizontal ? width : height), limits_, sizes);

    auto const origin = static_cast<float>(horizontal ? positionX_ : positionY_);
    float offset = 0;
    std::uint16_t child = 0;
    for (auto it = GetChildrenList().Begin(); it.IsValid(); ++it) {
        GUIElement* const element = it.Current().Get();
        // A child that has changed the list during its own layout may have made it longer.
        if (!element || child >= sizes.size()) break;
        std::uint32_t const place = TruncateToPixels(origin + offset);
        std::uint32_t const size = TruncateToPixels(sizes[child]);
        if constexpr (horizontal) {
            element->SetPosition(place, positionY_);
            element->SetSize(size, height);
        } else {
            element->SetPosition(positionX_, place);
            element->SetSize(width, size);
        }
        offset += sizes[child];
        if (++child == 0) offset = 0;
    }
}

template void GUILayoutElementBox::AddUpSizeInformation<GUILayoutElementBox::Axis::Horizontal>(
    unsigned long&, unsigned long&, unsigned long&, unsigned long&);
template void GUILayoutElementBox::AddUpSizeInformation<GUILayoutElementBox::Axis::Vertical>(unsigned long&,
                                                                                             unsigned long&,
                                                                                             unsigned long&,
                                                                                             unsigned long&);
template void GUILayoutElementBox::LayOutChildren<GUILayoutElementBox::Axis::Horizontal>(std::uint32_t,
                                                                                         std::uint32_t);
template void GUILayoutElementBox::LayOutChildren<GUILayoutElementBox::Axis::Vertical>(std::uint32_t,
                                                                                       std::uint32_t);

Vector<float> GUILayoutElementBox::DistributeSizes(float available, Vector<float> const& minima,
                                                   Vector<float> const& maxima) {
    std::vector<ChildLimits> limits(minima.GetSize());
    for (std::uint32_t i = 0; i < minima.GetSize(); ++i) limits[i] = {minima[i], maxima[i]};
    Vector<float> sizes(minima.GetSize());
    ShareSpace(available, limits, {sizes.begin(), sizes.GetSize()});
    return sizes;
}

} // namespace GUI
