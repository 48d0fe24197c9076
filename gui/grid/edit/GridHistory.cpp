#include "gui/grid/edit/GridHistory.h"

#include <utility>

namespace GUI {

using Utilities::String;

GridHistory::GridHistory(CGXGridCore& core) : core_(core) { core_.SetStyleUser(this); }

void GridHistory::ForgetUndone() {
    if (done_ == steps_.size()) return;
    changes_.resize(steps_[done_].first);
    for (std::size_t i = done_; i < steps_.size(); ++i)
        if (steps_[i].arrangement >= 0) {
            arrangements_.resize(static_cast<std::size_t>(steps_[i].arrangement));
            break;
        }
    steps_.resize(done_);
}

void GridHistory::ForgetOldest() {
    if (done_ < mostSteps) return;
    // Half of them at once, so that it costs nothing on the whole.
    std::size_t const dropped = mostSteps / 2;
    std::size_t const changes = steps_[dropped].first;
    long arrangements = 0;
    for (std::size_t i = 0; i < dropped; ++i) arrangements += steps_[i].arrangement >= 0 ? 1 : 0;
    steps_.erase(steps_.begin(), steps_.begin() + static_cast<long>(dropped));
    changes_.erase(changes_.begin(), changes_.begin() + static_cast<long>(changes));
    arrangements_.erase(arrangements_.begin(), arrangements_.begin() + arrangements);
    for (Step& step : steps_) {
        step.first -= changes;
        if (step.arrangement >= 0) step.arrangement -= arrangements;
    }
    done_ = steps_.size();
}

GridHistory::Step& GridHistory::NewStep() {
    ForgetUndone();
    if (stepOpen_) return steps_.back();
    ForgetOldest();
    steps_.push_back({changes_.size(), 0, -1});
    done_ = steps_.size();
    stepOpen_ = depth_ > 0;
    return steps_.back();
}

void GridHistory::SetText(GridPlace const& place, String text, bool merges) {
    if (!core_.HasPlace(place)) return;
    GridChange change{core_.GetRowLine(place.row), core_.GetColumnLine(place.column), {}};
    change.cell = {std::move(text), core_.GetCell(change.row, change.column).style};
    bool const sameCell = merges && merging_ && depth_ == 0 && !CanRedo() && !changes_.empty() &&
                          changes_.size() - steps_.back().first == 1 && changes_.back().row == change.row &&
                          changes_.back().column == change.column;
    if (!sameCell) NewStep();
    core_.Exchange(change);
    // What the cell had before the first of them is what counts.
    if (!sameCell) changes_.push_back(std::move(change));
    merging_ = merges;
}

void GridHistory::BeginStep() {
    if (depth_++ == 0) stepOpen_ = false;
}

void GridHistory::EndStep() {
    if (--depth_ > 0) return;
    stepOpen_ = false;
    merging_ = false;
}

void GridHistory::KeepArrangement(long what) {
    bool const same =
        what != 0 && merging_ && depth_ == 0 && !CanRedo() && CanUndo() && steps_.back().what == what;
    merging_ = what != 0;
    if (same) return;
    Step& step = NewStep();
    step.what = what;
    if (step.arrangement >= 0) return;
    step.arrangement = static_cast<long>(arrangements_.size());
    arrangements_.push_back(core_.GetArrangement());
}

std::size_t GridHistory::EndOf(std::size_t step) const {
    return step + 1 < steps_.size() ? steps_[step + 1].first : changes_.size();
}

GridHistory::Touched const& GridHistory::Exchange(std::size_t step, bool backward) {
    touched_.cells.clear();
    touched_.arrangement = false;
    Step const& each = steps_[step];
    std::size_t const end = EndOf(step);
    // Lines hold whatever the arrangement is, so the two need no order.
    if (each.arrangement >= 0) {
        touched_.arrangement = true;
        auto& kept = arrangements_[static_cast<std::size_t>(each.arrangement)];
        CGXGridCore::Arrangement former = core_.GetArrangement();
        core_.SetArrangement(std::exchange(kept, std::move(former)));
    }
    for (std::size_t i = each.first; i < end; ++i) {
        GridChange& change = changes_[backward ? end - 1 - (i - each.first) : i];
        core_.Exchange(change);
        touched_.cells.push_back(core_.GetPlace(change.row, change.column));
    }
    merging_ = false;
    return touched_;
}

GridHistory::Touched const& GridHistory::Undo() {
    static Touched const nothing;
    return CanUndo() ? Exchange(--done_, true) : nothing;
}

GridHistory::Touched const& GridHistory::Redo() {
    static Touched const nothing;
    return CanRedo() ? Exchange(done_++, false) : nothing;
}

void GridHistory::Clear() {
    steps_.clear();
    changes_.clear();
    arrangements_.clear();
    done_ = 0;
    stepOpen_ = merging_ = false;
}

void GridHistory::MarkStyles(std::vector<bool>& used) const {
    for (GridChange const& change : changes_) used[change.cell.style] = true;
}

} // namespace GUI
