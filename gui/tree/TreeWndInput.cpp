// What mouse and keys do in a tree.
#include "gui/tree/TreeWnd.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::SmartPointer;
using Utilities::String;
using Check = TreeViewNode::Check;

// ------------------------------------------------------------------ selection

void TreeWnd::Toggle(long row) {
    TreeViewNode& node = *rows_[row].node;
    node.SetSelected(!node.IsSelected());
    if (node.IsSelected())
        selected_.push_back(To(&node));
    else
        std::erase_if(selected_, [&node](Reference const& each) { return each.node == &node; });
    RepaintRow(row);
}

/// The user has gone to a row: by itself it is selected alone.
void TreeWnd::Choose(long row, GridModifiers modifiers) {
    EndRename(true);
    RepaintRow(GetCurrentRow());
    TreeViewNode& node = *rows_[row].node;
    current_ = To(&node);
    long const anchor = several_ && modifiers.shift ? rows_.Find(anchor_.Get()) : -1;
    if (several_ && modifiers.control && !modifiers.shift) {
        Toggle(row);
        anchor_ = current_;
    } else if (anchor >= 0) {
        ClearSelection();
        for (long each = std::min(anchor, row); each <= std::max(anchor, row); ++each) Toggle(each);
    } else if (selected_.size() != 1 || !node.IsSelected()) {
        ClearSelection();
        Toggle(row);
        anchor_ = current_;
    } else {
        anchor_ = current_;
        RepaintRow(row);
        MakeVisible(row);
        return;
    }
    RepaintRow(row);
    MakeVisible(row);
    TellCurrentRow(row);
    if (observer_) observer_->OnSelectionMoved();
}

void TreeWnd::MoveTo(long row, GridModifiers modifiers) {
    if (rows_.GetCount() == 0) return;
    row = std::clamp(row, 0L, rows_.GetCount() - 1);
    if (!several_ || !modifiers.control || modifiers.shift) return Choose(row, {modifiers.shift, false});
    // With Ctrl only the place moves, and the space bar selects there.
    RepaintRow(GetCurrentRow());
    current_ = To(rows_[row].node);
    RepaintRow(row);
    MakeVisible(row);
    TellCurrentRow(row);
}

// ------------------------------------------------------------------ mouse

void TreeWnd::OnLeftButtonDown(long x, long y, GridModifiers modifiers) {
    if (!enabled_) return;
    EndRename(true);
    rows_.Refresh();
    press_ = Press::None;
    pressX_ = x;
    pressY_ = y;
    if (long const edge = FindEdge(x, y); edge >= 0) {
        press_ = Press::Edge;
        edge_ = static_cast<std::size_t>(edge);
        edgeMoved_ = false;
        return;
    }
    long const row = GetRowAt(y);
    if (row < 0) return;
    TreeViewNode& node = *rows_[row].node;
    Parts const parts = GetParts(row);
    if (parts.opener.Contains(x, y)) return SetRowOpen(row, !node.IsExpanded());
    pressed_ = To(&node);
    if (parts.check.Inset(-2).Contains(x, y) && !parts.check.IsEmpty()) {
        press_ = Press::Check;
        return;
    }
    press_ = parts.text.Contains(x, y) ? Press::Text : Press::Row;
    wasCurrent_ = &node == GetCurrent() && selected_.size() == 1 && node.IsSelected() && focused_;
    // Several that are selected can be dragged together.
    selectsLater_ =
        several_ && node.IsSelected() && selected_.size() > 1 && !modifiers.shift && !modifiers.control;
    if (!selectsLater_) Choose(row, modifiers);
}

void TreeWnd::OnMouseMove(long x, long y, bool buttonDown) {
    if (press_ == Press::Edge && buttonDown) return DragEdge(x);
    if (!buttonDown || press_ == Press::None) {
        SetCursor(FindEdge(x, y) >= 0 ? GridCursor::Columns : GridCursor::Arrow);
        return;
    }
    constexpr long slack = 6;
    if (press_ == Press::Check || (std::abs(x - pressX_) < slack && std::abs(y - pressY_) < slack)) return;
    if ((!movable_ && !draggable_) || !pressed_.Get()) return;
    press_ = Press::None;
    if (!pressed_.node->IsSelected()) return;
    StartDrag();
}

void TreeWnd::OnLeftButtonUp(long x, long y) {
    Press const press = std::exchange(press_, Press::None);
    TreeViewNode* const node = pressed_.Get();
    long const row = GetRowAt(y);
    if (press == Press::None || press == Press::Edge || !node || row < 0 || rows_[row].node != node) return;
    if (press == Press::Check) {
        if (GetParts(row).check.Inset(-2).Contains(x, y)) ToggleCheck(*node);
        return;
    }
    if (std::exchange(selectsLater_, false)) return Choose(row, {});
    if (press == Press::Text && wasCurrent_ && editable_ && node->IsEditable()) {
        renamed_ = {};
        WaitForRename();
    }
}

void TreeWnd::OnDoubleClick(long x, long y) {
    if (long const edge = FindEdge(x, y); edge >= 0) return FitColumn(static_cast<std::size_t>(edge));
    pressed_ = {};
    long const row = GetRowAt(y);
    if (!enabled_ || row < 0) return;
    Parts const parts = GetParts(row);
    // Two quick clicks are two clicks where each of them does something.
    if (parts.opener.Contains(x, y) || parts.check.Inset(-2).Contains(x, y))
        return OnLeftButtonDown(x, y, {});
    SmartPointer<TreeViewNode> const keep = root_;
    Reference const node = To(rows_[row].node);
    if (TreeRows::CanOpen(*node.node)) SetRowOpen(row, !node.node->IsExpanded());
    if (observer_ && keep.Get() == root_.Get() && node.Get()) observer_->OnActivated(*node.node);
}

long TreeWnd::FindEdge(long x, long y) const {
    constexpr long slack = 4;
    if (y >= GetTop()) return -1;
    for (std::size_t column = 0; column + 1 < columns_.size(); ++column)
        if (std::abs(GetCellBox(-1, column).right - x) <= slack) return static_cast<long>(column);
    return -1;
}

void TreeWnd::DragEdge(long x) {
    constexpr long smallest = 24;
    if (!edgeMoved_ && x == pressX_) return;
    edgeMoved_ = true;
    columns_[edge_].width = std::max(x - GetCellBox(-1, edge_).left, smallest);
    OnRowsChanged();
}

void TreeWnd::FitColumn(std::size_t column) {
    long width = MeasureText(columns_[column].heading);
    // Rows beyond the screen don't change what is seen, and there may be many.
    long const end = std::min(first_ + GetPage() + 1, rows_.GetCount());
    for (long row = first_; row < end; ++row) {
        long const before = column == 0 ? GetParts(row).text.left - GetRowBox(row).left : 0;
        width = std::max(width, before + MeasureText(rows_[row].node->GetColumn(column)));
    }
    constexpr long margins = 2 * GridDrawing::margin + 2;
    columns_[column].width = width + margins;
    OnRowsChanged();
}

// ------------------------------------------------------------------ check boxes

void TreeWnd::ToggleCheck(TreeViewNode& node) {
    Check const check = node.GetCheck() == Check::On ? Check::Off : Check::On;
    node.SetCheck(check);
    if (linkedChecks_) {
        // All below become the same, and those above show what their children have in common.
        TreeViewNode* below = node.GetFirstChild();
        while (below) {
            if (below->GetCheck() != Check::None) below->SetCheck(check);
            if (below->HasChildren()) {
                below = below->GetFirstChild();
                continue;
            }
            while (below != &node && !below->GetNext()) below = below->GetParent();
            below = below == &node ? nullptr : below->GetNext();
        }
        for (TreeViewNode* above = node.GetParent(); above; above = above->GetParent()) {
            if (above->GetCheck() == Check::None) continue;
            Check common = Check::None;
            for (TreeViewNode const& child : *above) {
                if (child.GetCheck() == Check::None) continue;
                common =
                    common == Check::None || common == child.GetCheck() ? child.GetCheck() : Check::Partial;
            }
            if (common != Check::None) above->SetCheck(common);
        }
        RepaintLater(GetWindowBox());
    }
    long const row = rows_.Find(&node);
    RepaintRow(row);
    TellRowChange(row);
    if (observer_) observer_->OnChecked(node);
}

// ------------------------------------------------------------------ names

void TreeWnd::OnRenameDue() {
    if (pressed_.Get() && pressed_.node == GetCurrent()) StartRename(*pressed_.node);
}

bool TreeWnd::StartRename(TreeViewNode& node) {
    rows_.Refresh();
    long const row = rows_.Find(&node);
    if (!enabled_ || !editable_ || !node.IsEditable() || row < 0) return false;
    EndRename(true);
    if (rows_.Find(&node) != row) return false;
    MakeVisible(row);
    renamed_ = To(&node);
    ShowEditor(GetParts(row).text, node.GetText());
    return true;
}

void TreeWnd::EndRename(bool accept) {
    Reference const renamed = std::exchange(renamed_, {});
    if (!renamed.node) return;
    String const text = GetEditorText();
    HideEditor();
    TreeViewNode* const node = renamed.Get();
    if (!accept || !node || text == node->GetText()) return;
    SmartPointer<TreeViewNode> const keep = root_;
    if (observer_ && !observer_->OnRenamed(*node, text)) return;
    if (keep.Get() != root_.Get() || !renamed.Get()) return;
    node->SetText(text);
    RepaintRow(rows_.Find(node));
    TellRowChange(rows_.Find(node));
}

// ------------------------------------------------------------------ keys

bool TreeWnd::OnKey(GridKey key, GridModifiers modifiers) {
    rows_.Refresh();
    if (!enabled_ || rows_.GetCount() == 0) return false;
    long row = GetCurrentRow();
    if (key == GridKey::Copy) return Copy();
    if (key == GridKey::SelectAll) {
        if (!several_) return false;
        ClearSelection();
        for (long each = 0; each < rows_.GetCount(); ++each) Toggle(each);
        if (observer_) observer_->OnSelectionMoved();
        return true;
    }
    if (row < 0) {
        if (key == GridKey::Escape || key == GridKey::Tab) return false;
        return MoveTo(0, {}), true;
    }
    TreeViewNode& node = *rows_[row].node;
    bool const canOpen = TreeRows::CanOpen(node);
    switch (key) {
    case GridKey::Up:
        return MoveTo(row - 1, modifiers), true;
    case GridKey::Down:
        return MoveTo(row + 1, modifiers), true;
    case GridKey::PageUp:
        return MoveTo(row - GetPage(), modifiers), true;
    case GridKey::PageDown:
        return MoveTo(row + GetPage(), modifiers), true;
    case GridKey::Home:
        return MoveTo(0, modifiers), true;
    case GridKey::End:
        return MoveTo(rows_.GetCount() - 1, modifiers), true;
    case GridKey::Left:
        if (canOpen && node.IsExpanded()) return SetRowOpen(row, false), true;
        row = rows_.GetParent(row);
        if (row >= 0) MoveTo(row, {});
        return true;
    case GridKey::Right:
        if (canOpen && !node.IsExpanded()) return SetRowOpen(row, true), true;
        if (canOpen && row + 1 < rows_.GetCount() && rows_[row + 1].level > rows_[row].level)
            MoveTo(row + 1, {});
        return true;
    case GridKey::Enter:
        if (observer_) observer_->OnActivated(node);
        return true;
    case GridKey::Edit:
        return StartRename(node);
    case GridKey::Space:
        if (node.GetCheck() != Check::None) return ToggleCheck(node), true;
        if (several_ && modifiers.control) {
            Toggle(row);
            if (observer_) observer_->OnSelectionMoved();
            return true;
        }
        return Choose(row, {}), true;
    default:
        return false;
    }
}

bool TreeWnd::OnTyped(String const& text, long time) {
    rows_.Refresh();
    if (!enabled_ || rows_.GetCount() == 0) return false;
    constexpr long together = 1000;
    if (time - std::exchange(typedAt_, time) > together) typed_.clear();
    long const row = std::max(GetCurrentRow(), 0L);
    if (typed_.empty()) {
        if (text == "+") return SetRowOpen(row, true), true;
        if (text == "-") return SetRowOpen(row, false), true;
        if (text == "*") {
            rows_.OpenAll(row);
            OnRowsChanged();
            return true;
        }
    }
    std::string const typed = Fold(text);
    // The same letter again goes on to the next of its nodes.
    bool const again = typed_ == typed;
    if (!again) typed_ += typed;
    FindFrom(again || typed_ == typed ? row + 1 : row, typed_, false);
    return true;
}

bool TreeWnd::FindFrom(long row, std::string const& folded, bool anywhere) {
    long const count = rows_.GetCount();
    for (long i = 0; i < count; ++i) {
        long const each = (row + i) % count;
        std::string const text = Fold(rows_[each].node->GetText());
        if (anywhere ? text.find(folded) == std::string::npos : !text.starts_with(folded)) continue;
        return Choose(each, {}), true;
    }
    return false;
}

bool TreeWnd::Find(String const& text) {
    EndRename(true);
    rows_.Refresh();
    if (rows_.GetCount() == 0 || text.Length() == 0 || root_.IsNull()) return false;
    // Also in what is closed: the nodes in the order of the tree, from behind the current one.
    std::string const folded = Fold(text);
    TreeViewNode* const begin = GetCurrent() ? GetCurrent() : root_.Get();
    TreeViewNode* node = begin;
    do {
        if (node->HasChildren()) {
            node = node->GetFirstChild();
        } else {
            while (node && !node->GetNext()) node = node->GetParent();
            node = node ? node->GetNext() : root_.Get();
        }
        bool const isRow = node->GetParent() || node->IsVisible();
        if (!isRow || Fold(node->GetText()).find(folded) == std::string::npos || !rows_.Reveal(*node))
            continue;
        OnRowsChanged();
        if (long const row = rows_.Find(node); row >= 0) return Choose(row, {}), true;
    } while (node != begin);
    return false;
}

} // namespace GUI
