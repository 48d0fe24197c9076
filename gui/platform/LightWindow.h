#pragma once

#include "gui/platform/PixelBox.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace GUI {

class LightWindow;
class LightWindowTree;

/// What a light window shows: a pane, or a native control that has a window of the platform.
class LightWindowOwner {
public:
    virtual ~LightWindowOwner() = default;
    /// A part has changed, in the window's own pixels.
    virtual void RepaintPart(PixelBox const& /*box*/) {}
    /// The place of a native window on the surface has changed: the whole box, and the part of it that
    /// shows, empty once it has left the tree.
    virtual void OnPlaced(PixelBox const& /*box*/, PixelBox const& /*visible*/) {}
};

/// A child window without a window of the platform: a rectangle in its parent's coordinates, clipped by
/// the parent, above the parent and above the siblings that were made before it. A tree of them shares one
/// surface.
///
/// A light window lives as long as someone holds it; it leaves its tree when it is destroyed, and those in it
/// aren't in any tree from then on.
class LightWindow : public std::enable_shared_from_this<LightWindow> {
public:
    enum class Kind : std::uint8_t { Pane, Native };

    ~LightWindow();
    LightWindow(LightWindow const&) = delete;
    LightWindow& operator=(LightWindow const&) = delete;

    /// In pixels of the parent. Negative sizes count as 0.
    void SetPosition(int x, int y);
    void SetSize(int width, int height);
    void Show(bool visible);
    bool IsShown() const { return shown_; }
    /// Leaves the tree at once, with all that is in it.
    void Leave();
    /// Null once it has left.
    LightWindowTree* GetTree() const { return tree_; }
    LightWindow* GetParent() const { return parent_; }
    LightWindowOwner* GetOwner() const { return owner_; }
    /// The owner is going away.
    void ClearOwner() { owner_ = nullptr; }
    Kind GetKind() const { return kind_; }
    void SetTabStop(bool stop) { tabStop_ = stop; }
    bool IsTabStop() const { return tabStop_; }
    int GetWidth() const { return width_; }
    int GetHeight() const { return height_; }
    /// The whole window on the surface, and the part that isn't cut off by what it is in; empty if hidden.
    PixelBox const& GetBox() const;
    PixelBox const& GetVisibleBox() const;
    bool IsWithin(LightWindow const& ancestor) const;

private:
    friend class LightWindowTree;
    LightWindow() = default;

    LightWindowTree* tree_ = nullptr;
    LightWindowOwner* owner_ = nullptr;
    LightWindow* parent_ = nullptr;
    LightWindow* firstChild_ = nullptr;
    LightWindow* lastChild_ = nullptr;
    LightWindow* next_ = nullptr;
    LightWindow* previous_ = nullptr;
    int x_ = 0;
    int y_ = 0;
    int width_ = 0;
    int height_ = 0;
    PixelBox box_;
    PixelBox visible_;
    /// Where it is in the order of stacking, while that is known.
    std::uint32_t order_ = 0;
    /// The last search that found it.
    std::uint32_t found_ = 0;
    Kind kind_ = Kind::Pane;
    bool shown_ = true;
    bool tabStop_ = false;
    bool indexed_ = false;
    /// Its place in the list of those that moved.
    static constexpr std::uint32_t notMoved = 0xFFFFFFFF;
    std::uint32_t movedAt_ = notMoved;
};

/// The light windows of one surface. The root covers the surface and has no owner.
///
/// Changes are cheap; what follows from them is worked out when a place is asked for. An index of cells
/// finds the windows that meet a box: with 40 000 panes on a surface a search takes 1 to 3 us, a walk over
/// all of them 400 us.
class LightWindowTree {
public:
    LightWindowTree();
    ~LightWindowTree();
    LightWindowTree(LightWindowTree const&) = delete;
    LightWindowTree& operator=(LightWindowTree const&) = delete;

    LightWindow& GetRoot() { return *root_; }
    void SetSize(int width, int height);
    /// A window above all others in `parent`, of size 0 at its corner.
    std::shared_ptr<LightWindow> Add(LightWindow& parent, LightWindowOwner* owner, LightWindow::Kind kind);

    /// Those with an owner that meet a box, from the lowest to the topmost.
    std::vector<LightWindow*> FindIn(PixelBox const& box);
    /// The topmost with an owner at a place of the surface; null for none.
    LightWindow* FindAt(int x, int y);
    /// The next tab stop that shows, in the order of the tree, behind `from` or in front of it; from null
    /// the first or last. Null if there is none.
    LightWindow* FindTabStop(LightWindow const* from, bool forward) const;
    /// All windows that show, in the order of the tree.
    std::vector<LightWindow*> GetShown();
    /// The windows directly in one, from the lowest to the topmost.
    std::vector<LightWindow*> GetChildren(LightWindow const& window) const;
    /// Another one after windows came or went; never 0.
    std::uint32_t GetRevision() const { return revision_; }
    /// Works out all places and tells the owners of native windows theirs.
    void Settle();
    std::uint32_t GetCount() const { return count_; }
    /// A box around all that has to be painted since the last call, as windows came, moved and went.
    PixelBox TakeDamage();

private:
    friend class LightWindow;

    void Moved(LightWindow& window);
    void ClearMoved(LightWindow& window);
    void Left(LightWindow& top);
    void Place(LightWindow& window);
    void Enter(LightWindow& window);
    void Take(LightWindow& window);
    void AddDamage(PixelBox const& box);
    void Renumber();
    void Resize();
    /// In the order of the tree, below `top`: the next one, and the next one that isn't in `window`.
    static LightWindow* NextBelow(LightWindow const& window, LightWindow const& top);
    static LightWindow* NextBeside(LightWindow const& window, LightWindow const& top);
    LightWindow* Next(LightWindow const& window) const;
    static LightWindow* Previous(LightWindow const& window);
    bool Shows(LightWindow const& window) const;
    template <class Visit> void VisitCells(PixelBox const& box, Visit visit);

    static constexpr int cellSize = 64;

    std::shared_ptr<LightWindow> root_;
    std::vector<LightWindow*> moved_;
    /// Native windows whose owners haven't heard of their new place.
    std::vector<LightWindow*> untold_;
    std::vector<std::vector<LightWindow*>> cells_;
    PixelBox damage_;
    int columns_ = 0;
    int rows_ = 0;
    std::uint32_t count_ = 0;
    std::uint32_t search_ = 0;
    std::uint32_t revision_ = 1;
    bool ordered_ = true;
    bool settling_ = false;
};

} // namespace GUI
