#pragma once

#include "gui/grid/model/CGXGridCore.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace GUI {

/// What was done to a table, to be undone and done again.
///
/// A step holds the former content of cells, by the lines of their rows and columns, and perhaps the former
/// arrangement: order and sizes of rows and columns, merged cells. Undoing exchanges both with what the table
/// has, so that the same step does it again. Sorting, resizing, inserting and removing are steps like an
/// edit.
class GridHistory : public GridStyleUser {
public:
    explicit GridHistory(CGXGridCore& core);
    GridHistory(GridHistory const&) = delete;
    GridHistory& operator=(GridHistory const&) = delete;
    ~GridHistory() override { core_.SetStyleUser(nullptr); }

    /// What a step that was undone or done again has touched.
    struct Touched {
        std::vector<GridPlace> cells;
        bool arrangement = false;
    };

    /// Sets a cell's text as a step. With `merges` it becomes one step with the former one if that was the
    /// same cell, and nothing came between them.
    void SetText(GridPlace const& place, Utilities::String text, bool merges = false);
    /// Between these, all changes are one step; may be nested.
    void BeginStep();
    void EndStep();
    /// To be called before the arrangement changes. Steps with the same `what`, which isn't 0, that follow
    /// each other become one: the moves of a column's edge.
    void KeepArrangement(long what = 0);
    /// The next step doesn't become one with the former one.
    void Break() { merging_ = false; }

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    /// The answer is good until the next call.
    Touched const& Undo();
    Touched const& Redo();
    /// The table was changed past the history.
    void Clear();
    /// Steps that can be undone.
    std::size_t GetCount() const { return done_; }

    void MarkStyles(std::vector<bool>& used) const override;

    /// The oldest steps are forgotten beyond this.
    static constexpr std::size_t mostSteps = 100000;

private:
    struct Step {
        /// Of its changes; they end where those of the next step begin.
        std::size_t first = 0;
        long what = 0;
        /// Index of its former arrangement, -1 for none.
        long arrangement = -1;
    };

    Step& NewStep();
    void ForgetUndone();
    void ForgetOldest();
    std::size_t EndOf(std::size_t step) const;
    Touched const& Exchange(std::size_t step, bool backward);

    CGXGridCore& core_;
    std::vector<Step> steps_;
    std::vector<GridChange> changes_;
    std::vector<CGXGridCore::Arrangement> arrangements_;
    Touched touched_;
    std::size_t done_ = 0;
    int depth_ = 0;
    bool stepOpen_ = false;
    bool merging_ = false;
};

} // namespace GUI
