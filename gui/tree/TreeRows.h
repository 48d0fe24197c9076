#pragma once

#include "gui/elements/TreeViewNode.h"

#include <vector>

namespace GUI {

/// The nodes of a tree that are shown, as rows from the top: what is inside closed nodes isn't among them.
/// Opening and closing a node is one pass over the rows that come or go.
class TreeRows {
public:
    struct Row {
        TreeViewNode* node = nullptr;
        std::uint32_t level = 0;
    };

    /// Null shows nothing. The tree must live as long as it is shown.
    void SetRoot(TreeViewNode* root);
    /// Takes in what was changed in the tree; true if it was.
    bool Refresh();

    long GetCount() const { return static_cast<long>(rows_.size()); }
    Row const& operator[](long row) const { return rows_[static_cast<std::size_t>(row)]; }
    /// -1 for a node that isn't shown.
    long Find(TreeViewNode const* node) const;
    /// The row that the one belongs to, -1 for none.
    long GetParent(long row) const;
    std::uint32_t GetDeepestLevel() const { return deepest_; }

    /// Whether there is something to open: a child that is visible, or children that weren't asked for yet.
    static bool CanOpen(TreeViewNode const& node);
    void Open(long row);
    void Close(long row);
    /// Opens a row and all below it, or the whole tree for -1. Children that have to be asked for stay so.
    void OpenAll(long row);
    void CloseAll();
    /// Opens what the node is in; false if it can't be shown.
    bool Reveal(TreeViewNode const& node);

private:
    template <bool opens> void Collect(TreeViewNode& top, std::uint32_t level, std::vector<Row>& rows);
    void Insert(long row, std::vector<Row> const& below);
    void Keep();
    void Rebuild();

    TreeViewNode* root_ = nullptr;
    std::vector<Row> rows_;
    std::uint32_t deepest_ = 0;
    std::uint64_t revision_ = 0;
};

} // namespace GUI
