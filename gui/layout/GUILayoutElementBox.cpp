#include "gui/layout/GUILayoutElementBox.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/LayoutScope.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

namespace GUI {

using Utilities::Vector;

/// The run of the outermost `SetSize` of a tree of boxes. Answers of children are kept within it alone:
/// whatever may change between two passes, an element's own override included, is asked for again.
class GUILayoutElementBox::Pass {
public:
    Pass() {
        if (depth++ != 0) return;
        layout_.emplace();
        AdvanceLayoutRevision();
    }
    ~Pass() { --depth; }
    Pass(Pass const&) = delete;
    Pass& operator=(Pass const&) = delete;

    static bool IsRunning() { return depth != 0; }

private:
    static int depth;
    /// Of the outermost pass: the boxes in it needn't say again that a layout runs.
    std::optional<LayoutScope> layout_;
};

int GUILayoutElementBox::Pass::depth = 0;

namespace {

/// An array for one layout of one box: on the stack for as many children as boxes have.
template <class T> class Scratch {
public:
    explicit Scratch(std::size_t count) : count_(count) {
        if (count > few_.size()) many_.resize(count);
    }
    std::span<T> Get() { return {many_.empty() ? few_.data() : many_.data(), count_}; }

private:
    std::size_t count_;
    std::array<T, 32> few_;
    std::vector<T> many_;
};

/// As many children as their counter of 16 bits tells apart.
constexpr std::size_t counterRange = 0x10000;

/// A minimum and a maximum of 32 bits each in one word, so that two answers are compared at once.
std::uint64_t Pack(unsigned long minimum, unsigned long maximum) {
    return static_cast<std::uint32_t>(minimum) | static_cast<std::uint64_t>(maximum) << 32U;
}
std::uint32_t Minimum(std::uint64_t packed) { return static_cast<std::uint32_t>(packed); }
std::uint32_t Maximum(std::uint64_t packed) { return static_cast<std::uint32_t>(packed >> 32U); }

/// Where a child begins along the axis, and how long it is. One word, since it is read as one: two
/// stores that one load spans would have to reach the cache first.
class Stretch {
public:
    Stretch() = default;
    Stretch(std::uint32_t begin, std::uint32_t length) : word_(Pack(begin, length)) {}
    std::uint32_t GetBegin() const { return Minimum(word_); }
    std::uint32_t GetLength() const { return Maximum(word_); }

private:
    std::uint64_t word_;
};

/// Cuts both to whole pixels, each on its own, so that positions carry no error from child to child.
void CutToPixels(float origin, std::span<float const> sizes, std::span<Stretch> stretches) {
    float offset = 0;
    // Neighbours mostly have one size.
    std::uint32_t bits = 0;
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        auto const ownBits = std::bit_cast<std::uint32_t>(sizes[i]);
        if (ownBits != bits) {
            bits = ownBits;
            length = TruncateToPixels(sizes[i]);
        }
        stretches[i] = {TruncateToPixels(origin + offset), length};
        offset += sizes[i];
    }
    // The counter of children is 16 bits wide by contract: it begins again.
    for (std::size_t i = counterRange; i < stretches.size(); ++i) stretches[i] = stretches[i - counterRange];
}

/// The same for children of one size.
void CutEvenly(float origin, float size, std::span<Stretch> stretches) {
    std::uint32_t const length = TruncateToPixels(size);
    float offset = 0;
    // As a rule all fits into 31 bits with room for what the additions round, and needs no test each.
    constexpr float farEnd = 2e9F;
    if (size >= 0 && origin + size * static_cast<float>(stretches.size()) < farEnd) {
        for (Stretch& stretch : stretches) {
            stretch = {static_cast<std::uint32_t>(static_cast<std::int32_t>(origin + offset)), length};
            offset += size;
        }
        return;
    }
    for (Stretch& stretch : stretches) {
        stretch = {TruncateToPixels(origin + offset), length};
        offset += size;
    }
}

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

void GUILayoutElementBox::Initialize(PlatformIndependentWindowID const& parent,
                                     DescriptionTree const& description, DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    try {
        CreateChildren(parent, description, GetDataSource());
    } catch (...) {
        Diagnostics::DropException("GUILayoutElementBox::Initialize");
    }
}

void GUILayoutElementBox::CollectChildren() {
    elements_.clear();
    for (auto it = GetChildrenList().Begin(); it.IsValid() && !it.Current().IsNull(); ++it)
        elements_.push_back(it.Current().Get());
    ranges_.assign(elements_.size(), {});
    isAddedUp_ = false;
    collectedAt_ = GetChildrenRevision();
}

template <GUILayoutElementBox::Axis axis> void GUILayoutElementBox::AskChildren() {
    if (collectedAt_ != GetChildrenRevision()) CollectChildren();
    // What follows from the answers is worked out again only if one of them is another than before.
    unsigned long minimalWidth = 0;
    unsigned long maximalWidth = 0;
    unsigned long minimalHeight = 0;
    unsigned long maximalHeight = 0;
    PackedRange* range = ranges_.data();
    PackedRange* const end = range + ranges_.size();
    for (GUIElement* const* element = elements_.data(); range != end; ++element, ++range) {
        (*element)->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
        std::uint64_t const widths = Pack(minimalWidth, maximalWidth);
        std::uint64_t const heights = Pack(minimalHeight, maximalHeight);
        if (widths == range->widths && heights == range->heights) continue;
        *range = {widths, heights};
        isAddedUp_ = false;
    }
    if (!isAddedUp_) AddUp<axis>();
    askedAt_ = Pass::IsRunning() ? GetLayoutRevision() : 0;
}

template <GUILayoutElementBox::Axis axis> void GUILayoutElementBox::AddUp() {
    limits_.assign(GetChildrenList().GetSize(), {});
    SizeRange sum;
    std::uint64_t weights = 0;
    // The counter is 16 bits wide by contract: a box of more children begins again at its first entry.
    std::uint16_t child = 0;
    for (PackedRange const& packed : ranges_) {
        SizeRange const range{Minimum(packed.widths), Maximum(packed.widths), Minimum(packed.heights),
                              Maximum(packed.heights)};
        if constexpr (axis == Axis::Horizontal) {
            sum.minimalWidth += range.minimalWidth;
            sum.maximalWidth += range.maximalWidth;
            sum.minimalHeight = std::max(sum.minimalHeight, range.minimalHeight);
            sum.maximalHeight = std::max(sum.maximalHeight, range.maximalHeight);
            limits_[child] = {static_cast<float>(range.minimalWidth), static_cast<float>(range.maximalWidth)};
            weights += std::min(range.maximalWidth, largestWeight);
        } else {
            sum.minimalWidth = std::max(sum.minimalWidth, range.minimalWidth);
            sum.maximalWidth = std::max(sum.maximalWidth, range.maximalWidth);
            sum.minimalHeight += range.minimalHeight;
            sum.maximalHeight += range.maximalHeight;
            limits_[child] = {static_cast<float>(range.minimalHeight),
                              static_cast<float>(range.maximalHeight)};
            weights += std::min(range.maximalHeight, largestWeight);
        }
        ++child;
    }
    sum_ = sum;
    bool const isExact = weights <= exactSum && limits_.size() <= counterRange;
    summary_ = Summarise(limits_, isExact ? static_cast<float>(weights) : SumOfWeights(limits_));
    summary_.areEven = summary_.areEven && limits_.size() <= counterRange;
    isAddedUp_ = true;
}

template <GUILayoutElementBox::Axis axis>
void GUILayoutElementBox::AddUpSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                               unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (!Pass::IsRunning() || askedAt_ != GetLayoutRevision()) AskChildren<axis>();
    minimalWidth = sum_.minimalWidth;
    maximalWidth = sum_.maximalWidth;
    minimalHeight = sum_.minimalHeight;
    maximalHeight = sum_.maximalHeight;
}

template <GUILayoutElementBox::Axis axis>
void GUILayoutElementBox::LayOutChildren(std::uint32_t width, std::uint32_t height) {
    constexpr bool horizontal = axis == Axis::Horizontal;
    Pass const pass;
    if (askedAt_ != GetLayoutRevision()) AskChildren<axis>();
    Scratch<Stretch> scratch(limits_.size());
    auto const stretches = scratch.Get();
    auto const available = static_cast<float>(horizontal ? width : height);
    auto const origin = static_cast<float>(horizontal ? positionX_ : positionY_);
    float evenSize = 0;
    if (ShareEvenly(available, summary_, evenSize)) {
        CutEvenly(origin, evenSize, stretches);
    } else {
        Scratch<float> sizes(limits_.size());
        ShareSpace(available, limits_, summary_.weightSum, sizes.Get());
        CutToPixels(origin, sizes.Get(), stretches);
    }

    GUIElement* const* elements = elements_.data();
    std::size_t count = std::min(elements_.size(), stretches.size());
    for (std::size_t i = 0; i < count; ++i) {
        GUIElement* const element = elements[i];
        Stretch const stretch = stretches[i];
        if constexpr (horizontal) {
            element->SetPosition(stretch.GetBegin(), positionY_);
            element->SetSize(stretch.GetLength(), height);
        } else {
            element->SetPosition(positionX_, stretch.GetBegin());
            element->SetSize(width, stretch.GetLength());
        }
        // A child may change the list of its siblings while it is laid out.
        if (collectedAt_ != GetChildrenRevision()) {
            CollectChildren();
            elements = elements_.data();
            count = std::min(elements_.size(), stretches.size());
        }
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
    ShareSpace(available, limits, SumOfWeights(limits), {sizes.begin(), sizes.GetSize()});
    return sizes;
}

} // namespace GUI
