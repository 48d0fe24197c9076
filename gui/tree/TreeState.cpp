#include "gui/tree/TreeState.h"

#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "gui/elements/description/Description.h"

#include <string_view>
#include <unordered_map>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

using Check = TreeViewNode::Check;

/// The first child of each key.
std::unordered_map<std::string_view, TreeViewNode*> ByKey(TreeViewNode const& node) {
    std::unordered_map<std::string_view, TreeViewNode*> children;
    for (TreeViewNode& child : node) children.emplace(child.GetKey().GetStdString(), &child);
    return children;
}

void CopyState(TreeViewNode const& from, TreeViewNode& to, bool& selects, bool several, std::size_t depth) {
    if (from.IsExpanded()) to.SetExpanded(true);
    if (from.IsSelected() && selects) {
        to.SetSelected(true);
        selects = several;
    }
    bool const goesOn = depth > 0 && (from.IsExpanded() || !from.GetParent());
    if (!goesOn || !from.HasChildren() || !to.HasChildren()) return;
    auto const children = ByKey(to);
    for (TreeViewNode& child : from) {
        if (!child.IsExpanded() && !child.IsSelected()) continue;
        auto const found = children.find(child.GetKey().GetStdString());
        if (found != children.end()) CopyState(child, *found->second, selects, several, depth - 1);
    }
}

/// One value of an entry; a faulty one doesn't cost the others.
template <class Take> void With(AttributeMap const& entry, char const* key, Take take) {
    Anything const* const value = entry.FindValue(key);
    if (!value || !value->IsValid()) return;
    try {
        take(*value);
    } catch (Norvelian::Utilities::Exceptions::TraceableException const&) {
        // Left as it was.
    }
}

class Reader {
public:
    void Read(TreeViewNode& node, Anything const& entries, std::size_t depth) {
        auto children = ByKey(node);
        // All are put to the end one after the other; what is left in front has gone.
        TreeViewNode const* firstNew = nullptr;
        for (Anything const& entry : entries.GetVectorOfAnythings()) {
            if (count_++ >= Utilities::Limits::Get().elements) break;
            String key;
            if (entry.IsOfTypeString())
                key = entry.GetString();
            else if (entry.IsOfTypeMap())
                With(entry.GetMapOfAnythings(), "Key",
                     [&](Anything const& value) { key = value.GetString(); });
            else
                continue;
            auto const found = children.find(key.GetStdString());
            TreeViewNode* child = nullptr;
            if (found != children.end()) {
                child = found->second;
                children.erase(found);
                child->MoveTo(node, nullptr);
            } else {
                child = &node.Append(key);
            }
            if (!firstNew) firstNew = child;
            if (entry.IsOfTypeMap()) Fill(*child, entry.GetMapOfAnythings(), found == children.end(), depth);
        }
        while (node.GetFirstChild() && node.GetFirstChild() != firstNew) node.Remove(*node.GetFirstChild());
        node.SetUnreadChildren(false);
    }

private:
    void Fill(TreeViewNode& node, AttributeMap const& entry, bool isNew, std::size_t depth) {
        With(entry, "Text", [&](Anything const& value) { node.SetText(value.GetString()); });
        With(entry, "Columns", [&](Anything const& value) {
            std::size_t column = 0;
            for (Anything const& text : value.GetVectorOfAnythings())
                node.SetColumn(++column, text.GetString());
        });
        With(entry, "Color", [&](Anything const& value) { node.SetColor(RGBVector(value)); });
        With(entry, "Image", [&](Anything const& value) { node.SetImage(value.GetString()); });
        With(entry, "ToolTip", [&](Anything const& value) { node.SetToolTip(value.GetString()); });
        With(entry, "Check", [&](Anything const& value) {
            bool const partial = value.IsOfTypeString() && value.GetString() == "Partial";
            node.SetCheck(partial ? Check::Partial : value.GetBool() ? Check::On : Check::Off);
        });
        With(entry, "Visible", [&](Anything const& value) { node.SetVisible(value.GetBool()); });
        With(entry, "Editable", [&](Anything const& value) { node.SetEditable(value.GetBool()); });
        if (isNew) With(entry, "Expanded", [&](Anything const& value) { node.SetExpanded(value.GetBool()); });
        With(entry, "HasChildren", [&](Anything const& value) {
            if (!value.GetBool()) node.RemoveChildren();
            node.SetUnreadChildren(value.GetBool() && !node.HasChildren());
        });
        Anything const* const children = entry.FindValue("Children");
        if (children && children->GetKind() == Anything::Kind::Vector && depth > 0)
            Read(node, *children, depth - 1);
    }

    std::size_t count_ = 0;
};

} // namespace

void CopyTreeState(TreeViewNode const& from, TreeViewNode& to, bool several) {
    bool selects = true;
    if (from.GetKey() == to.GetKey()) CopyState(from, to, selects, several, Utilities::Limits::Get().depth);
}

void ReadTreeEntries(TreeViewNode& node, Anything const& entries) {
    if (entries.GetKind() == Anything::Kind::Vector)
        Reader().Read(node, entries, Utilities::Limits::Get().depth);
}

} // namespace GUI
