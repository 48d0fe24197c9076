// Rows that are asked for when they are seen.
#include "gui/grid/Grid_PC.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

void Grid_PC::ReadRowCount() {
    Anything const count = GetValue("RowCount");
    if (!IsAttached() || !count.IsValid()) return;
    constexpr long most = 100000000;
    long const rows = std::clamp(count.GetLong(), 0L, most);
    if (rows != GetControl()->GetRowCount()) GetControl()->SetRowCount(rows);
}

void Grid_PC::UpdateRows(GridRange const& rows) {
    auto* const grid = GetControl();
    if (!grid) return;
    ReadRowCount();
    if (!IsAttached()) return;
    if (rows.IsEmpty())
        grid->DropRows(1, grid->GetRowCount());
    else
        grid->DropRows(rows.top, std::min(rows.bottom, grid->GetRowCount()));
    FetchRows(grid->GetViewport().rows.GetFirst(), grid->GetViewport().rows.GetLast());
    if (IsAttached()) grid->Redraw();
}

void Grid_PC::OnRowsShown(long first, long last) {
    // What is filled in is painted by itself.
    if (virtual_) FetchRows(first, last);
}

void Grid_PC::FetchRows(long first, long last) {
    // A question may bring about another one; the outer call sees to what is seen then.
    if (fetching_) {
        fetchesAgain_ = true;
        return;
    }
    CallScope const call(*this);
    struct Scope {
        explicit Scope(bool& fetching) : flag(fetching) { flag = true; }
        Scope(Scope const&) = delete;
        Scope& operator=(Scope const&) = delete;
        ~Scope() { flag = false; }
        bool& flag;
    } const scope(fetching_);
    // Whoever changes the table at every question isn't followed for ever.
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        fetchesAgain_ = false;
        // The head stays on the screen wherever the rest is scrolled.
        if (!FetchMissing(1, GetControl()->GetFrozenRows()) || !FetchMissing(first, last)) return;
        if (!fetchesAgain_) break;
        first = GetControl()->GetViewport().rows.GetFirst();
        last = GetControl()->GetViewport().rows.GetLast();
    }
    for (auto const block : pages_.TakeSurplus())
        GetControl()->DropRows(GridRows::FirstOf(block), GridRows::FirstOf(block));
}

bool Grid_PC::FetchMissing(long first, long last) {
    GridRows const& kept = GetControl()->GetCore().GetRows();
    for (auto [from, to] : pages_.GetMissing(kept, first, last, GetControl()->GetRowCount())) {
        Anything const answer = GetValue("Rows " + String(from - 1) + "-" + String(to - 1));
        if (!IsAttached()) return false;
        if (answer.GetKind() != Anything::Kind::Vector) continue;
        auto const& rows = answer.GetVectorOfAnythings();
        // Meanwhile the table may have become another.
        to = std::min(to, GetControl()->GetRowCount());
        if (to < from) continue;
        TakeRows(from, rows);
        if (static_cast<long>(rows.GetSize()) >= to - from + 1) continue;
        long const found = from + static_cast<long>(rows.GetSize()) - 1;
        ReadRowCount();
        if (!IsAttached()) return false;
        // One that doesn't say how many there are has as many as it gave.
        if (GetControl()->GetRowCount() >= to) GetControl()->SetRowCount(found);
    }
    if (first <= std::min(last, GetControl()->GetRowCount())) pages_.Note(first, last);
    return true;
}

void Grid_PC::TakeRows(long first, Anything::VectorOfAnythings const& rows) {
    CNorvelianGridCtrl& grid = *GetControl();
    bool const former = grid.LockUpdate(true);
    long row = first;
    for (Anything const& cells : rows) {
        if (row > grid.GetRowCount()) break;
        long column = 0;
        if (cells.GetKind() == Anything::Kind::Vector)
            for (Anything const& cell : cells.GetVectorOfAnythings())
                if (++column <= grid.GetColCount())
                    grid.SetCell(static_cast<GridOrder::Line>(row), static_cast<GridOrder::Line>(column),
                                 ReadGridCell(cell));
        ++row;
    }
    grid.LockUpdate(former);
}

} // namespace GUI
