#include "gui/grid/model/GridOrder.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace GUI {

GridOrder::GridOrder(Lines lines) { Take(std::move(lines)); }

GridOrder::Lines GridOrder::Copy() const {
    if (lines_) return *lines_;
    Lines lines(static_cast<std::size_t>(count_));
    std::iota(lines.begin(), lines.end(), Line{1});
    return lines;
}

void GridOrder::Take(Lines lines) {
    count_ = static_cast<long>(lines.size());
    for (Line const line : lines) next_ = std::max(next_, line + 1);
    lines_ = std::make_shared<Lines const>(std::move(lines));
    places_ = nullptr;
}

void GridOrder::SetCount(long count) {
    count = std::max(count, 0L);
    if (!lines_) {
        count_ = count;
        next_ = std::max(next_, static_cast<Line>(count + 1));
        return;
    }
    if (count == count_) return;
    Lines lines = Copy();
    long const kept = std::min(count, count_);
    lines.resize(static_cast<std::size_t>(count));
    std::iota(lines.begin() + kept, lines.end(), next_);
    Take(std::move(lines));
}

long GridOrder::GetPlace(Line line) const {
    if (!lines_) return line <= static_cast<Line>(count_) ? static_cast<long>(line) : 0;
    if (!places_) {
        auto places = std::make_shared<std::vector<std::uint32_t>>(next_, 0U);
        std::uint32_t place = 0;
        for (Line const each : *lines_) (*places)[each] = ++place;
        places_ = std::move(places);
    }
    return line < places_->size() ? (*places_)[line] : 0;
}

void GridOrder::Insert(long at, long count) {
    if (at < 1 || at > count_ + 1 || count <= 0) return;
    Lines lines = Copy();
    Lines added(static_cast<std::size_t>(count));
    std::iota(added.begin(), added.end(), next_);
    lines.insert(lines.begin() + at - 1, added.begin(), added.end());
    Take(std::move(lines));
}

void GridOrder::Remove(long at, long count) {
    count = std::min(count, count_ - at + 1);
    if (at < 1 || count <= 0) return;
    Lines lines = Copy();
    lines.erase(lines.begin() + at - 1, lines.begin() + at - 1 + count);
    Line const next = next_;
    Take(std::move(lines));
    next_ = next;
}

void GridOrder::Rearrange(long first, Lines const& lines) {
    Lines all = Copy();
    std::copy(lines.begin(), lines.end(), all.begin() + first - 1);
    Take(std::move(all));
}

} // namespace GUI
