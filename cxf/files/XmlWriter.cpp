#include "cxf/files/XmlWriter.h"

#include "cxf/conditions/Numbers.h"
#include "cxf/files/Utf8.h"
#include "cxf/files/XmlNames.h"
#include "cxf/files/XmlText.h"

#include <algorithm>
#include <pugixml.hpp>

namespace Norvelian::ColorExchangeFormat {

using Tristim::Numbers::Shortest;
using namespace Tristim::Vocabulary;

namespace {

void Set(pugi::xml_node node, char const* name, std::string const& value) {
    node.append_attribute(name).set_value(ToValidUtf8(value).c_str());
}
void SetUnlessEmpty(pugi::xml_node node, char const* name, std::string const& value) {
    if (!value.empty()) Set(node, name, value);
}

void AppendMarkup(pugi::xml_node node, std::string const& markup) {
    std::string const valid = ToValidUtf8(markup);
    node.append_buffer(valid.data(), valid.size(),
                       pugi::parse_default | pugi::parse_comments | pugi::parse_pi, pugi::encoding_utf8);
}
void Append(pugi::xml_node node, ForeignParts const& parts) {
    for (auto const& [name, value] : parts.attributes) Set(node, name.c_str(), value);
    AppendMarkup(node, parts.children);
}

void AppendConditions(pugi::xml_node node, Conditions const& conditions) {
    if (conditions.IsEmpty()) return;
    pugi::xml_node list = node.append_child(Xml::Conditions);
    for (auto const& [key, value] : conditions.GetAll()) {
        pugi::xml_node condition = list.append_child(Xml::Condition);
        Set(condition, Xml::Name, key);
        Set(condition, Xml::Value, value);
        SetUnlessEmpty(condition, Xml::Assumed, conditions.GetMeasureConditions().GetAssumption(key));
    }
}

void AppendValues(pugi::xml_node node, std::vector<double> const& values) {
    std::string text;
    for (double const value : values) {
        if (!text.empty()) text += ' ';
        text += Shortest(value);
    }
    node.append_child(Xml::Values).append_child(pugi::node_pcdata).set_value(text.c_str());
}

void Append(pugi::xml_node parent, SampleAttribute const& attribute) {
    auto const* const unknown = dynamic_cast<UnknownSampleAttribute const*>(&attribute);
    if (unknown && unknown->IsMarkup()) {
        AppendMarkup(parent, unknown->GetText());
        return;
    }
    pugi::xml_node node = parent.append_child(attribute.GetType().c_str());
    if (unknown) {
        Set(node, Xml::Name, unknown->GetName());
        Set(node, Xml::Value, unknown->GetText());
    } else if (auto const* const spectrum = dynamic_cast<Spectrum const*>(&attribute)) {
        Set(node, Xml::First, Shortest(spectrum->GetFirst()));
        Set(node, Xml::Step, Shortest(spectrum->GetStep()));
        if (spectrum->MayExtrapolate()) Set(node, Xml::Extrapolate, Xml::Yes);
        // Numbers that look like percentages must not be read as such.
        auto const& values = spectrum->GetValues();
        if (*std::max_element(values.begin(), values.end()) > 2) Set(node, Xml::Scale, "1");
        AppendConditions(node, spectrum->GetConditions());
        AppendValues(node, spectrum->GetValues());
    } else if (auto const* const colour = dynamic_cast<ColorVector const*>(&attribute)) {
        AppendConditions(node, colour->GetConditions());
        AppendValues(node, colour->GetVector().GetExactValues());
    } else if (auto const* const recipe = dynamic_cast<Recipe const*>(&attribute)) {
        AppendConditions(node, recipe->GetConditions());
        for (Recipe::Ingredient const& ingredient : recipe->GetIngredients()) {
            pugi::xml_node item = node.append_child(Xml::Ingredient);
            Set(item, Xml::Name, ingredient.name);
            Set(item, Xml::Amount, Shortest(ingredient.amount));
            SetUnlessEmpty(item, Xml::Unit, ingredient.unit);
        }
    }
    Append(node, attribute.GetForeign());
}

void Append(pugi::xml_node parent, Sample const& sample) {
    pugi::xml_node node = parent.append_child(Format::Sample);
    Set(node, Xml::Name, sample.GetName());
    SetUnlessEmpty(node, Xml::Id, sample.GetId());
    SetUnlessEmpty(node, Xml::Description, sample.GetDescription());
    for (auto const& attribute : sample.GetSampleAttributes()) Append(node, *attribute);
    Append(node, sample.GetForeign());
}

} // namespace

std::string WriteXml(std::vector<SampleSetPointer> const& sets) {
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    Set(declaration, "version", "1.0");
    Set(declaration, "encoding", "UTF-8");
    pugi::xml_node root = document.append_child(Format::Name);
    Set(root, Xml::Version, Xml::VersionValue);
    for (SampleSetPointer const& set : sets) {
        pugi::xml_node node = root.append_child(Format::SampleSet);
        SetUnlessEmpty(node, Xml::Name, set->GetName());
        SetUnlessEmpty(node, Xml::Description, set->GetDescription());
        for (auto const& [key, value] : set->GetProperties()) {
            pugi::xml_node property = node.append_child(Xml::Property);
            Set(property, Xml::Name, key);
            Set(property, Xml::Value, value);
        }
        for (auto const& sample : set->GetSamples()) Append(node, *sample);
        Append(node, set->GetForeign());
    }
    for (SampleSetPointer const& set : sets) Append(root, set->GetFileForeign());
    XmlText text;
    document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.Take();
}

} // namespace Norvelian::ColorExchangeFormat
