#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "gui/grid/controls/GridDrawing.h"
#include "gui/grid/view/GridInput.h"
#include "gui/tree/TreeRows.h"

#include <optional>
#include <string>

namespace GUI {

struct TreeColumn {
    Utilities::String heading;
    long width = 0;
    bool rightAligned = false;
};

/// Where something is dropped.
struct TreeDropPlace {
    enum class Side : std::uint8_t { On, Before, After };

    TreeViewNode* node = nullptr;
    Side side = Side::On;

    bool operator==(TreeDropPlace const&) const = default;
};

/// Hears what the user does in a tree. Each of these may let the tree or its window go.
class TreeObserver {
public:
    virtual ~TreeObserver() = default;
    virtual void OnSelectionMoved() {}
    virtual void OnOpened(TreeViewNode& /*node*/, bool /*open*/) {}
    /// A node is opened whose children weren't asked for yet.
    virtual void OnChildrenWanted(TreeViewNode& /*node*/) {}
    virtual void OnChecked(TreeViewNode& /*node*/) {}
    virtual void OnActivated(TreeViewNode& /*node*/) {}
    /// False refuses the text.
    virtual bool OnRenamed(TreeViewNode& /*node*/, Utilities::String const& /*text*/) { return true; }
    /// False refuses the place.
    virtual bool OnMoved(TreeViewNode& /*node*/, TreeViewNode& /*parent*/, TreeViewNode* /*before*/) {
        return true;
    }
};

/// A tree in a window: what it shows, how it is scrolled, and what mouse and keys do in it. It has no
/// platform types: the window itself, its scroll bars, the field in which a text is changed, the clipboard
/// and drags are operations that a derived class gives. Rows count from 0.
class TreeWnd {
public:
    TreeWnd() = default;
    TreeWnd(TreeWnd const&) = delete;
    TreeWnd& operator=(TreeWnd const&) = delete;
    virtual ~TreeWnd() = default;

    void SetObserver(TreeObserver* observer) { observer_ = observer; }

    /// @name The tree
    /// @{
    /// What was open and selected in the former tree is so in this one where paths agree.
    void SetRoot(Utilities::SmartPointer<TreeViewNode> const& root);
    Utilities::SmartPointer<TreeViewNode> const& GetRoot() const { return root_; }
    /// Takes in what was changed in the tree.
    void UpdateTree();
    TreeRows const& GetRows() const { return rows_; }
    TreeViewNode* GetCurrent() const;
    /// In the order of the tree.
    std::vector<TreeViewNode*> GetSelected() const;
    /// Selects a node alone and shows it. Nobody is told, so that a data source may call it.
    void ShowSelected(TreeViewNode& node);
    void ShowSelected(std::vector<TreeViewNode*> const& nodes);
    void SetOpen(TreeViewNode& node, bool open);
    void OpenAll();
    void CloseAll();
    bool Find(Utilities::String const& text);
    bool StartRename(TreeViewNode& node);
    void EndRename(bool accept);
    bool Copy();
    /// @}

    /// @name How it looks
    /// @{
    void SetColumns(std::vector<TreeColumn> columns, bool headings);
    std::vector<TreeColumn> const& GetColumns() const { return columns_; }
    bool HasHeadings() const { return headings_; }
    void SetRowHeight(long height) { rowHeight_ = height; }
    long GetRowHeight() const { return rowHeight_; }
    void SetIndentation(long indentation) { indentation_ = indentation; }
    void SetStyle(CGXStyle const& style) { style_ = style; }
    CGXStyle const& GetStyle() const { return style_; }
    void SetSelectsSeveral(bool several) { several_ = several; }
    bool SelectsSeveral() const { return several_; }
    void SetEditable(bool editable) { editable_ = editable; }
    void SetLinkedChecks(bool linked) { linkedChecks_ = linked; }
    void SetDrags(bool moves, bool leaves) {
        movable_ = moves;
        draggable_ = leaves;
    }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    bool IsEnabled() const { return enabled_; }
    bool IsFocused() const { return focused_; }
    GridColors const& GetColors() const { return colors_; }
    GridFonts& GetFonts() const { return fonts_; }
    std::optional<TreeDropPlace> const& GetDropMark() const { return dropMark_; }
    /// @}

    /// @name The window
    /// @{
    void Paint(PlatformIndependentDeviceContext& context, GridBox const& box);
    void OnSize(long width, long height);
    void OnFocus(bool focused);
    void ScrollTo(long x, long row);
    void MakeVisible(long row);
    long GetFirstRow() const { return first_; }
    /// Rows that are seen whole, at least one.
    long GetPage() const;
    long GetTop() const { return headings_ ? rowHeight_ : 0; }
    GridBox GetWindowBox() const { return {0, 0, width_, height_}; }
    /// -1 where there is none.
    long GetRowAt(long y) const;
    GridBox GetRowBox(long row) const;
    GridBox GetCellBox(long row, std::size_t column) const;
    /// What stands before the text: empty where it isn't there.
    struct Parts {
        GridBox opener;
        GridBox check;
        GridBox patch;
        GridBox picture;
        GridBox text;
    };
    Parts GetParts(long row) const;
    /// @}

    /// @name What the user does
    /// @{
    void OnLeftButtonDown(long x, long y, GridModifiers modifiers);
    void OnMouseMove(long x, long y, bool buttonDown);
    void OnLeftButtonUp(long x, long y);
    void OnDoubleClick(long x, long y);
    /// A click on the text of the selected node wasn't followed by another one.
    void OnRenameDue();
    bool OnKey(GridKey key, GridModifiers modifiers);
    /// `time` in milliseconds: what is typed within a second is looked for together.
    bool OnTyped(Utilities::String const& text, long time);
    /// Where something that is dragged would go; none if it can't be dropped there. Marks the place.
    std::optional<TreeDropPlace> OnDragOver(long x, long y, bool between);
    void OnDragLeave() { MarkDrop({}); }
    /// Whether the nodes that are selected can go there.
    bool CanMoveTo(TreeDropPlace const& place) const;
    bool MoveSelected(TreeDropPlace const& place);
    /// @}

protected:
    /// @name The platform's part
    /// @{
    virtual void RepaintBox(GridBox const& box) = 0;
    virtual void ScrollPixels(GridBox const& area, long dx, long dy) = 0;
    virtual void SetScrollBars(long row, long lastRow, long rowPage, long x, long lastX, long xPage) = 0;
    virtual void ShowEditor(GridBox const& box, Utilities::String const& text) = 0;
    virtual Utilities::String GetEditorText() const = 0;
    virtual void MoveEditor(GridBox const& box) = 0;
    virtual void HideEditor() = 0;
    virtual void SetCursor(GridCursor cursor) = 0;
    virtual void SetClipboard(Utilities::String const& text) = 0;
    /// The same for texts that differ in upper and lower case only.
    virtual std::string Fold(Utilities::String const& text) const { return text.GetAsLower().GetStdString(); }
    virtual long MeasureText(Utilities::String const& text) const = 0;
    /// Calls `OnRenameDue` after the time in which a second click may come.
    virtual void WaitForRename() {}
    /// Drags what is selected.
    virtual void StartDrag() {}
    /// Tells assistive technology.
    virtual void TellCurrentRow(long /*row*/) {}
    virtual void TellRowChange(long /*row*/) {}
    virtual void TellRowsChanged() {}
    /// @}

private:
    enum class Press : std::uint8_t { None, Row, Text, Check, Edge };

    /// A node that may go.
    struct Reference {
        TreeViewNode* node = nullptr;
        std::uint32_t id = 0;
        TreeViewNode* Get() const { return node && node->GetId() == id ? node : nullptr; }
    };
    static Reference To(TreeViewNode* node) { return {node, node ? node->GetId() : 0}; }

    void OnRowsChanged();
    void AdoptSelection();
    void RepaintRow(long row);
    void RepaintLater(GridBox const& box) {
        if (!box.Meet(GetWindowBox()).IsEmpty()) RepaintBox(box.Meet(GetWindowBox()));
    }
    void UpdateScrollBars();
    long GetContentWidth() const;
    long GetLastFirst() const { return std::max(rows_.GetCount() - GetPage(), 0L); }
    long GetCurrentRow() const { return rows_.Find(GetCurrent()); }
    void ClearSelection();
    void Choose(long row, GridModifiers modifiers);
    void MoveTo(long row, GridModifiers modifiers);
    void Toggle(long row);
    void SetRowOpen(long row, bool open);
    void ToggleCheck(TreeViewNode& node);
    void DragEdge(long x);
    long FindEdge(long x, long y) const;
    void FitColumn(std::size_t column);
    void MarkDrop(std::optional<TreeDropPlace> const& place);
    bool FindFrom(long row, std::string const& folded, bool anywhere);
    std::vector<TreeViewNode*> GetMoving() const;

    Utilities::SmartPointer<TreeViewNode> root_;
    TreeRows rows_;
    std::vector<TreeColumn> columns_{1};
    bool headings_ = false;
    long rowHeight_ = 26;
    long indentation_ = 20;
    CGXStyle style_;
    GridColors colors_;
    mutable GridFonts fonts_;
    TreeObserver* observer_ = nullptr;
    bool several_ = false;
    bool editable_ = false;
    bool linkedChecks_ = false;
    bool movable_ = false;
    bool draggable_ = false;
    bool enabled_ = true;
    bool focused_ = false;
    long width_ = 0;
    long height_ = 0;
    long first_ = 0;
    long x_ = 0;
    Reference current_;
    /// Where a range that is selected begins.
    Reference anchor_;
    Reference renamed_;
    std::vector<Reference> selected_;
    Press press_ = Press::None;
    Reference pressed_;
    long pressX_ = 0;
    long pressY_ = 0;
    bool wasCurrent_ = false;
    /// Of a click that selects the node alone unless it begins a drag.
    bool selectsLater_ = false;
    std::size_t edge_ = 0;
    bool edgeMoved_ = false;
    std::string typed_;
    long typedAt_ = 0;
    std::optional<TreeDropPlace> dropMark_;
};

} // namespace GUI
