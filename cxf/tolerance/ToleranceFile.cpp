#include "cxf/tolerance/ToleranceFile.h"

#include "Utilities/AtomicFile.h"
#include "cxf/colorimetry/TristimService.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/ConditionWords.h"
#include "cxf/files/SampleFile.h"
#include "cxf/files/Utf8.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <pugixml.hpp>
#include <sstream>

namespace Norvelian::ColorExchangeFormat {

using Tristim::TristimException;
using Tristim::Numbers::Parse;
using Tristim::Numbers::Shortest;
using namespace Tristim::Vocabulary;

namespace {

constexpr std::array<char const*, 3> kMatches{"Name", "Id", "Device"};

class Reader {
public:
    Reader(std::string_view text, std::string const& name) : text_(text), name_(name) {}

    ToleranceSet Run() {
        pugi::xml_document document;
        auto const result = document.load_buffer(text_.data(), text_.size());
        if (!result) FailAt(result.offset, std::string("the file is no XML: ") + result.description());
        pugi::xml_node const root = document.document_element();
        if (std::string_view(root.name()) != "ToleranceSet")
            Fail(root, std::string("the root is <") + root.name() + ">; expected <ToleranceSet>");
        Allow(root, {"Version", "Name", "Formula", "Weights", "Warning", "Match", "MatchDistance"});
        if (std::string_view(root.attribute("Version").value()) != "1")
            Fail(root, std::string("the format's version is \"") + root.attribute("Version").value() +
                           "\"; expected \"1\"");
        ToleranceSet set;
        set.name = root.attribute("Name").value();
        if (root.attribute("Warning")) set.warning = Number(root, "Warning");
        if (root.attribute("MatchDistance")) set.matchDistance = Number(root, "MatchDistance");
        ReadMatch(root, set);
        ReadWeights(root, set);
        for (pugi::xml_node const child : root.children()) {
            if (child.type() != pugi::node_element) Fail(child, "text in <ToleranceSet>; expected elements");
            if (std::string_view(child.name()) == "Limit")
                set.limits.push_back(ReadLimit(child));
            else if (std::string_view(child.name()) == "Conditions")
                ReadConditions(child, set);
            else
                Fail(child,
                     std::string("<") + child.name() + "> in <ToleranceSet>; expected Conditions or Limit");
        }
        if (root.attribute("Formula"))
            set.conditions.SetMeasureCondition(Key::DeltaEFormula, root.attribute("Formula").value());
        try {
            set.Validate();
        } catch (TristimException const& failure) {
            Fail(root, failure.what());
        }
        return set;
    }

private:
    [[noreturn]] void Fail(pugi::xml_node node, std::string const& reason) const {
        FailAt(node.offset_debug(), reason);
    }
    [[noreturn]] void FailAt(std::ptrdiff_t offset, std::string const& reason) const {
        if (offset < 0) throw FileException(name_, 0, 0, reason);
        std::string_view const before = text_.substr(0, static_cast<std::size_t>(offset));
        auto const line = static_cast<unsigned long>(std::count(before.begin(), before.end(), '\n'));
        auto const lineEnd = before.rfind('\n');
        std::size_t const column = before.size() - (lineEnd == std::string_view::npos ? 0 : lineEnd + 1);
        throw FileException(name_, line + 1, static_cast<unsigned long>(column) + 1, reason);
    }
    void Allow(pugi::xml_node node, std::initializer_list<std::string_view> names) const {
        for (pugi::xml_attribute const attribute : node.attributes())
            if (std::find(names.begin(), names.end(), attribute.name()) == names.end())
                Fail(node, std::string("<") + node.name() + "> has no attribute " + attribute.name());
    }
    double Number(pugi::xml_node node, char const* attribute) const {
        double value = 0;
        std::string const text = node.attribute(attribute).value();
        if (Parse(text, value)) return value;
        Fail(node, std::string("the attribute ") + attribute + " of <" + node.name() + "> is \"" + text +
                       "\"; expected a finite number");
    }
    void ReadMatch(pugi::xml_node node, ToleranceSet& set) const {
        std::string const text = node.attribute("Match").value();
        if (text.empty()) return;
        for (std::size_t i = 0; i < kMatches.size(); ++i) {
            if (text != kMatches[i]) continue;
            set.match = static_cast<MatchBy>(i);
            return;
        }
        Fail(node, "the attribute Match is \"" + text + "\"; expected Name, Id or Device");
    }
    void ReadWeights(pugi::xml_node node, ToleranceSet& set) const {
        std::istringstream words(node.attribute("Weights").value());
        std::string word;
        std::array<double*, 3> const places{&set.weights.first, &set.weights.second, &set.weights.third};
        std::size_t count = 0;
        while (words >> word) {
            double value = 0;
            if (count == places.size() || !Parse(word, value) || !(value >= 0))
                Fail(node, "the attribute Weights needs up to three numbers, 0 for the default");
            *places[count++] = value;
        }
    }
    ToleranceLimit ReadLimit(pugi::xml_node node) const {
        Allow(node, {"Component", "From", "To"});
        std::string const name = node.attribute("Component").value();
        auto const component = ComponentOf(name);
        if (!component)
            Fail(node,
                 "the component of a limit is \"" + name + "\"; expected dE, dL*, da*, db*, dC* or dH*");
        bool const total = *component == DifferenceComponent::Total;
        if (total && node.attribute("From")) Fail(node, "the limit of dE has no From");
        return {*component, total ? 0 : Number(node, "From"), Number(node, "To")};
    }
    void ReadConditions(pugi::xml_node node, ToleranceSet& set) const {
        for (pugi::xml_node const child : node.children()) {
            if (std::string_view(child.name()) != "Condition")
                Fail(child, "a foreign part in <Conditions>; expected <Condition>");
            Allow(child, {"Name", "Value"});
            std::string const key = child.attribute("Name").value();
            std::string const value = child.attribute("Value").value();
            // A misspelt condition would compare under another one than is meant.
            try {
                static_cast<void>(Tristim::TristimService::GetSupportedValues(key));
                RequireKnownValue(key, value);
            } catch (TristimException const& failure) {
                Fail(child, failure.what());
            }
            set.conditions.SetMeasureCondition(key, value);
        }
    }

    std::string_view text_;
    std::string const& name_;
};

} // namespace

ToleranceSet ParseToleranceSet(std::string_view text, std::string const& name) {
    return Reader(text, name).Run();
}

ToleranceSet ReadToleranceSet(std::string const& path) {
    return ParseToleranceSet(ReadFileBytes(path), path);
}

std::string FormatToleranceSet(ToleranceSet const& tolerance) {
    pugi::xml_document document;
    auto const set = [](pugi::xml_node node, char const* name, std::string const& value) {
        node.append_attribute(name).set_value(ToValidUtf8(value).c_str());
    };
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    set(declaration, "version", "1.0");
    set(declaration, "encoding", "UTF-8");
    pugi::xml_node root = document.append_child("ToleranceSet");
    set(root, "Version", "1");
    set(root, "Name", tolerance.name);
    std::string const formula = tolerance.conditions.GetMeasureCondition(Key::DeltaEFormula);
    if (!formula.empty()) set(root, "Formula", formula);
    std::string weights;
    // A zero keeps the place of those behind it.
    std::string zeros;
    for (double const weight : {tolerance.weights.first, tolerance.weights.second, tolerance.weights.third}) {
        zeros += (zeros.empty() && weights.empty() ? "" : " ") + Shortest(weight);
        if (weight == 0) continue;
        weights += zeros;
        zeros.clear();
    }
    if (!weights.empty()) set(root, "Weights", weights);
    set(root, "Warning", Shortest(tolerance.warning));
    set(root, "Match", kMatches[static_cast<std::size_t>(tolerance.match)]);
    if (tolerance.match == MatchBy::Device) set(root, "MatchDistance", Shortest(tolerance.matchDistance));
    pugi::xml_node conditions = root.append_child("Conditions");
    for (auto const& [key, value] : tolerance.conditions.GetAll()) {
        if (key == Key::DeltaEFormula) continue;
        pugi::xml_node condition = conditions.append_child("Condition");
        set(condition, "Name", key);
        set(condition, "Value", value);
    }
    for (ToleranceLimit const& limit : tolerance.limits) {
        pugi::xml_node node = root.append_child("Limit");
        set(node, "Component", NameOf(limit.component));
        if (limit.component != DifferenceComponent::Total) set(node, "From", Shortest(limit.from));
        set(node, "To", Shortest(limit.to));
    }
    std::ostringstream stream;
    document.save(stream, "  ", pugi::format_default, pugi::encoding_utf8);
    return stream.str();
}

void WriteToleranceSet(std::string const& path, ToleranceSet const& tolerance) {
    tolerance.Validate();
    try {
        ::Utilities::WriteFileAtomically(path, FormatToleranceSet(tolerance));
    } catch (Utilities::Exceptions::ResourceException const& failure) {
        std::string_view reason = failure.what();
        if (reason.starts_with(path + ": ")) reason.remove_prefix(path.size() + 2);
        throw FileException(path, 0, 0, std::string(reason));
    }
}

} // namespace Norvelian::ColorExchangeFormat
