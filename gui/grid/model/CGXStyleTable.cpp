#include "gui/grid/model/CGXStyleTable.h"

#include <algorithm>

namespace GUI {

CGXStyleTable::CGXStyleTable() { styles_.push_back(std::make_unique<CGXStyle const>()); }

CGXStyleTable::Id CGXStyleTable::Enter(CGXStyle const& style) {
    if (style.IsPlain()) return 0;
    std::size_t const hash = style.GetHash();
    CGXStyle look = style;
    look.value.reset();
    auto const [first, last] = byHash_.equal_range(hash);
    for (auto found = first; found != last; ++found)
        if (*styles_[found->second] == look) return found->second;
    Id id = static_cast<Id>(styles_.size());
    if (free_.empty()) {
        styles_.push_back(std::make_unique<CGXStyle const>(std::move(look)));
    } else {
        id = free_.back();
        free_.pop_back();
        styles_[id] = std::make_unique<CGXStyle const>(std::move(look));
    }
    byHash_.emplace(hash, id);
    return id;
}

CGXStyle const& CGXStyleTable::Merge(CGXStyle const& table, Id row, Id column, Id cell) const {
    if (merged_.size() > mostMerged) merged_.clear();
    auto const [found, isNew] = merged_.try_emplace(Key{{row, column, cell}}, table);
    if (isNew)
        // The nearest to the cell counts.
        for (Id const id : {column, row, cell}) found->second.Merge(Get(id));
    return found->second;
}

void CGXStyleTable::Sweep(std::vector<bool> const& used) {
    merged_.clear();
    std::erase_if(byHash_, [&used](auto const& entry) { return !used[entry.second]; });
    for (Id id = 1; id < styles_.size(); ++id)
        if (!used[id] && styles_[id]) {
            styles_[id] = nullptr;
            free_.push_back(id);
        }
    sweepAt_ = std::max(smallestSweep, 2 * (styles_.size() - free_.size()));
}

} // namespace GUI
