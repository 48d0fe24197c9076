#include "inspection/PropertyTree.h"

#include "Diagnostics/Sink.h"
#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/Limits.h"

#include <optional>

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

String Translate(std::string_view key) {
    return Utilities::LanguageServiceInterface::GetTranslation(String(key));
}

void Append(TreeViewNode& node, String const& text) { node.SetText(node.GetText() + text); }

/// The value as it is shown; nothing for one of another type than the entry says.
std::optional<String> TextOf(char type, Anything const& value) {
    try {
        switch (type) {
        case 's':
            return value.GetString();
        case 'l':
            return String(value.GetLong());
        case 'w':
            return String(value.GetShort());
        case 'b':
            return String(value.GetBool() ? "true" : "false");
        case 'd':
            return String(value.GetDouble(), 5, '.');
        default:
            return String();
        }
    } catch (...) {
        Diagnostics::DropException("PropertyContentHelper::BuildTree");
        return {};
    }
}

/// Takes the next name off a path.
std::string_view TakeName(std::string_view& path) {
    std::size_t const end = std::min(path.find('/'), path.size());
    std::string_view const name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    return name;
}

} // namespace

TreeViewNode& PropertyTree::FindOrMake(TreeViewNode& parent, std::string_view name) {
    TreeViewNode*& node = known_[{&parent, std::string(name)}];
    if (!node) node = &parent.Append(String(name), Translate(name));
    return *node;
}

void PropertyTree::ShowValue(TreeViewNode& node, char type, Anything const* value) {
    auto const text = value ? TextOf(type, *value) : std::nullopt;
    bool const isKnown = std::string_view("slwbd").find(type) != std::string_view::npos;
    if (!text)
        Append(node, ": There must be a value entry.");
    else if (isKnown)
        Append(node, String(": ") + *text);
}

SmartPointer<TreeViewNode> PropertyTree::Build(Anything::MapOfAnythings const& entries) {
    // A map has as many chains as whoever made it gave it; a look-up may pass over all of its entries.
    Entries known;
    known.reserve(entries.GetSize());
    known_.reserve(entries.GetSize());
    for (auto it = entries.Begin(); it.IsValid(); ++it)
        known.emplace(it.GetKey().GetStdString(), &it.GetValue());
    auto const find = [&known](std::string const& key) {
        auto const found = known.find(key);
        return found == known.end() ? nullptr : found->second;
    };
    std::size_t const deepest = Utilities::Limits::Get().depth;
    SmartPointer<TreeViewNode> root;
    for (unsigned long n = 0; Anything const* const entry = find(std::to_string(n)); ++n) {
        String const text = entry->IsOfTypeString() ? entry->GetString() : String();
        std::string_view path = text.GetStdString();
        std::string_view const type = TakeName(path);
        std::string_view const name = TakeName(path);
        if (root.IsNull()) {
            root = Utilities::MakeSmart<TreeViewNode>(String(name), Translate(name));
            root->SetVisible(true);
        }
        if (root->GetKey().GetStdString() != name) {
            root->SetText("Error in Content Anything");
            return root;
        }
        TreeViewNode* node = root.Get();
        for (std::size_t depth = 1; !path.empty() && depth < deepest; ++depth)
            node = &FindOrMake(*node, TakeName(path));
        if (!path.empty()) {
            Append(*node, String(": ") + Utilities::Limits::Passed("depth", deepest, "names in a path"));
            continue;
        }
        if (type != "e") ShowValue(*node, type.empty() ? ' ' : type.front(), find("v" + std::to_string(n)));
    }
    return root;
}

} // namespace GUI
