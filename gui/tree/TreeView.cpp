#include "gui/tree/TreeView.h"

#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "gui/elements/DropDataObject.h"
#include "gui/elements/application/Application.h"
#include "gui/tree/TreeState.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

Anything VectorOf(std::vector<Anything> const& values) {
    Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

std::vector<String> ReadList(String const& text) {
    std::vector<String> entries;
    for (long i = 0; i < text.GetTokenCount(';'); ++i) entries.push_back(text.GetToken(i, ';'));
    return entries;
}

long ReadNumber(String const& text) {
    try {
        return std::clamp(text.GetLong(), 0L, 32767L);
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return 0;
    }
}

String TextOf(AttributeMap const& map, char const* key) {
    Anything const* const value = map.FindValue(key);
    return value && value->IsOfTypeString() ? value->GetString() : String();
}

} // namespace

void TreeView::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                          DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    headings_ = ReadList(reader.Text(headingsAttribute));
    auto const widths = ReadList(reader.Text(columnWidthsAttribute));
    columns_.resize(std::max({headings_.size(), widths.size(), std::size_t{1}}));
    constexpr long usualWidth = 120;
    for (TreeColumn& column : columns_) column.width = usualWidth;
    for (std::size_t i = 0; i < widths.size(); ++i) columns_[i].width = ReadNumber(widths[i]);
    for (String const& number : ReadList(reader.Text(rightAlignedAttribute)))
        if (auto const column = static_cast<std::size_t>(ReadNumber(number));
            column > 0 && column <= columns_.size())
            columns_[column - 1].rightAligned = true;
    several_ = reader.Text(selectionAttribute) == "Multiple";
    editable_ = reader.Flag(editableAttribute);
    linkedChecks_ = reader.Flag(linkedChecksAttribute);
    movable_ = reader.Flag(movableAttribute);
    draggable_ = reader.Flag(draggableAttribute);
    droppable_ = reader.Flag(droppableAttribute);
    rowHeight_ = reader.Long(rowHeightAttribute);
    indentation_ = reader.Long(indentationAttribute);
    if (String const name = reader.Text(fontNameAttribute); name.Length() != 0) style_.fontName = name;
    if (long const size = reader.Long(fontSizeAttribute); size != 0)
        style_.fontSize = static_cast<short>(std::clamp(size, -32768L, 32767L));
    RegisterOnUpdate();
    if (GetElementName().Length() != 0) Application::Instance().RegisterComponent(GetElementName(), this);
}

void TreeView::OnDetach() {
    // Another one of that name may have taken its place.
    if (Application& application = Application::Instance();
        application.GetRegisteredComponent(GUIElement::GetElementName()) == this)
        application.UnregisterComponent(GUIElement::GetElementName());
    GUIElement::OnDetach();
}

void TreeView::SetUpTree() {
    TreeWnd& tree = *GetTree();
    tree.SetObserver(this);
    tree.SetStyle(style_);
    tree.SetRowHeight(rowHeight_);
    tree.SetIndentation(indentation_);
    tree.SetSelectsSeveral(several_);
    tree.SetEditable(editable_);
    tree.SetLinkedChecks(linkedChecks_);
    tree.SetDrags(movable_, draggable_);
    ReadColumns();
}

void TreeView::ReadColumns() {
    for (std::size_t i = 0; i < headings_.size(); ++i)
        columns_[i].heading = Utilities::LanguageServiceInterface::GetTranslation(headings_[i]);
    // Widths that the user has changed stay.
    auto const& shown = GetTree()->GetColumns();
    for (std::size_t i = 0; GetTree()->HasHeadings() && i < columns_.size() && i < shown.size(); ++i)
        columns_[i].width = shown[i].width;
    GetTree()->SetColumns(columns_, !headings_.empty());
}

void TreeView::OnLanguageChanged() {
    GUIElement::OnLanguageChanged();
    if (GetTree()) ReadColumns();
}

// ------------------------------------------------------------------ the tree

void TreeView::SetRoot(SmartPointer<TreeViewNode> const& root) {
    if (!GetTree()) return;
    given_ = !root.IsNull();
    asked_.clear();
    GetTree()->SetRoot(root);
}

SmartPointer<TreeViewNode> TreeView::GetRoot() const {
    return GetTree() ? GetTree()->GetRoot() : SmartPointer<TreeViewNode>();
}

TreeViewNode* TreeView::GetCurrentNode() { return GetTree() ? GetTree()->GetCurrent() : nullptr; }

void TreeView::SelectNode(TreeViewNode& node) {
    if (GetTree()) GetTree()->ShowSelected(node);
}

void TreeView::UpdateTree() {
    if (GetTree()) GetTree()->UpdateTree();
}

// ------------------------------------------------------------------ updates

long TreeView::OnUpdate(Anything const& command) {
    CallScope const call(*this);
    if (!GetTree()) return 0;
    if (command.IsOfTypeMap()) return RunCommand(command.GetMapOfAnythings());
    String text = command.IsOfTypeString() ? command.GetString() : String();
    text.Replace("|NoRepaint", "");
    constexpr char const* children = "Children ";
    if (text.FindSubstring(children, 0) == 0) {
        if (!ReadChildren(text.Mid(String(children).Length(), text.Length())) || !ReadOpenNodes()) return 0;
    } else if (!(text == "Selection")) {
        ReadTree();
    }
    if (IsAttached()) ReadSelection();
    return 0;
}

void TreeView::ReadTree() {
    if (!given_) {
        Anything const entries = GetValue("Children");
        if (!IsAttached()) return;
        if (!given_ && entries.GetKind() == Anything::Kind::Vector) {
            SmartPointer<TreeViewNode> root = GetRoot();
            bool const isNew = root.IsNull();
            if (isNew) {
                root = Utilities::MakeSmart<TreeViewNode>();
                root->SetVisible(false);
            }
            ReadTreeEntries(*root, entries);
            if (isNew) GetTree()->SetRoot(root);
        }
    }
    // What was read when it was opened is read again, what has been closed since when it is opened again.
    std::set<std::string> const asked = std::exchange(asked_, {});
    for (std::string const& path : asked) {
        SmartPointer<TreeViewNode> const root = GetRoot();
        TreeViewNode* const node = root.IsNull() ? nullptr : root->FindPath(path);
        if (!node) continue;
        if (node->IsExpanded()) {
            if (!ReadChildren(path)) return;
        } else {
            node->RemoveChildren();
            node->SetUnreadChildren(true);
        }
    }
    GetTree()->UpdateTree();
    ReadOpenNodes();
}

bool TreeView::ReadChildren(String const& path) {
    SmartPointer<TreeViewNode> const root = GetRoot();
    if (root.IsNull() || !root->FindPath(path)) return true;
    Anything const entries = GetValue("Children " + path);
    if (!IsAttached()) return false;
    // The answer may have come with another tree.
    TreeViewNode* const node = GetRoot().Get() == root.Get() ? root->FindPath(path) : nullptr;
    if (!node || entries.GetKind() != Anything::Kind::Vector) return true;
    asked_.insert(path.GetStdString());
    ReadTreeEntries(*node, entries);
    GetTree()->UpdateTree();
    return true;
}

bool TreeView::ReadOpenNodes() {
    // Nodes may come open, with children that have to be asked for, and so on.
    std::set<std::string> tried;
    for (std::size_t round = 0; round < Utilities::Limits::Get().depth; ++round) {
        std::vector<String> open;
        TreeRows const& rows = GetTree()->GetRows();
        for (long row = 0; row < rows.GetCount(); ++row)
            if (TreeViewNode const& node = *rows[row].node; node.IsExpanded() && node.HasUnreadChildren())
                open.push_back(node.GetPath());
        std::erase_if(open, [&](String const& path) { return !tried.insert(path.GetStdString()).second; });
        if (open.empty()) return true;
        for (String const& path : open)
            if (!ReadChildren(path)) return false;
    }
    return true;
}

bool TreeView::ReadTo(String const& path) {
    std::string const& text = path.GetStdString();
    for (std::size_t end = text.find('/'); end != std::string::npos; end = text.find('/', end + 1)) {
        String const part(text.substr(0, end));
        SmartPointer<TreeViewNode> const root = GetRoot();
        TreeViewNode const* const node = root.IsNull() ? nullptr : root->FindPath(part);
        if (node && node->HasUnreadChildren() && !ReadChildren(part)) return false;
    }
    return true;
}

void TreeView::ReadSelection() {
    Anything const answer = GetValue("Selected");
    if (!IsAttached() || GetRoot().IsNull()) return;
    std::vector<Anything> paths;
    if (answer.IsOfTypeString() && answer.GetString().Length() != 0)
        paths.push_back(answer);
    else if (answer.GetKind() == Anything::Kind::Vector)
        paths.assign(answer.GetVectorOfAnythings().begin(), answer.GetVectorOfAnythings().end());
    else if (!answer.IsOfTypeString())
        return;
    // What is selected may be in a node that wasn't opened yet.
    for (Anything const& path : paths)
        if (path.IsOfTypeString() && !ReadTo(path.GetString())) return;
    if (GetRoot().IsNull()) return;
    std::vector<TreeViewNode*> nodes;
    for (Anything const& path : paths)
        if (TreeViewNode* const node =
                path.IsOfTypeString() ? GetRoot()->FindPath(path.GetString()) : nullptr)
            nodes.push_back(node);
    // An update while the user scrolls must not take the place away.
    if (nodes != GetTree()->GetSelected()) GetTree()->ShowSelected(nodes);
}

long TreeView::RunCommand(AttributeMap const& arguments) {
    TreeWnd& tree = *GetTree();
    String const name = TextOf(arguments, "Command");
    if (name == "ExpandAll") return tree.OpenAll(), 1;
    if (name == "CollapseAll") return tree.CloseAll(), 1;
    if (name == "Find") return tree.Find(TextOf(arguments, "Text")) ? 1 : 0;
    if (name == "Copy") return tree.Copy() ? 1 : 0;
    SmartPointer<TreeViewNode> const root = GetRoot();
    TreeViewNode* const node = root.IsNull() ? nullptr : root->FindPath(TextOf(arguments, "Path"));
    if (!node) return 0;
    if (name == "Rename") return tree.StartRename(*node) ? 1 : 0;
    if (name == "Select")
        tree.ShowSelected(*node);
    else if (name == "Expand" || name == "Collapse")
        tree.SetOpen(*node, name == "Expand");
    else
        return 0;
    return 1;
}

// ------------------------------------------------------------------ what the user does

void TreeView::TellEvent(char const* value, char const* event, Anything const& argument) {
    TellValue(value, argument);
    Fire(event, argument);
}

void TreeView::OnSelectionMoved() {
    std::vector<Anything> paths;
    for (TreeViewNode const* const node : GetTree()->GetSelected()) paths.emplace_back(node->GetPath());
    Anything const selected = several_ ? VectorOf(paths) : paths.empty() ? Anything(String()) : paths.front();
    TellEvent("Selected", "OnSelectionChanged", selected);
}

void TreeView::OnOpened(TreeViewNode& node, bool open) {
    TellEvent(open ? "Expanded" : "Collapsed", open ? "OnExpanded" : "OnCollapsed", node.GetPath());
}

void TreeView::OnChildrenWanted(TreeViewNode& node) {
    if (ReadChildren(node.GetPath())) ReadOpenNodes();
}

void TreeView::OnChecked(TreeViewNode& node) {
    TellEvent("Checked", "OnChecked", VectorOf({node.GetPath(), node.GetCheck() == TreeViewNode::Check::On}));
}

void TreeView::OnActivated(TreeViewNode& node) { Fire("OnActivated", node.GetPath()); }

bool TreeView::OnRenamed(TreeViewNode& node, String const& text) {
    Anything const renamed = VectorOf({node.GetPath(), text});
    TellValue("Renamed", renamed);
    return Fire("OnRenamed", renamed) == 0;
}

bool TreeView::OnMoved(TreeViewNode& node, TreeViewNode& parent, TreeViewNode* before) {
    long index = 0;
    for (TreeViewNode const& child : parent) {
        if (&child == before) break;
        if (&child != &node) ++index;
    }
    AttributeMap move;
    move["Path"] = node.GetPath();
    move["Parent"] = parent.GetPath();
    move["Index"] = index;
    TellValue("Moved", move);
    return Fire("OnMoved", move) == 0;
}

bool TreeView::TakeDrop(DropDataObject const& data, TreeDropPlace const& place) {
    constexpr char const* sides[] = {"On", "Before", "After"};
    AttributeMap drop;
    drop["Path"] = place.node->GetPath();
    drop["Place"] = sides[static_cast<std::size_t>(place.side)];
    std::pair<char const*, char const*> const formats[] = {
        {"Text", "text/plain"}, {"Files", "text/uri-list"}, {"Color", "application/x-color"}};
    for (auto const& [key, format] : formats)
        if (data.HasFormat(format)) drop[key] = data.GetData(format);
    return Fire("OnDropped", drop) != 0;
}

Anything TreeView::GetDragData() {
    TreeViewNode const* const node = GetCurrentNode();
    return node ? GetValue("DragData " + node->GetPath()) : Anything();
}

} // namespace GUI
