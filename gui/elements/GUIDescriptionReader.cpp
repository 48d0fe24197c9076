#include "gui/elements/GUIDescriptionReader.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/Attributes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <pugixml.hpp>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::String;

namespace {

std::string& Directory() {
    static std::string directory;
    return directory;
}

std::string MessageFor(std::string const& file, long line, long column, std::string const& reason) {
    return line == 0 ? file + ": " + reason
                     : file + ":" + std::to_string(line) + ":" + std::to_string(column) + ": " + reason;
}

/// Turns one parsed document into a tree and checks it on the way, while places are still known.
class TreeBuilder {
public:
    TreeBuilder(std::string_view text, std::string const& file) : text_(text), file_(file) {}

    void Build(pugi::xml_node const& node, DescriptionTree& target, int depth) {
        if (depth > GUIDescriptionReader::maximalDepth)
            Fail(node.offset_debug(), "elements are nested too deeply");
        std::string const type = node.name();
        if (!Utilities::NamingService::Instance()->IsRegistered(type))
            Fail(node.offset_debug(), "there is no component named \"" + type + "\"");
        target[CommonAttributes::elementType.key] = type.c_str();
        auto const& known = KnownAttributes(type);
        for (pugi::xml_attribute const& attribute : node.attributes()) {
            if (target.Find(attribute.name()).IsValid())
                Fail(node.offset_debug(),
                     "the attribute \"" + std::string(attribute.name()) + "\" stands twice");
            CheckAttribute(node, type, known, attribute);
            target[attribute.name()] = attribute.value();
        }
        for (Attribute const& attribute : known)
            if (attribute.mandatory && !target.Find(attribute.key).IsValid())
                Fail(node.offset_debug(), "<" + type + "> lacks its attribute \"" + attribute.key + "\" (" +
                                              attribute.meaning + ")");
        for (pugi::xml_node const& child : node.children()) BuildChild(child, target, depth);
    }

    [[noreturn]] void Fail(std::ptrdiff_t offset, std::string const& reason) const {
        auto const end =
            std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)), text_.size());
        std::string_view const before = text_.substr(0, end);
        auto const lineStart = before.rfind('\n');
        long const line = 1 + std::count(before.begin(), before.end(), '\n');
        auto const column = end - (lineStart == std::string_view::npos ? 0 : lineStart + 1) + 1;
        throw DescriptionException(file_, line, static_cast<long>(column), reason);
    }

private:
    void BuildChild(pugi::xml_node const& child, DescriptionTree& target, int depth) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            Fail(child.offset_debug(), "text stands between elements; expected a tag");
        if (child.type() != pugi::node_element) return;
        if (std::string_view(child.name()) == CommonAttributes::properties.key) {
            target[CommonAttributes::properties.key] = BuildProperties(child, depth + 1);
            return;
        }
        auto const element = Utilities::MakeSmart<DescriptionTree>();
        target.AddChild(element);
        Build(child, *element, depth + 1);
    }

    Anything BuildProperties(pugi::xml_node const& node, int depth) {
        if (depth > GUIDescriptionReader::maximalDepth)
            Fail(node.offset_debug(), "properties are nested too deeply");
        AttributeMap properties;
        for (pugi::xml_attribute const& attribute : node.attributes())
            properties[attribute.name()] = attribute.value();
        for (pugi::xml_node const& child : node.children())
            if (child.type() == pugi::node_element)
                properties[child.name()] = BuildProperties(child, depth + 1);
        return {properties};
    }

    std::vector<Attribute> const& KnownAttributes(std::string const& type) {
        auto const found = known_.find(type);
        if (found != known_.end()) return found->second;
        auto collected = AttributeTable::Collect(type);
        if (collected.empty()) collected = AttributeTable::Collect("GUIElement");
        return known_.emplace(type, std::move(collected)).first->second;
    }

    void CheckAttribute(pugi::xml_node const& node, std::string const& type,
                        std::vector<Attribute> const& known, pugi::xml_attribute const& attribute) const {
        std::string_view const key = attribute.name();
        auto const found = std::find_if(known.begin(), known.end(),
                                        [key](Attribute const& candidate) { return key == candidate.key; });
        if (found == known.end()) {
            std::string const text = file_ + ": <" + type + "> has no attribute \"" + std::string(key) + "\"";
            Diagnostics::Report("GUIDescriptionReader", text.c_str());
            return;
        }
        std::string const value = attribute.value();
        // A loop writes its counter into the text and works out formulas before the value is read.
        if (insideLoop(node)) return;
        if (!IsReadable(found->type, value))
            Fail(node.offset_debug(), "the attribute \"" + std::string(key) + "\" of <" + type + "> is \"" +
                                          value + "\"; expected " + Expected(found->type));
    }

    static bool insideLoop(pugi::xml_node node) {
        for (node = node.parent(); node; node = node.parent())
            if (std::string_view(node.name()) == "LoopBox") return true;
        return false;
    }

    static bool IsReadable(AttributeType type, std::string const& value) {
        try {
            switch (type) {
            case AttributeType::Flag:
                return value == "Yes" || value == "No";
            case AttributeType::Number:
                return value.empty() || (static_cast<void>(String(value).GetDouble()), true);
            case AttributeType::Colour:
                return value.empty() || (static_cast<void>(RGBVector(Anything(String(value)))), true);
            default:
                return true;
            }
        } catch (OutOfRangeException const&) {
            return false;
        }
    }

    static char const* Expected(AttributeType type) {
        switch (type) {
        case AttributeType::Flag:
            return "\"Yes\" or \"No\"";
        case AttributeType::Colour:
            return "three numbers from 0 to 255 with commas, red first";
        default:
            return "a number";
        }
    }

    std::string_view text_;
    std::string const& file_;
    std::map<std::string, std::vector<Attribute>> known_;
};

} // namespace

DescriptionException::DescriptionException(std::string const& file, long line, long column,
                                           std::string const& reason)
    : ResourceException(MessageFor(file, line, column, reason)), file_(file), line_(line), column_(column) {}

void GUIDescriptionReader::SetDirectory(String const& directory) { Directory() = directory; }

DescriptionTree GUIDescriptionReader::GetGUIDescriptionTree(String const& fileName) {
    std::filesystem::path path(fileName.GetStdString());
    if (!path.has_parent_path() && !path.has_extension()) {
        if (Directory().empty()) Directory() = Utilities::GetProgramDirectory() + "/descriptions";
        path = std::filesystem::path(Directory()) / path.concat(".xml");
    }
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure))
        throw DescriptionException(path.string(), 0, 0, "there is no such description file");
    auto const size = std::filesystem::file_size(path, failure);
    if (failure || size > maximalBytes)
        throw DescriptionException(path.string(), 0, 0, "the description is larger than 64 MiB");
    std::string text(static_cast<std::size_t>(size), '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file.read(text.data(), static_cast<std::streamsize>(text.size())))
        throw DescriptionException(path.string(), 0, 0, "the description can't be read");
    return Parse(text, path.string());
}

DescriptionTree GUIDescriptionReader::Parse(std::string_view text, std::string const& name) {
    TreeBuilder builder(text, name);
    if (text.size() > maximalBytes) builder.Fail(0, "the description is larger than 64 MiB");
    pugi::xml_document document;
    auto const result =
        document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result) builder.Fail(result.offset, result.description());
    pugi::xml_node root;
    for (pugi::xml_node const& node : document.children()) {
        if (node.type() != pugi::node_element) continue;
        if (root) builder.Fail(node.offset_debug(), "there is a second root element; expected one");
        root = node;
    }
    if (!root) builder.Fail(0, "there is no element; expected one that describes a window");
    DescriptionTree tree;
    builder.Build(root, tree, 1);
    return tree;
}

} // namespace GUI
