#include "gui/grid/model/GridAxis.h"

#include <algorithm>

namespace GUI {

GridAxis::GridAxis(long defaultSize) : runs_{{0, defaultSize, false}}, defaultSize_(defaultSize) {}

bool GridAxis::operator==(GridAxis const& other) const {
    return count_ == other.count_ && defaultSize_ == other.defaultSize_ &&
           std::equal(runs_.begin(), runs_.end(), other.runs_.begin(), other.runs_.end(),
                      [](Run const& left, Run const& right) {
                          return left.first == right.first && left.IsLike(right);
                      });
}

void GridAxis::SetCount(long count) {
    count = std::max(count, 0L);
    if (count > count_) {
        std::size_t const added = Split(count_ + 1);
        runs_.erase(runs_.begin() + static_cast<long>(added) + 1, runs_.end());
        runs_[added] = {count_ + 1, defaultSize_, false};
        valid_ = std::min(valid_, added);
        Join(added, added);
    }
    count_ = count;
}

std::size_t GridAxis::Find(long line) const {
    auto const after = std::upper_bound(runs_.begin(), runs_.end(), line,
                                        [](long at, Run const& run) { return at < run.first; });
    return static_cast<std::size_t>(std::max<long>(after - runs_.begin() - 1, 0));
}

std::size_t GridAxis::Split(long line) {
    std::size_t const found = Find(line);
    if (runs_[found].first == line) return found;
    Run second = runs_[found];
    second.first = line;
    runs_.insert(runs_.begin() + static_cast<long>(found) + 1, second);
    valid_ = std::min(valid_, found + 1);
    return found + 1;
}

void GridAxis::Join(std::size_t first, std::size_t last) {
    std::size_t const begin = first == 0 ? 0 : first - 1;
    std::size_t end = std::min(last + 2, runs_.size());
    for (std::size_t i = begin + 1; i < end;) {
        if (runs_[i - 1].IsLike(runs_[i])) {
            runs_.erase(runs_.begin() + static_cast<long>(i));
            valid_ = std::min(valid_, i);
            --end;
        } else {
            ++i;
        }
    }
}

void GridAxis::UpdateStarts(std::size_t through) const {
    for (; valid_ <= through; ++valid_) {
        if (valid_ == 0) {
            runs_[0].start = 0;
            continue;
        }
        Run const& before = runs_[valid_ - 1];
        runs_[valid_].start = before.start + (runs_[valid_].first - before.first) * before.GetSize();
    }
}

template <class Change> void GridAxis::ChangeRuns(long first, long last, Change change) {
    first = std::max(first, 0L);
    last = std::min(last, count_);
    if (first > last) return;
    Split(last + 1);
    std::size_t const begin = Split(first);
    std::size_t const end = Find(last + 1);
    for (std::size_t i = begin; i < end; ++i) change(runs_[i]);
    valid_ = std::min(valid_, begin + 1);
    Join(begin, end);
}

void GridAxis::SetSize(long first, long last, long size) {
    ChangeRuns(first, last, [size](Run& run) { run.size = std::max(size, 0L); });
}

void GridAxis::Hide(long first, long last, bool hidden) {
    ChangeRuns(first, last, [hidden](Run& run) { run.hidden = hidden; });
}

long GridAxis::GetSize(long line) const {
    return line < 0 || line > count_ ? 0 : runs_[Find(line)].GetSize();
}

long GridAxis::GetKeptSize(long line) const { return runs_[Find(line)].size; }

bool GridAxis::IsHidden(long line) const { return runs_[Find(line)].hidden; }

void GridAxis::Insert(long at, long count) {
    if (count <= 0 || at < 1 || at > count_ + 1) return;
    std::size_t const place = Split(at);
    for (std::size_t i = place; i < runs_.size(); ++i) runs_[i].first += count;
    runs_.insert(runs_.begin() + static_cast<long>(place), {at, defaultSize_, false});
    valid_ = std::min(valid_, place);
    count_ += count;
    Join(place, place + 1);
}

void GridAxis::Remove(long at, long count) {
    count = std::min(count, count_ - at + 1);
    if (count <= 0 || at < 1) return;
    Split(at + count);
    std::size_t const begin = Split(at);
    std::size_t const end = Find(at + count);
    runs_.erase(runs_.begin() + static_cast<long>(begin), runs_.begin() + static_cast<long>(end));
    for (std::size_t i = begin; i < runs_.size(); ++i) runs_[i].first -= count;
    valid_ = std::min(valid_, begin);
    count_ -= count;
    Join(begin, begin);
}

long GridAxis::GetStart(long line) const {
    line = std::clamp(line, 0L, count_ + 1);
    std::size_t const found = Find(line);
    UpdateStarts(found);
    return runs_[found].start + (line - runs_[found].first) * runs_[found].GetSize();
}

long GridAxis::GetLineAt(long pixel) const {
    if (pixel < 0 || pixel >= GetStart(count_ + 1)) return -1;
    UpdateStarts(runs_.size() - 1);
    auto const after = std::upper_bound(runs_.begin(), runs_.end(), pixel,
                                        [](long at, Run const& run) { return at < run.start; });
    // The last run that begins at or before the pixel; hidden ones begin where the next shown one does.
    Run const& run = *(after - 1);
    return run.first + (run.GetSize() == 0 ? 0 : (pixel - run.start) / run.GetSize());
}

long GridAxis::GetShown(long line, int step) const {
    while (line >= 0 && line <= count_) {
        std::size_t const found = Find(line);
        if (runs_[found].GetSize() != 0) return line;
        // A hidden run is passed over as a whole.
        line = step < 0 ? runs_[found].first - 1
                        : (found + 1 < runs_.size() ? runs_[found + 1].first : count_ + 1);
    }
    return -1;
}

} // namespace GUI
