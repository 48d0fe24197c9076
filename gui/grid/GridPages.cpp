#include "gui/grid/GridPages.h"

#include <algorithm>

namespace GUI {

std::vector<std::pair<long, long>> GridPages::GetMissing(GridRows const& rows, long first, long last,
                                                         long count) const {
    std::vector<std::pair<long, long>> missing;
    first = std::max(first, 1L);
    last = std::min(last, count);
    if (first > last) return missing;
    Line const end = GridRows::BlockOf(static_cast<Line>(last));
    for (Line block = GridRows::BlockOf(static_cast<Line>(first)); block <= end; ++block) {
        if (rows.HasBlock(block)) continue;
        long const begin = GridRows::FirstOf(block);
        long const blockEnd = std::min<long>(begin + GridRows::blockSize - 1, count);
        if (!missing.empty() && missing.back().second == begin - 1)
            missing.back().second = blockEnd;
        else
            missing.emplace_back(begin, blockEnd);
    }
    return missing;
}

void GridPages::Note(long first, long last) {
    for (Line block = GridRows::BlockOf(static_cast<Line>(first));
         block <= GridRows::BlockOf(static_cast<Line>(last)); ++block) {
        std::erase(blocks_, block);
        blocks_.push_back(block);
    }
}

std::vector<GridPages::Line> GridPages::TakeSurplus() {
    if (blocks_.size() <= mostBlocks) return {};
    auto const end = blocks_.begin() + static_cast<long>(blocks_.size() - mostBlocks);
    std::vector<Line> surplus(blocks_.begin(), end);
    blocks_.erase(blocks_.begin(), end);
    return surplus;
}

} // namespace GUI
