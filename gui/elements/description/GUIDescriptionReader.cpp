#include "gui/elements/description/GUIDescriptionReader.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "Utilities/NamingService.h"
#include "Utilities/ProgramDirectory.h"
#include "Utilities/WholeFile.h"
#include "Utilities/XmlCost.h"
#include "gui/elements/description/Attributes.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <map>
#include <pugixml.hpp>
#include <unordered_map>
#include <utility>
#include <vector>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Utilities::Anything;
using Utilities::Limits;
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

/// What the nodes of one component may say.
struct KnownAttributes {
    struct Known : Attribute {
        explicit Known(Attribute const& attribute) : Attribute(attribute), name(attribute.key) {}

        std::string_view name;
        /// A description says the same few values over and over; the last one that was checked needs no
        /// check.
        std::string readable;
    };
    std::vector<Known> all;
    /// The children's values are formulas.
    bool isPattern = false;

    Known* Find(std::string_view key) {
        auto const found =
            std::find_if(all.begin(), all.end(), [key](Known const& known) { return known.name == key; });
        return found == all.end() ? nullptr : &*found;
    }
};

/// A whole number or a decimal one, all of the text, within the range.
bool IsNumber(std::string_view text, AttributeRange const& range) {
    auto const isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    auto const [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failure == std::errc() && end == text.data() + text.size() && number >= range.minimum &&
           number <= range.maximum;
}

bool IsReadable(Attribute const& attribute, char const* value) {
    try {
        switch (attribute.type) {
        case AttributeType::Flag:
            return std::strcmp(value, "Yes") == 0 || std::strcmp(value, "No") == 0;
        case AttributeType::Number:
            return *value == '\0' || IsNumber(value, attribute.range);
        case AttributeType::Colour:
            return *value == '\0' || (static_cast<void>(RGBVector(String(value))), true);
        default:
            return true;
        }
    } catch (OutOfRangeException const&) {
        return false;
    }
}

std::string Expected(Attribute const& attribute) {
    switch (attribute.type) {
    case AttributeType::Flag:
        return "\"Yes\" or \"No\"";
    case AttributeType::Colour:
        return "three numbers from 0 to 255 with commas, red first";
    default: {
        AttributeRange const& range = attribute.range;
        if (range.minimum == AttributeRange().minimum) return "a number";
        return "a number from " + std::to_string(static_cast<long>(range.minimum)) + " to " +
               std::to_string(static_cast<long>(range.maximum));
    }
    }
}

/// How many characters have to be changed, left out or added.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            std::size_t const change = diagonal + (std::tolower(a[i - 1]) == std::tolower(b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({change, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row[b.size()];
}

/// "; did you mean "..."?", or nothing where no known name is near.
template <class Names> std::string Suggestion(std::string_view name, Names const& names) {
    constexpr std::size_t longest = 100;
    if (name.size() > longest) return {};
    std::string nearest;
    std::size_t smallest = std::max<std::size_t>(name.size() / 3, 1) + 1;
    for (std::string const& known : names)
        if (auto const distance = Distance(name, known); distance < smallest) {
            smallest = distance;
            nearest = known;
        }
    return nearest.empty() ? std::string() : "; did you mean \"" + nearest + "\"?";
}

std::vector<std::string> ComponentNames() {
    std::vector<std::string> names;
    for (auto* const creator : Utilities::NamingService::Instance()->GetCreators())
        names.push_back(creator->GetDescriptor().at("name").GetString().GetStdString());
    return names;
}

/// Turns one parsed document into a tree and checks it on the way, while places are still known.
class TreeBuilder {
public:
    TreeBuilder(std::string_view text, std::string const& file) : text_(text), file_(file) {}

    /// The attributes of a loop's children are formulas until the loop has run, and aren't checked.
    void Build(pugi::xml_node const& node, DescriptionTree& target, std::size_t depth, bool inLoop) {
        if (depth > limits_.depth)
            Fail(node.offset_debug(), Limits::Passed("depth", limits_.depth, "elements inside each other"));
        std::string_view const type = node.name();
        KnownAttributes& known = FindKnown(node, type);
        target[CommonAttributes::elementType.key] = node.name();
        Charge(node);
        for (pugi::xml_attribute const& attribute : node.attributes()) {
            Anything& value = target[attribute.name()];
            if (value.IsValid())
                Fail(node.offset_debug(),
                     "the attribute \"" + std::string(attribute.name()) + "\" is given twice");
            value = attribute.value();
            Check(node, known, attribute, inLoop);
        }
        for (Attribute const& attribute : known.all)
            if (attribute.mandatory && !target.FindValue(attribute.key))
                Fail(node.offset_debug(), "<" + std::string(type) + "> lacks its attribute \"" +
                                              attribute.key + "\" (" + attribute.meaning + ")");
        target.SetName(file_ + ":" + std::to_string(LineOf(node.offset_debug())));
        if (!inLoop) CheckName(node);
        bool const loop = inLoop || known.isPattern;
        for (pugi::xml_node const& child : node.children()) BuildChild(child, target, depth, loop);
    }

    [[noreturn]] void Fail(std::ptrdiff_t offset, std::string const& reason) const {
        auto const end =
            std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)), text_.size());
        std::string_view const before = text_.substr(0, end);
        auto const lineStart = before.rfind('\n');
        auto const column = end - (lineStart == std::string_view::npos ? 0 : lineStart + 1) + 1;
        throw DescriptionException(file_, LineOf(offset), static_cast<long>(column), reason);
    }

private:
    /// Nodes come in the order of the text: each line is counted once.
    long LineOf(std::ptrdiff_t offset) const {
        auto const end =
            std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)), text_.size());
        if (end < countedTo_) {
            countedTo_ = 0;
            countedLine_ = 1;
        }
        auto const part = text_.substr(countedTo_, end - countedTo_);
        countedLine_ += std::count(part.begin(), part.end(), '\n');
        countedTo_ = end;
        return countedLine_;
    }

    void Report(pugi::xml_node const& node, std::string const& what) const {
        std::string const text = file_ + ":" + std::to_string(LineOf(node.offset_debug())) + ": " + what;
        Diagnostics::Report("GUIDescriptionReader", text.c_str());
    }

    /// `FindElement` and the callbacks of a data source know one element of a name.
    void CheckName(pugi::xml_node const& node) {
        char const* const name = node.attribute(CommonAttributes::elementName.key).value();
        bool const isRegistered =
            std::string_view(node.attribute(CommonAttributes::registered.key).value()) != "No";
        if (*name == '\0' || !isRegistered) return;
        auto const [first, isNew] = names_.emplace(name, LineOf(node.offset_debug()));
        if (!isNew)
            Report(node, std::string("a second element is named \"") + name +
                             "\"; the first one is in line " + std::to_string(first->second));
    }

    /// Before any attribute is kept: looking for a key takes longer with each key.
    void Charge(pugi::xml_node const& node) const {
        std::size_t count = 0;
        for (pugi::xml_attribute const& attribute : node.attributes()) {
            if (++count > limits_.attributesOfElement)
                Fail(node.offset_debug(), Limits::Passed("attributesOfElement", limits_.attributesOfElement,
                                                         "attributes of one element"));
            if (std::strlen(attribute.value()) > limits_.textLength)
                Fail(node.offset_debug(), "the attribute \"" + std::string(attribute.name()) + "\" has " +
                                              Limits::Passed("textLength", limits_.textLength, "bytes"));
        }
    }

    void BuildChild(pugi::xml_node const& child, DescriptionTree& target, std::size_t depth, bool inLoop) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            Fail(child.offset_debug(), "there is text between elements; expected a tag");
        if (child.type() != pugi::node_element) return;
        if (std::string_view(child.name()) == CommonAttributes::properties.key) {
            target[CommonAttributes::properties.key] = BuildProperties(child, depth + 1);
            return;
        }
        auto const element = Utilities::MakeSmart<DescriptionTree>();
        target.AddChild(element);
        Build(child, *element, depth + 1, inLoop);
    }

    Anything BuildProperties(pugi::xml_node const& node, std::size_t depth) {
        if (depth > limits_.depth)
            Fail(node.offset_debug(), Limits::Passed("depth", limits_.depth, "properties inside each other"));
        Charge(node);
        AttributeMap properties;
        std::size_t children = 0;
        for (pugi::xml_attribute const& attribute : node.attributes())
            properties[attribute.name()] = attribute.value();
        for (pugi::xml_node const& child : node.children())
            if (child.type() == pugi::node_element) {
                if (++children > limits_.attributesOfElement)
                    Fail(child.offset_debug(),
                         Limits::Passed("attributesOfElement", limits_.attributesOfElement,
                                        "properties of one map"));
                properties[child.name()] = BuildProperties(child, depth + 1);
            }
        return {properties};
    }

    KnownAttributes& FindKnown(pugi::xml_node const& node, std::string_view type) {
        if (auto const found = known_.find(type); found != known_.end()) return found->second;
        AttributeTable const* const table = AttributeTable::Find(type);
        bool const isPart = table && table->GetKind() == AttributeTable::Kind::Part;
        if (!isPart && !Utilities::NamingService::Instance()->IsRegistered(type))
            Fail(node.offset_debug(), "there is no component named \"" + std::string(type) + "\"" +
                                          Suggestion(type, ComponentNames()));
        auto attributes = AttributeTable::Collect(type);
        if (attributes.empty()) attributes = AttributeTable::Collect("GUIElement");
        KnownAttributes known;
        for (Attribute const& attribute : attributes) known.all.emplace_back(attribute);
        known.isPattern = table && table->GetKind() == AttributeTable::Kind::Pattern;
        return known_.emplace(type, std::move(known)).first->second;
    }

    void Check(pugi::xml_node const& node, KnownAttributes& known, pugi::xml_attribute const& attribute,
               bool inLoop) const {
        KnownAttributes::Known* const found = known.Find(attribute.name());
        if (!found) {
            // Each costs a search for a name that is near.
            if (remarks_ > mostRemarks) return;
            if (remarks_ == mostRemarks) Report(node, "further remarks on this description are left out");
            if (remarks_++ == mostRemarks) return;
            std::vector<std::string> names;
            for (auto const& one : known.all) names.emplace_back(one.name);
            Report(node, std::string("<") + node.name() + "> has no attribute \"" + attribute.name() + "\"" +
                             Suggestion(attribute.name(), names));
            return;
        }
        if (!found->hasEffect)
            Report(node, std::string("the attribute \"") + attribute.name() + "\" of <" + node.name() +
                             ">: " + found->meaning);
        if (inLoop || found->readable == attribute.value()) return;
        if (!IsReadable(*found, attribute.value()))
            Fail(node.offset_debug(), std::string("the attribute \"") + attribute.name() + "\" of <" +
                                          node.name() + "> is \"" + attribute.value() + "\"; expected " +
                                          Expected(*found));
        found->readable = attribute.value();
    }

    std::string_view text_;
    std::string const& file_;
    Limits const& limits_ = Limits::Get();
    static constexpr int mostRemarks = 100;
    mutable int remarks_ = 0;
    mutable std::size_t countedTo_ = 0;
    mutable long countedLine_ = 1;
    std::unordered_map<std::string, long> names_;
    std::map<std::string, KnownAttributes, std::less<>> known_;
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
    auto const largest = Limits::Get().descriptionBytes;
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure))
        throw DescriptionException(path.string(), 0, 0, "there is no such description file");
    if (std::filesystem::file_size(path, failure) > largest && !failure)
        throw DescriptionException(path.string(), 0, 0, Limits::Passed("descriptionBytes", largest, "bytes"));
    auto const file = Utilities::ReadWholeFile(path.string(), largest);
    if (file.state != Utilities::FileState::Read)
        throw DescriptionException(path.string(), 0, 0, "the description can't be read");
    return Parse(file.contents, path.string());
}

DescriptionTree GUIDescriptionReader::Parse(std::string_view text, std::string const& name) {
    TreeBuilder builder(text, name);
    Limits const& limits = Limits::Get();
    if (text.size() > limits.descriptionBytes)
        builder.Fail(0, Limits::Passed("descriptionBytes", limits.descriptionBytes, "bytes"));
    if (auto const excess = Utilities::FindXmlExcess(text, limits.elements, "elements", limits.attributes))
        builder.Fail(static_cast<std::ptrdiff_t>(excess->offset), excess->reason);
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
    builder.Build(root, tree, 1, false);
    return tree;
}

} // namespace GUI
