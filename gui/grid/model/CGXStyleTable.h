#pragma once

#include "gui/grid/model/CGXStyle.h"

#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace GUI {

/// The styles of a table, each kept once: cells name them by number. Number 0 is the style that sets nothing.
class CGXStyleTable {
public:
    using Id = std::uint32_t;

    CGXStyleTable();
    /// The number of a style, which is entered if it is new. Its value is left out.
    Id Enter(CGXStyle const& style);
    CGXStyle const& Get(Id id) const { return *styles_[id]; }
    std::size_t GetCount() const { return styles_.size(); }
    /// What the styles of table, row, column and cell come to. The reference is good until the table changes.
    CGXStyle const& Merge(CGXStyle const& table, Id row, Id column, Id cell) const;
    /// The table's own style has changed.
    void ForgetMerged() const { merged_.clear(); }
    /// Whether so many styles have come since the last time that it is worth looking for unused ones.
    bool IsWorthSweeping() const { return styles_.size() - free_.size() > sweepAt_; }
    /// Drops the styles that aren't marked.
    void Sweep(std::vector<bool> const& used);

private:
    struct Key {
        std::array<Id, 3> ids;
        bool operator==(Key const&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(Key const& key) const {
            std::size_t sum = 0;
            for (Id const id : key.ids) sum = (sum ^ id) * 0x9E3779B97F4A7C15U;
            return sum ^ (sum >> 32U);
        }
    };
    static constexpr std::size_t smallestSweep = 4096;
    static constexpr std::size_t mostMerged = 16384;

    std::vector<std::unique_ptr<CGXStyle const>> styles_;
    std::unordered_multimap<std::size_t, Id> byHash_;
    std::vector<Id> free_;
    std::size_t sweepAt_ = smallestSweep;
    mutable std::unordered_map<Key, CGXStyle, KeyHash> merged_;
};

} // namespace GUI
