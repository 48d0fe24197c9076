#include "hosts/languagecheck/LanguageCheck.h"

#include <algorithm>
#include <cctype>
#include <pugixml.hpp>
#include <string_view>

namespace LanguageCheck {

namespace {

std::size_t LineAt(std::string_view contents, std::size_t offset) {
    auto const end = contents.begin() + static_cast<std::ptrdiff_t>(std::min(offset, contents.size()));
    return 1 + static_cast<std::size_t>(std::count(contents.begin(), end, '\n'));
}

/// Some attributes are no text in some elements: captions that name images, what a field contains.
bool IsTranslated(pugi::xml_node const& node, std::string_view attribute) {
    auto const& names = TranslatedAttributes();
    if (std::find(names.begin(), names.end(), attribute) == names.end()) return false;
    std::string_view const element = node.name();
    if (attribute == "Text") return element != "Edit";
    bool const isImage =
        element.ends_with("ImageButton") || std::string_view(node.attribute("BitmapButton").value()) == "Yes";
    return attribute != "Caption" || !isImage;
}

std::vector<UsedKey> FromDescription(std::string const& file, std::string const& contents,
                                     std::vector<Finding>& findings) {
    std::vector<UsedKey> used;
    pugi::xml_document document;
    auto const result =
        document.load_buffer(contents.data(), contents.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result) {
        findings.push_back(
            {file, LineAt(contents, static_cast<std::size_t>(result.offset)), result.description()});
        return used;
    }
    struct Walker : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node& node) override {
            for (auto const& attribute : node.attributes()) {
                if (!*attribute.value() || !IsTranslated(node, attribute.name())) continue;
                auto const start = static_cast<std::size_t>(node.offset_debug());
                auto const place = contents->find(std::string(attribute.name()) + "=", start);
                used->push_back(
                    {*file, LineAt(*contents, std::min(place, contents->size())), attribute.value()});
            }
            return true;
        }
        std::string const* file = nullptr;
        std::string const* contents = nullptr;
        std::vector<UsedKey>* used = nullptr;
    } walker;
    walker.file = &file;
    walker.contents = &contents;
    walker.used = &used;
    document.traverse(walker);
    return used;
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    while (at < text.size() && std::isspace(static_cast<unsigned char>(text[at]))) ++at;
    return at;
}

/// One literal that begins at its quote; appends what it means and returns the position behind it, or
/// npos if it doesn't end on its line.
std::size_t ReadLiteral(std::string_view text, std::size_t at, std::string& meaning) {
    for (++at; at < text.size() && text[at] != '\n'; ++at) {
        if (text[at] == '"') return at + 1;
        if (text[at] != '\\') {
            meaning += text[at];
            continue;
        }
        if (++at == text.size()) break;
        meaning += text[at] == 'n' ? '\n' : text[at] == 't' ? '\t' : text[at];
    }
    return std::string_view::npos;
}

std::vector<UsedKey> FromSource(std::string const& file, std::string const& contents) {
    constexpr std::string_view call = "GetTranslation(";
    std::vector<UsedKey> used;
    for (auto found = contents.find(call); found != std::string::npos;
         found = contents.find(call, found + 1)) {
        std::string key;
        std::size_t at = SkipBlanks(contents, found + call.size());
        // Literals beside each other are one.
        while (at < contents.size() && contents[at] == '"') {
            at = ReadLiteral(contents, at, key);
            if (at == std::string_view::npos) break;
            at = SkipBlanks(contents, at);
        }
        bool const isWhole = at < contents.size() && (contents[at] == ')' || contents[at] == ',');
        if (isWhole && !key.empty()) used.push_back({file, LineAt(contents, found), key});
    }
    return used;
}

} // namespace

std::vector<std::string> const& TranslatedAttributes() {
    static std::vector<std::string> const names{"Caption",        "Text",        "ToolTipText",
                                                "AccessibleName", "Placeholder", "ValidationText"};
    return names;
}

std::vector<UsedKey> ExtractKeys(std::string const& file, std::string const& contents,
                                 std::vector<Finding>& findings) {
    return file.ends_with(".xml") ? FromDescription(file, contents, findings) : FromSource(file, contents);
}

} // namespace LanguageCheck
