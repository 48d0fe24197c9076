#pragma once

#include <algorithm>

namespace ColourDesk {

/// Which of a document's samples are on screen. More than a page can show are shown page by page, so that a
/// patch stays large enough to be seen and clicked however many samples a file holds.
class SamplePages {
public:
    /// 70 columns by 40 rows: patches of at least 8 by 8 pixels in the window's smallest size.
    static constexpr long capacity = 2800;

    explicit SamplePages(long count) : count_(count) {}

    /// Of the samples in all.
    long GetCount() const { return count_; }
    /// Index of the first sample on the page.
    long GetFirst() const { return first_; }
    /// Samples on the page.
    long GetSize() const { return std::min(count_ - first_, capacity); }
    /// Of the largest page: places for so many samples are there.
    long GetPlaces() const { return std::min(count_, capacity); }
    bool AreMany() const { return count_ > capacity; }

    /// Shows the page that a sample is on; false if it is shown already.
    bool Show(long sample) {
        long const first = std::clamp(sample, 0L, std::max(count_ - 1, 0L)) / capacity * capacity;
        if (first == first_) return false;
        first_ = first;
        return true;
    }
    bool IsShown(long sample) const { return sample >= first_ && sample < first_ + GetSize(); }

private:
    long count_;
    long first_ = 0;
};

} // namespace ColourDesk
