#include "gui/platform/LightWindow.h"

#include <limits>
#include <utility>

namespace GUI {

namespace {

/// A place on the surface; sums of hostile sizes stay within it.
int Bounded(long value) {
    constexpr long largest = std::numeric_limits<int>::max() / 4;
    return static_cast<int>(std::clamp(value, -largest, largest));
}

} // namespace

LightWindow::~LightWindow() { Leave(); }

void LightWindow::Leave() {
    LightWindowTree* const tree = tree_;
    if (!tree) return;
    if (parent_) {
        (previous_ ? previous_->next_ : parent_->firstChild_) = next_;
        (next_ ? next_->previous_ : parent_->lastChild_) = previous_;
        parent_ = previous_ = next_ = nullptr;
    }
    tree->Left(*this);
}

void LightWindow::SetPosition(int x, int y) {
    if (x == x_ && y == y_) return;
    x_ = x;
    y_ = y;
    if (tree_) tree_->Moved(*this);
}

void LightWindow::SetSize(int width, int height) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (width == width_ && height == height_) return;
    width_ = width;
    height_ = height;
    if (tree_) tree_->Moved(*this);
}

void LightWindow::Show(bool visible) {
    if (visible == shown_) return;
    shown_ = visible;
    if (tree_) tree_->Moved(*this);
}

PixelBox const& LightWindow::GetBox() const {
    if (tree_) tree_->Settle();
    return box_;
}

PixelBox const& LightWindow::GetVisibleBox() const {
    if (tree_) tree_->Settle();
    return visible_;
}

bool LightWindow::IsWithin(LightWindow const& ancestor) const {
    for (LightWindow const* window = this; window; window = window->parent_)
        if (window == &ancestor) return true;
    return false;
}

LightWindowTree::LightWindowTree() : root_(new LightWindow) { root_->tree_ = this; }

LightWindowTree::~LightWindowTree() { root_->Leave(); }

void LightWindowTree::SetSize(int width, int height) { root_->SetSize(width, height); }

std::shared_ptr<LightWindow> LightWindowTree::Add(LightWindow& parent, LightWindowOwner* owner,
                                                  LightWindow::Kind kind) {
    std::shared_ptr<LightWindow> window(new LightWindow);
    window->tree_ = this;
    window->owner_ = owner;
    window->kind_ = kind;
    window->parent_ = &parent;
    window->previous_ = parent.lastChild_;
    (parent.lastChild_ ? parent.lastChild_->next_ : parent.firstChild_) = window.get();
    parent.lastChild_ = window.get();
    ++count_;
    ++revision_;
    ordered_ = false;
    return window;
}

void LightWindowTree::Moved(LightWindow& window) {
    if (window.movedAt_ != LightWindow::notMoved) return;
    window.movedAt_ = static_cast<std::uint32_t>(moved_.size());
    moved_.push_back(&window);
}

void LightWindowTree::ClearMoved(LightWindow& window) {
    if (window.movedAt_ != LightWindow::notMoved) moved_[window.movedAt_] = nullptr;
    window.movedAt_ = LightWindow::notMoved;
}

void LightWindowTree::Left(LightWindow& top) {
    ++revision_;
    std::vector<LightWindow*> leaving;
    for (LightWindow* window = &top; window; window = NextBelow(*window, top)) leaving.push_back(window);
    for (LightWindow* const window : leaving) {
        if (window->indexed_) Take(*window);
        ClearMoved(*window);
        AddDamage(window->visible_);
        std::erase(untold_, window);
        window->tree_ = nullptr;
        window->visible_ = {};
        window->parent_ = window->next_ = window->previous_ = nullptr;
        window->firstChild_ = window->lastChild_ = nullptr;
        if (window != root_.get()) --count_;
    }
    for (LightWindow* const window : leaving)
        if (window->kind_ == LightWindow::Kind::Native && window->owner_)
            window->owner_->OnPlaced(window->box_, {});
}

std::vector<LightWindow*> LightWindowTree::GetChildren(LightWindow const& window) const {
    std::vector<LightWindow*> children;
    for (LightWindow* child = window.firstChild_; child; child = child->next_) children.push_back(child);
    return children;
}

void LightWindowTree::Settle() {
    if (settling_) return;
    if (!moved_.empty()) {
        settling_ = true;
        if (root_->movedAt_ != LightWindow::notMoved) Resize();
        // Most of a layout's windows are below others that moved: the topmost one places them all.
        for (LightWindow* const moved : moved_) {
            LightWindow* top = nullptr;
            for (LightWindow* window = moved; window; window = window->parent_)
                if (window->movedAt_ != LightWindow::notMoved) top = window;
            if (top) Place(*top);
        }
        moved_.clear();
        settling_ = false;
    }
    while (!untold_.empty()) {
        LightWindow& window = *untold_.back();
        untold_.pop_back();
        // The owner may let the window go, with the boxes in it.
        PixelBox const box = window.box_;
        PixelBox const visible = window.visible_;
        if (window.owner_) window.owner_->OnPlaced(box, visible);
    }
}

void LightWindowTree::Place(LightWindow& top) {
    LightWindow* window = &top;
    while (window) {
        ClearMoved(*window);
        LightWindow const* const parent = window->parent_;
        int const x = parent ? Bounded(static_cast<long>(parent->box_.left) + window->x_) : 0;
        int const y = parent ? Bounded(static_cast<long>(parent->box_.top) + window->y_) : 0;
        PixelBox const box{x, y, Bounded(static_cast<long>(x) + window->width_),
                           Bounded(static_cast<long>(y) + window->height_)};
        PixelBox const visible = !window->shown_ ? PixelBox()
                                 : parent        ? box.Intersected(parent->visible_)
                                                 : box;
        bool const same = box == window->box_ && visible == window->visible_;
        if (!same) {
            if (window->indexed_) Take(*window);
            if (window != root_.get()) {
                AddDamage(window->visible_);
                AddDamage(visible);
            }
            window->box_ = box;
            window->visible_ = visible;
            if (!visible.IsEmpty() && window->owner_) Enter(*window);
            if (window->kind_ == LightWindow::Kind::Native) untold_.push_back(window);
        }
        // Where this window is as it was, those in it that moved are on the list themselves.
        window = same ? NextBeside(*window, top) : NextBelow(*window, top);
    }
}

void LightWindowTree::AddDamage(PixelBox const& box) {
    if (box.IsEmpty()) return;
    if (damage_.IsEmpty())
        damage_ = box;
    else
        damage_ = {std::min(damage_.left, box.left), std::min(damage_.top, box.top),
                   std::max(damage_.right, box.right), std::max(damage_.bottom, box.bottom)};
}

PixelBox LightWindowTree::TakeDamage() {
    Settle();
    return std::exchange(damage_, {});
}

void LightWindowTree::Resize() {
    columns_ = std::max((root_->width_ + cellSize - 1) / cellSize, 1);
    rows_ = std::max((root_->height_ + cellSize - 1) / cellSize, 1);
    for (auto& cell : cells_)
        for (LightWindow* const window : cell) window->indexed_ = false;
    cells_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), {});
    // Whatever doesn't change with the surface's size is entered here.
    for (LightWindow* window = root_.get(); window; window = Next(*window))
        if (!window->visible_.IsEmpty() && window->owner_) Enter(*window);
}

template <class Visit> void LightWindowTree::VisitCells(PixelBox const& box, Visit visit) {
    int const right = std::min((box.right - 1) / cellSize, columns_ - 1);
    int const bottom = std::min((box.bottom - 1) / cellSize, rows_ - 1);
    for (int row = std::max(box.top, 0) / cellSize; row <= bottom; ++row)
        for (int column = std::max(box.left, 0) / cellSize; column <= right; ++column)
            visit(cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                         static_cast<std::size_t>(column)]);
}

void LightWindowTree::Enter(LightWindow& window) {
    window.indexed_ = true;
    VisitCells(window.visible_, [&window](auto& cell) { cell.push_back(&window); });
}

void LightWindowTree::Take(LightWindow& window) {
    window.indexed_ = false;
    VisitCells(window.visible_, [&window](auto& cell) {
        // What was entered last is often what goes first.
        for (auto it = cell.end(); it != cell.begin();)
            if (*--it == &window) {
                *it = cell.back();
                cell.pop_back();
                return;
            }
    });
}

LightWindow* LightWindowTree::NextBeside(LightWindow const& window, LightWindow const& top) {
    LightWindow const* current = &window;
    while (current != &top && !current->next_) current = current->parent_;
    return current == &top ? nullptr : current->next_;
}

LightWindow* LightWindowTree::NextBelow(LightWindow const& window, LightWindow const& top) {
    return window.firstChild_ ? window.firstChild_ : NextBeside(window, top);
}

LightWindow* LightWindowTree::Next(LightWindow const& window) const { return NextBelow(window, *root_); }

LightWindow* LightWindowTree::Previous(LightWindow const& window) {
    LightWindow* current = window.previous_;
    if (!current) return window.parent_;
    while (current->lastChild_) current = current->lastChild_;
    return current;
}

void LightWindowTree::Renumber() {
    if (ordered_) return;
    ordered_ = true;
    std::uint32_t order = 0;
    for (LightWindow* window = root_.get(); window; window = Next(*window)) window->order_ = order++;
}

std::vector<LightWindow*> LightWindowTree::FindIn(PixelBox const& box) {
    Settle();
    Renumber();
    ++search_;
    std::vector<LightWindow*> found;
    VisitCells(box, [&](auto const& cell) {
        for (LightWindow* const window : cell) {
            if (window->found_ == search_ || !window->visible_.Meets(box)) continue;
            window->found_ = search_;
            found.push_back(window);
        }
    });
    std::sort(found.begin(), found.end(), [](auto const* a, auto const* b) { return a->order_ < b->order_; });
    return found;
}

LightWindow* LightWindowTree::FindAt(int x, int y) {
    Settle();
    Renumber();
    LightWindow* topmost = nullptr;
    VisitCells({x, y, x + 1, y + 1}, [&](auto const& cell) {
        for (LightWindow* const window : cell)
            if (window->visible_.Contains(x, y) && (!topmost || window->order_ > topmost->order_))
                topmost = window;
    });
    return topmost;
}

bool LightWindowTree::Shows(LightWindow const& window) const {
    for (LightWindow const* current = &window; current; current = current->parent_)
        if (!current->shown_) return false;
    return window.width_ > 0 && window.height_ > 0;
}

LightWindow* LightWindowTree::FindTabStop(LightWindow const* from, bool forward) const {
    if (!from) from = root_.get();
    LightWindow* window = nullptr;
    if (forward) {
        for (window = Next(*from); window; window = Next(*window))
            if (window->tabStop_ && Shows(*window)) return window;
        return nullptr;
    }
    if (from == root_.get()) {
        window = root_.get();
        while (window->lastChild_) window = window->lastChild_;
    } else {
        window = Previous(*from);
    }
    for (; window; window = Previous(*window))
        if (window->tabStop_ && Shows(*window)) return window;
    return nullptr;
}

std::vector<LightWindow*> LightWindowTree::GetShown() {
    Settle();
    std::vector<LightWindow*> shown;
    for (LightWindow* window = root_.get(); window; window = Next(*window))
        if (window->owner_ && !window->visible_.IsEmpty()) shown.push_back(window);
    return shown;
}

} // namespace GUI
