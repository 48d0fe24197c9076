#pragma once

#include "gui/controls/ControlAttributes.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/TreeHolder.h"
#include "gui/tree/TreeWnd.h"

#include <set>
#include <vector>

namespace GUI {

class DropDataObject;

/// A tree of nodes that open and close, with columns, check boxes and texts that can be changed in place.
/// This class reads the description and the data source; `TreeView_PC` shows what it has read.
///
/// The tree is one that a host builds of `TreeViewNode` and hands over by `SetRoot` (see `TreeHolder`), or it
/// comes from the data source: "Children" gives the nodes of the first level, "Children path" those below a
/// node, both as a vector whose entries are texts, which are keys, or maps with "Key" (text), and where they
/// differ from the node's defaults "Text", "Columns" (vector of texts), "Color" (colour), "Image", "ToolTip"
/// (texts), "Check" (bool, or "Partial"), "Visible", "Expanded", "Editable" (bools), "HasChildren" (bool:
/// they are asked for when the node is opened), "Children" (vector of such entries, given at once). Texts are
/// shown as they come. Paths are keys with "/" between (`TreeViewNode::GetPath`).
///
/// It enters itself at the application under its element name, where whoever builds its tree finds it.
///
/// Update messages, each without or with "|NoRepaint": "Children path" asks for what is below that node
/// again, "Selection" for the selection; any other text asks for all. An answer that is invalid leaves what
/// there is. Nodes that are still there keep whether they are open and selected. At each update also
/// "Selected" (text, a path; or a vector of paths), "Enabled", "Visible", "ToolTipText".
///
/// An update with a map is a command by its key "Command": "Expand", "Collapse", "Select", "Rename" (each
/// with "Path"), "ExpandAll", "CollapseAll", "Find" (with "Text": selects the next node that has it, from the
/// current one on), "Copy". The result is 1 if it was done.
///
/// What the user does is told as a value and then as an event with the same argument: "Selected" (as it is
/// asked for) and "OnSelectionChanged"; "Expanded" and "OnExpanded", "Collapsed" and "OnCollapsed" (paths);
/// "Checked" (vector of path and bool) and "OnChecked"; "Renamed" (vector of path and text) and "OnRenamed";
/// "Moved" (map with "Path", "Parent", the new parent's path, and "Index" among its children) and "OnMoved".
/// "OnActivated" comes with the path for a double click or Enter on a node. An event "OnRenamed" or "OnMoved"
/// whose result isn't 0 refuses, and the tree stays as it was. "OnDropped" comes with a map of "Path",
/// "Place"
/// ("On", "Before", "After") and what was dropped ("Text", "Files", "Color"); its result 1 says it was taken.
/// A node that is dragged out takes its texts and colour along unless "DragData path" gives a map of "Text",
/// "Files" (vector of paths) and "Color".
class TreeView : public GUIElement, public TreeHolder, protected TreeObserver {
public:
    static constexpr Attribute headingsAttribute{
        "Headings", AttributeType::Text, "",
        "Of the columns, with ';' between; keys of the language service; none: no headings"};
    static constexpr Attribute columnWidthsAttribute{
        "ColumnWidths", AttributeType::Text, "",
        "In pixels, with ';' between; the last column takes what is left"};
    static constexpr Attribute rightAlignedAttribute{
        "RightAligned", AttributeType::Text, "", "Columns of numbers, which count from 1, with ';' between"};
    static constexpr Attribute selectionAttribute{"Selection", AttributeType::Text, "Single",
                                                  "How many nodes can be selected: Single or Multiple"};
    static constexpr Attribute editableAttribute{"Editable", AttributeType::Flag, "No",
                                                 "Whether texts can be changed in place"};
    static constexpr Attribute linkedChecksAttribute{
        "LinkedChecks", AttributeType::Flag, "No",
        "Whether a check box goes with those below it and shows what they have in common"};
    static constexpr Attribute movableAttribute{"Movable", AttributeType::Flag, "No",
                                                "Whether nodes can be dragged to another place in the tree"};
    static constexpr Attribute draggableAttribute{"Draggable", AttributeType::Flag, "No",
                                                  "Whether nodes can be dragged elsewhere"};
    static constexpr Attribute droppableAttribute{"Droppable", AttributeType::Flag, "No",
                                                  "Whether text, colours and files can be dropped on nodes"};
    static constexpr Attribute rowHeightAttribute{
        "RowHeight", AttributeType::Number, "26", "In pixels", false, {8, 1000}};
    static constexpr Attribute indentationAttribute{
        "Indentation", AttributeType::Number, "20", "Of each level, in pixels", false, {0, 1000}};
    static constexpr Attribute fontNameAttribute{"FontName", AttributeType::Text, "", "Typeface"};
    static constexpr Attribute fontSizeAttribute{"FontSize", AttributeType::Number, "0",
                                                 "Height in points, in pixels if negative"};
    static constexpr Attribute attributes[] = {headingsAttribute,
                                               columnWidthsAttribute,
                                               rightAlignedAttribute,
                                               selectionAttribute,
                                               editableAttribute,
                                               linkedChecksAttribute,
                                               movableAttribute,
                                               draggableAttribute,
                                               droppableAttribute,
                                               rowHeightAttribute,
                                               indentationAttribute,
                                               fontNameAttribute,
                                               fontSizeAttribute,
                                               ControlAttributes::toolTipText,
                                               ControlAttributes::accessibleName};

    Diagnostics::String GetValueString() override { return "TreeView"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnLanguageChanged() override;

    void SetRoot(Utilities::SmartPointer<TreeViewNode> const& root) override;
    Utilities::SmartPointer<TreeViewNode> GetRoot() const override;
    TreeViewNode* GetCurrentNode() override;
    void SelectNode(TreeViewNode& node) override;
    void UpdateTree() override;

protected:
    void OnDetach() override;
    /// Null once the element is released.
    virtual TreeWnd* GetTree() const = 0;
    /// Hands over what the description says.
    void SetUpTree();
    /// What was dropped on a node; true if it was taken.
    bool TakeDrop(DropDataObject const& data, TreeDropPlace const& place);
    bool MayDrop() const { return droppable_; }
    /// What the data source gives to drag the current node out; invalid for the usual.
    Utilities::Anything GetDragData();

private:
    void OnSelectionMoved() override;
    void OnOpened(TreeViewNode& node, bool open) override;
    void OnChildrenWanted(TreeViewNode& node) override;
    void OnChecked(TreeViewNode& node) override;
    void OnActivated(TreeViewNode& node) override;
    bool OnRenamed(TreeViewNode& node, Utilities::String const& text) override;
    bool OnMoved(TreeViewNode& node, TreeViewNode& parent, TreeViewNode* before) override;

    void ReadColumns();
    void ReadTree();
    void ReadSelection();
    /// False if the element was released.
    bool ReadChildren(Utilities::String const& path);
    bool ReadOpenNodes();
    /// Asks for what is on the way to a node.
    bool ReadTo(Utilities::String const& path);
    long RunCommand(AttributeMap const& arguments);
    void TellEvent(char const* value, char const* event, Utilities::Anything const& argument);

    std::vector<Utilities::String> headings_;
    std::vector<TreeColumn> columns_;
    CGXStyle style_;
    long rowHeight_ = 26;
    long indentation_ = 20;
    bool several_ = false;
    bool editable_ = false;
    bool linkedChecks_ = false;
    bool movable_ = false;
    bool draggable_ = false;
    bool droppable_ = false;
    /// The tree is the host's own.
    bool given_ = false;
    /// Paths of nodes whose children the data source was asked for.
    std::set<std::string> asked_;
};

} // namespace GUI
