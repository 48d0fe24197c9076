#include "gui/layout/GUILayoutElementBox.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/LayoutScope.h"

#include <algorithm>
#include <array>
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
    seamless_ = AttributeReader(description).Flag(seamless);
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
    auto const available = static_cast<float>(horizontal ? width : height);
    auto const origin = static_cast<float>(horizontal ? positionX_ : positionY_);
    // Places the children one by one; `at` gives where the i-th begins and how long it is.
    auto const place = [&](auto at) {
        GUIElement* const* elements = elements_.data();
        std::size_t count = std::min(elements_.size(), limits_.size());
        for (std::size_t i = 0; i < count; ++i) {
            auto const [begin, length] = at(i);
            GUIElement& element = *elements[i];
            if constexpr (horizontal) {
                element.SetPosition(begin, positionY_);
                element.SetSize(length, height);
            } else {
                element.SetPosition(positionX_, begin);
                element.SetSize(width, length);
            }
            // A child may change the list of its siblings while it is laid out.
            if (collectedAt_ == GetChildrenRevision()) continue;
            CollectChildren();
            elements = elements_.data();
            count = std::min(elements_.size(), limits_.size());
        }
    };

    // As a rule all fits into 31 bits with room for what the additions round.
    float evenSize = 0;
    constexpr float farEnd = 2e9F;
    if (!seamless_ && ShareEvenly(available, summary_, evenSize) && evenSize >= 0 &&
        origin + evenSize * static_cast<float>(limits_.size()) < farEnd) {
        std::uint32_t const length = TruncateToPixels(evenSize);
        float offset = 0;
        place([&](std::size_t) {
            auto const begin = static_cast<std::uint32_t>(static_cast<std::int32_t>(origin + offset));
            offset += evenSize;
            return std::pair(begin, length);
        });
        return;
    }
    Scratch<float> sizes(limits_.size());
    Scratch<float> begins(limits_.size());
    ShareSpace(available, limits_, summary_.weightSum, sizes.Get());
    float offset = 0;
    for (std::size_t i = 0; i < limits_.size(); ++i) {
        begins.Get()[i] = origin + offset;
        offset += sizes.Get()[i];
    }
    // The counter of children is 16 bits wide by contract: it begins again. Both ends are cut to whole
    // pixels, each on its own, so that positions carry no error from child to child.
    place([&](std::size_t i) {
        std::size_t const child = i % counterRange;
        float const begin = begins.Get()[child];
        float const size = sizes.Get()[child];
        std::uint32_t const first = TruncateToPixels(begin);
        return std::pair(first, seamless_ ? TruncateToPixels(begin + size) - first : TruncateToPixels(size));
    });
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
