// docs/components.md is made of the attribute tables of the components; this holds it to them.
#include "Utilities/NamingService.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/description/Attributes.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace {

std::string Escaped(std::string text) {
    for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos; at += 2) text.insert(at, "\\");
    return text;
}

char const* NameOf(GUI::AttributeType type) {
    switch (type) {
    case GUI::AttributeType::Flag:
        return "Yes, No";
    case GUI::AttributeType::Number:
        return "number";
    case GUI::AttributeType::Colour:
        return "colour";
    case GUI::AttributeType::ElementName:
        return "element name";
    case GUI::AttributeType::ImageName:
        return "image name";
    case GUI::AttributeType::Map:
        return "map";
    default:
        return "text";
    }
}

/// The gallery's pictures by component, in the order of their names.
std::map<std::string, std::set<std::string>> Pictures() {
    std::map<std::string, std::set<std::string>> pictures;
    for (auto const& file : std::filesystem::directory_iterator(GALLERY)) {
        std::string const name = file.path().stem().string();
        pictures[name.substr(0, name.find('.'))].insert(name);
    }
    return pictures;
}

std::string Reference() {
    auto const pictures = Pictures();
    // By name: the order of loading is no matter of the reader's.
    std::map<std::string, GUI::AttributeTable const*> tables;
    for (auto const* const table : GUI::AttributeTable::GetAll())
        tables.emplace(table->GetComponent(), table);
    std::ostringstream text;
    text
        << "# Elements and their attributes\n\n"
           "Made from the attribute tables of the components by the test `component_reference_tests`, which\n"
           "also checks that this page is current. An element has the attributes of the one it extends "
           "too.\nThe pictures are the gallery's, of `colourdesk --gallery`.\n";
    for (auto const& [name, table] : tables) {
        text << "\n## " << name << "\n\n";
        if (table->GetBase()) text << "Extends " << table->GetBase()->GetComponent() << ".";
        if (table->GetKind() == GUI::AttributeTable::Kind::Part) text << " Read by its parent; no element.";
        auto const shown = pictures.find(std::string(name));
        if (shown != pictures.end()) {
            text << "\n\n";
            for (auto const& picture : shown->second)
                text << "![" << picture << "](gallery/" << picture << ".png)\n";
        }
        if (table->GetAttributes().empty()) {
            text << (shown != pictures.end() ? "\n" : " ") << "No attributes of its own.\n";
            continue;
        }
        text << (shown != pictures.end() ? "\n" : "\n\n")
             << "| Attribute | Value | Default | Meaning |\n|---|---|---|---|\n";
        for (auto const& attribute : table->GetAttributes())
            text << "| " << attribute.key << " | " << NameOf(attribute.type) << " | "
                 << (attribute.mandatory ? "mandatory" : Escaped(attribute.defaultValue)) << " | "
                 << Escaped(attribute.meaning) << " |\n";
    }
    return text.str();
}

} // namespace

TEST(ComponentReference, IsCurrent) {
    Utilities::Plugin const plugin(Utilities::GetModulePath("NorvelianGui"));
    std::string const expected = Reference();
    std::ofstream(GENERATED) << expected;
    std::ifstream file(REFERENCE);
    std::stringstream committed;
    committed << file.rdbuf();
    EXPECT_EQ(committed.str(), expected) << "Copy " << GENERATED << " to " << REFERENCE;
}
