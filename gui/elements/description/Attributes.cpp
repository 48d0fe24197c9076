#include "gui/elements/description/Attributes.h"

#include <algorithm>

namespace GUI {

using Utilities::String;

namespace {

std::vector<AttributeTable const*>& Tables() {
    static std::vector<AttributeTable const*> tables;
    return tables;
}

/// Tables of nodes that are no elements: asked about for each child that is created.
int partCount = 0;

} // namespace

AttributeTable::AttributeTable(char const* component, AttributeTable const* base,
                               std::span<Attribute const> attributes, Kind kind)
    : component_(component), base_(base), attributes_(attributes), kind_(kind) {
    if (kind == Kind::Part) ++partCount;
    Tables().push_back(this);
}

AttributeTable::~AttributeTable() {
    std::erase(Tables(), this);
    if (kind_ == Kind::Part) --partCount;
}

bool AttributeTable::IsPartOfElement(std::string_view name) {
    if (partCount == 0) return false;
    AttributeTable const* const table = Find(name);
    return table && table->kind_ == Kind::Part;
}

AttributeTable const* AttributeTable::Find(std::string_view component) {
    auto const& tables = Tables();
    auto const found = std::find_if(tables.begin(), tables.end(), [component](auto const* table) {
        return table->component_ == component;
    });
    return found == tables.end() ? nullptr : *found;
}

std::vector<AttributeTable const*> const& AttributeTable::GetAll() { return Tables(); }

std::vector<Attribute> AttributeTable::Collect(std::string_view component) {
    std::vector<Attribute> collected;
    for (AttributeTable const* table = Find(component); table; table = table->base_) {
        // A key that a derived element restates keeps its meaning there.
        std::vector<Attribute> level(table->attributes_.begin(), table->attributes_.end());
        std::erase_if(level, [&collected](Attribute const& candidate) {
            return std::any_of(collected.begin(), collected.end(), [&candidate](Attribute const& known) {
                return std::string_view(known.key) == candidate.key;
            });
        });
        collected.insert(collected.begin(), level.begin(), level.end());
    }
    return collected;
}

String const* AttributeReader::Find(Attribute const& attribute) const {
    if (attribute.mandatory) return &attributes_[attribute.key].GetString();
    auto const* const found = attributes_.FindValue(attribute.key);
    return found ? &found->GetString() : nullptr;
}

bool AttributeReader::Is(Attribute const& attribute, char const* text) const {
    String const* const found = Find(attribute);
    return found ? *found == text : std::string_view(attribute.defaultValue) == text;
}

String AttributeReader::Text(Attribute const& attribute) const {
    String const* const found = Find(attribute);
    return found ? *found : String(attribute.defaultValue);
}

long AttributeReader::Long(Attribute const& attribute) const {
    String const* const found = Find(attribute);
    return found ? found->GetLong() : String(attribute.defaultValue).GetLong();
}

unsigned long AttributeReader::Unsigned(Attribute const& attribute) const {
    String const* const found = Find(attribute);
    return found ? found->GetUnsignedLong() : String(attribute.defaultValue).GetUnsignedLong();
}

double AttributeReader::Number(Attribute const& attribute) const {
    String const* const found = Find(attribute);
    return found ? found->GetDouble() : String(attribute.defaultValue).GetDouble();
}

bool AttributeReader::HasColour(Attribute const& attribute) const {
    auto const* const found = attributes_.FindValue(attribute.key);
    return found && (!found->IsOfTypeString() || found->GetString().Length() != 0);
}

RGBVector AttributeReader::Colour(Attribute const& attribute) const {
    auto const* const found = attributes_.FindValue(attribute.key);
    if (found) return RGBVector(*found);
    String const* const text = Find(attribute);
    return RGBVector(text ? *text : String(attribute.defaultValue));
}

} // namespace GUI
