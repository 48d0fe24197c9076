#pragma once

#include <cstddef>
#include <vector>

namespace GUI {

/// The sizes of a table's rows or columns, and where they are. Line 0 is the header, lines 1 to the count
/// follow. Neighbours of one size are kept as one run, so that a million equal rows cost as much as one; a
/// place is found in the logarithm of the runs.
class GridAxis {
public:
    explicit GridAxis(long defaultSize);

    long GetCount() const { return count_; }
    /// New lines have the default size.
    void SetCount(long count);
    long GetDefaultSize() const { return defaultSize_; }
    void SetDefaultSize(long size) { defaultSize_ = size; }

    /// In pixels; 0 for one that is hidden.
    long GetSize(long line) const;
    /// Its size once it is shown again.
    long GetKeptSize(long line) const;
    void SetSize(long first, long last, long size);
    void Hide(long first, long last, bool hidden);
    bool IsHidden(long line) const;
    void Insert(long at, long count);
    void Remove(long at, long count);

    /// The pixel at which a line begins; that of one behind the last line is where the axis ends.
    long GetStart(long line) const;
    /// The line that a pixel belongs to; -1 before the first and behind the last one.
    long GetLineAt(long pixel) const;
    /// The nearest shown line from `line` on, in steps of 1 or -1; -1 if there is none.
    long GetShown(long line, int step) const;

    bool operator==(GridAxis const& other) const;

private:
    /// Ends where the next one begins.
    struct Run {
        long first;
        long size;
        bool hidden;
        /// Where it begins, in pixels.
        mutable long start = 0;

        long GetSize() const { return hidden ? 0 : size; }
        bool IsLike(Run const& other) const { return size == other.size && hidden == other.hidden; }
    };

    std::size_t Find(long line) const;
    /// The run that begins with that line, which is made.
    std::size_t Split(long line);
    /// Joins equal neighbours among the runs from `first` to `last`.
    void Join(std::size_t first, std::size_t last);
    void UpdateStarts(std::size_t through) const;
    template <class Change> void ChangeRuns(long first, long last, Change change);

    std::vector<Run> runs_;
    /// Runs whose `start` is right.
    mutable std::size_t valid_ = 1;
    long defaultSize_;
    long count_ = 0;
};

} // namespace GUI
