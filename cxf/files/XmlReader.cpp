#include "cxf/files/XmlReader.h"

#include "Utilities/Limits.h"
#include "Utilities/XmlCost.h"
#include "cxf/conditions/Numbers.h"
#include "cxf/conditions/TristimException.h"
#include "cxf/files/AttributeNotes.h"
#include "cxf/files/ConditionWords.h"
#include "cxf/files/ReadProgress.h"
#include "cxf/files/Utf8.h"
#include "cxf/files/XmlNames.h"
#include "cxf/files/XmlText.h"

#include <algorithm>
#include <initializer_list>
#include <pugixml.hpp>
#include <set>
#include <utility>

namespace Norvelian::ColorExchangeFormat {

using ::Utilities::Limits;
using ::Utilities::MakeSmart;
using namespace Tristim::Vocabulary;

namespace {

/// The elements of a name; pugixml finds processing instructions by that name as well.
std::vector<pugi::xml_node> Elements(pugi::xml_node node, char const* name) {
    std::vector<pugi::xml_node> found;
    for (pugi::xml_node const child : node.children(name))
        if (child.type() == pugi::node_element) found.push_back(child);
    return found;
}

class Reader {
public:
    Reader(std::string_view text, std::string const& name, ReadOptions const& options)
        : text_(text), name_(name), options_(options), progress_(name, text.size(), options_) {}

    std::vector<SampleSetPointer> Run();

private:
    SampleSetPointer ReadSet(pugi::xml_node node);
    /// 100 if the set's spectra that don't say their scale are percentages, by the same evidence as in CGATS.
    double FindScale(pugi::xml_node set) const;
    void NoteSet(pugi::xml_node node, SampleSet const& set) const;
    ::Utilities::SmartPointer<Sample> ReadSample(pugi::xml_node node);
    Sample::AttributePointer ReadAttribute(pugi::xml_node node) const;
    Sample::AttributePointer ReadSpectrum(pugi::xml_node node) const;
    Sample::AttributePointer ReadRecipe(pugi::xml_node node) const;
    Conditions ReadConditions(pugi::xml_node node) const;
    std::vector<double> ReadValues(pugi::xml_node node) const;
    /// Adds the comments and processing instructions of a known child to the foreign parts.
    void KeepRemarks(pugi::xml_node list, ForeignParts& parts) const;
    void CheckCondition(pugi::xml_node node, std::string const& key, std::string const& value) const;
    /// The one element of a name, or none.
    pugi::xml_node OnlyElement(pugi::xml_node node, char const* name) const {
        auto const found = Elements(node, name);
        if (found.size() > 1) Fail(found[0], std::string("<") + node.name() + "> has " + name + " twice");
        return found.empty() ? pugi::xml_node() : found[0];
    }
    unsigned long LineAt(std::ptrdiff_t offset) const;
    void Note(ReadNote::Kind kind, pugi::xml_node node, std::string const& text) const;
    double Number(pugi::xml_node node, char const* attribute) const;
    std::string Text(pugi::xml_node node, char const* attribute) const;
    /// Everything beside the named attributes and children.
    ForeignParts Foreign(pugi::xml_node node, std::initializer_list<std::string_view> attributes,
                         std::initializer_list<std::string_view> children) const;

    [[noreturn]] void Fail(pugi::xml_node node, std::string const& reason) const {
        FailAt(node.offset_debug(), reason);
    }
    [[noreturn]] void FailAt(std::ptrdiff_t offset, std::string const& reason) const;

    std::string_view text_;
    std::string const& name_;
    ReadOptions options_;
    Limits const& limits_ = Limits::Get();
    ReadProgress progress_;
    std::size_t samples_ = 0;
    mutable std::size_t countedTo_ = 0;
    mutable unsigned long countedLine_ = 1;
    mutable std::set<std::pair<std::string, std::string>> checked_;
    double scale_ = 1; ///< of the set that is being read
};

bool Is(pugi::xml_node node, char const* name) { return std::string_view(node.name()) == name; }

std::string Markup(pugi::xml_node node) {
    XmlText text;
    node.print(text, "", pugi::format_raw);
    return text.Take();
}

void Reader::FailAt(std::ptrdiff_t offset, std::string const& reason) const {
    auto const before = text_.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)));
    // Without a line end, npos + 1 is 0.
    throw FileException(name_, LineAt(offset), before.size() - (before.rfind('\n') + 1) + 1, reason);
}

unsigned long Reader::LineAt(std::ptrdiff_t offset) const {
    // Positions are unknown in a document that was converted from another encoding.
    if (offset < 0) return 0;
    // Places are mostly asked for in the order of the text: each line is counted once.
    auto const end = static_cast<std::size_t>(offset);
    if (end < countedTo_) {
        countedTo_ = 0;
        countedLine_ = 1;
    }
    std::string_view const part = text_.substr(countedTo_, end - countedTo_);
    countedLine_ += static_cast<unsigned long>(std::count(part.begin(), part.end(), '\n'));
    countedTo_ = end;
    return countedLine_;
}

void Reader::Note(ReadNote::Kind kind, pugi::xml_node node, std::string const& text) const {
    if (options_.strict && (kind == ReadNote::Kind::Assumed || kind == ReadNote::Kind::Contradiction))
        Fail(node, std::string(ReadReport::NameOf(kind)) + ": " + text);
    if (options_.report) options_.report->Add(kind, LineAt(node.offset_debug()), text);
}

std::string Reader::Text(pugi::xml_node node, char const* attribute) const {
    if (pugi::xml_attribute const found = node.attribute(attribute)) return found.value();
    Fail(node, std::string("<") + node.name() + "> lacks the attribute " + attribute);
}

double Reader::Number(pugi::xml_node node, char const* attribute) const {
    double value = 0;
    std::string const text = Text(node, attribute);
    if (Tristim::Numbers::Parse(text, value)) return value;
    Fail(node, std::string("the attribute ") + attribute + " of <" + node.name() + "> is \"" + text +
                   "\"; expected a finite number");
}

ForeignParts Reader::Foreign(pugi::xml_node node, std::initializer_list<std::string_view> attributes,
                             std::initializer_list<std::string_view> children) const {
    ForeignParts parts;
    for (pugi::xml_attribute const attribute : node.attributes())
        if (std::find(attributes.begin(), attributes.end(), attribute.name()) == attributes.end())
            parts.attributes.emplace_back(attribute.name(), attribute.value());
    for (pugi::xml_node const child : node.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            Fail(child, std::string("text in <") + node.name() + ">; expected elements");
        if (child.type() == pugi::node_element &&
            std::find(children.begin(), children.end(), child.name()) != children.end())
            continue;
        parts.children += Markup(child);
    }
    return parts;
}

std::vector<SampleSetPointer> Reader::Run() {
    if (auto const excess =
            ::Utilities::FindXmlExcess(text_, limits_.fileElements, "fileElements", limits_.attributes))
        FailAt(static_cast<std::ptrdiff_t>(excess->offset), excess->reason);
    pugi::xml_document document;
    pugi::xml_parse_result const result = document.load_buffer(
        text_.data(), text_.size(), pugi::parse_default | pugi::parse_comments | pugi::parse_pi,
        pugi::encoding_auto);
    if (!result) FailAt(result.offset, std::string("the file is no XML: ") + result.description());
    pugi::xml_node const root = document.document_element();
    if (!Is(root, Format::Name)) Fail(root, std::string("the root is <") + root.name() + ">; expected <CXF>");
    if (std::string const version = Text(root, Xml::Version); version != Xml::VersionValue)
        Fail(root, "the format's version is \"" + version + "\"; expected \"1\"");
    std::vector<SampleSetPointer> sets;
    for (pugi::xml_node const child : Elements(root, Format::SampleSet)) sets.push_back(ReadSet(child));
    if (!sets.empty()) sets.front()->SetFileForeign(Foreign(root, {Xml::Version}, {Format::SampleSet}));
    std::erase_if(sets, [](SampleSetPointer const& set) { return set->GetSamples().empty(); });
    return sets;
}

double Reader::FindScale(pugi::xml_node set) const {
    double highest = 0;
    pugi::xml_node found;
    for (pugi::xml_node const sample : Elements(set, Format::Sample))
        for (pugi::xml_node const spectrum : Elements(sample, Format::Spectrum)) {
            std::string const type = ReadConditions(spectrum).GetAttribute(Key::SpectrumType, "Remission");
            if (!OnlyElement(spectrum, Xml::Values)) continue;
            if (spectrum.attribute(Xml::Scale) || (type != "Remission" && type != "Transmission")) continue;
            if (!found) found = spectrum;
            for (double const value : ReadValues(spectrum)) highest = std::max(highest, value);
        }
    if (!found) return 1;
    bool const percent = highest > 2;
    if (percent) Note(ReadNote::Kind::Assumed, found, "spectra in percent: a value is above 2");
    return percent ? 100 : 1;
}

void Reader::NoteSet(pugi::xml_node node, SampleSet const& set) const {
    if (!options_.report && !options_.strict) return;
    Note(ReadNote::Kind::Taken, node,
         "set \"" + set.GetName() + "\" of " + std::to_string(set.GetSamples().size()) + " samples");
    // One note for each kind of attribute, not one for each sample.
    std::set<std::pair<ReadNote::Kind, std::string>> said;
    auto sample = set.GetSamples().begin();
    for (pugi::xml_node const child : Elements(node, Format::Sample)) {
        // Each element of a sample has become one attribute.
        auto attribute = (*sample++)->GetSampleAttributes().begin();
        for (pugi::xml_node const part : child.children()) {
            if (part.type() != pugi::node_element) continue;
            bool const stated = std::string_view(part.attribute(Xml::Extrapolate).value()) == Xml::Yes;
            for (auto const& note : NotesOf(**attribute, !stated))
                if (said.insert(note).second) Note(note.first, part, note.second);
            ++attribute;
        }
    }
}

SampleSetPointer Reader::ReadSet(pugi::xml_node node) {
    scale_ = FindScale(node);
    auto set = MakeSmart<SampleSet>();
    set->SetName(node.attribute(Xml::Name).value());
    set->SetDescription(node.attribute(Xml::Description).value());
    set->SetForeign(Foreign(node, {Xml::Name, Xml::Description}, {Xml::Property, Format::Sample}));
    for (pugi::xml_node const child : Elements(node, Xml::Property))
        set->AddProperty(Text(child, Xml::Name), Text(child, Xml::Value));
    for (pugi::xml_node const child : Elements(node, Format::Sample)) set->AddSample(ReadSample(child));
    NoteSet(node, *set);
    return set;
}

::Utilities::SmartPointer<Sample> Reader::ReadSample(pugi::xml_node node) {
    if (samples_++ == limits_.samples) Fail(node, Limits::Passed("samples", limits_.samples, "samples"));
    if (node.offset_debug() > 0)
        progress_.Advance(text_.size(), static_cast<std::size_t>(node.offset_debug()));
    auto sample = MakeSmart<Sample>(Text(node, Xml::Name), node.attribute(Xml::Description).value());
    sample->SetId(node.attribute(Xml::Id).value());
    ForeignParts foreign = Foreign(node, {Xml::Name, Xml::Description, Xml::Id}, {});
    // Foreign elements are among the sample's attributes; what isn't an element stays with the sample.
    foreign.children.clear();
    for (pugi::xml_node const child : node.children()) {
        if (child.type() != pugi::node_element) {
            foreign.children += Markup(child);
            continue;
        }
        try {
            sample->AddSampleAttribute(ReadAttribute(child));
        } catch (Tristim::TristimException const& failure) {
            Fail(child, failure.what());
        }
    }
    sample->SetForeign(std::move(foreign));
    return sample;
}

Sample::AttributePointer Reader::ReadAttribute(pugi::xml_node node) const {
    if (Is(node, Format::Spectrum)) return ReadSpectrum(node);
    if (Is(node, Format::Recipe)) return ReadRecipe(node);
    if (Is(node, Format::ColorVector)) {
        auto colour = MakeSmart<ColorVector>(ReadValues(node), ReadConditions(node));
        ForeignParts foreign = Foreign(node, {}, {Xml::Conditions, Xml::Values});
        KeepRemarks(OnlyElement(node, Xml::Conditions), foreign);
        KeepRemarks(OnlyElement(node, Xml::Values), foreign);
        colour->SetForeign(std::move(foreign));
        return colour;
    }
    if (Is(node, Format::UnknownSampleAttribute)) {
        auto unknown = MakeSmart<UnknownSampleAttribute>(Text(node, Xml::Name), Text(node, Xml::Value));
        unknown->SetForeign(Foreign(node, {Xml::Name, Xml::Value}, {}));
        return unknown;
    }
    for (char const* const misplaced : {Format::Name, Format::SampleSet, Format::Sample})
        if (Is(node, misplaced)) Fail(node, std::string("<") + misplaced + "> is inside a sample");
    return MakeSmart<UnknownSampleAttribute>(node.name(), Markup(node), true);
}

Sample::AttributePointer Reader::ReadSpectrum(pugi::xml_node node) const {
    std::string const extrapolate = node.attribute(Xml::Extrapolate).value();
    if (!extrapolate.empty() && extrapolate != Xml::Yes && extrapolate != Xml::No)
        Fail(node, "the attribute Extrapolate is \"" + extrapolate + "\"; expected Yes or No");
    bool const may = options_.allowExtrapolation || extrapolate == Xml::Yes;
    double const first = Number(node, Xml::First);
    double const step = Number(node, Xml::Step);
    double const scale = node.attribute(Xml::Scale) ? Number(node, Xml::Scale) : scale_;
    if (!(scale > 0)) Fail(node, "the attribute Scale isn't positive");
    std::vector<double> values = ReadValues(node);
    Conditions const conditions = ReadConditions(node);
    std::string const type = conditions.GetAttribute(Key::SpectrumType, "Remission");
    bool const scaled = node.attribute(Xml::Scale) || type == "Remission" || type == "Transmission";
    if (scaled && scale != 1)
        for (double& value : values) value /= scale;
    auto spectrum = MakeSmart<Spectrum>(first, step, std::move(values), conditions, may);
    ForeignParts foreign =
        Foreign(node, {Xml::First, Xml::Step, Xml::Extrapolate, Xml::Scale}, {Xml::Conditions, Xml::Values});
    KeepRemarks(OnlyElement(node, Xml::Conditions), foreign);
    KeepRemarks(OnlyElement(node, Xml::Values), foreign);
    spectrum->SetForeign(std::move(foreign));
    // Missing bands and unknown conditions must show now, and not when the spectrum is drawn.
    static_cast<void>(Extensions::Cxf2NV(*spectrum));
    return spectrum;
}

Sample::AttributePointer Reader::ReadRecipe(pugi::xml_node node) const {
    std::vector<Recipe::Ingredient> ingredients;
    for (pugi::xml_node const child : Elements(node, Xml::Ingredient)) {
        ingredients.push_back(
            {Text(child, Xml::Name), Number(child, Xml::Amount), child.attribute(Xml::Unit).value()});
        if (!Foreign(child, {Xml::Name, Xml::Amount, Xml::Unit}, {}).IsEmpty())
            Fail(child, "<Ingredient> has more than Name, Amount and Unit");
    }
    auto recipe = MakeSmart<Recipe>(std::move(ingredients));
    recipe->SetConditions(ReadConditions(node));
    ForeignParts foreign = Foreign(node, {}, {Xml::Conditions, Xml::Ingredient});
    KeepRemarks(OnlyElement(node, Xml::Conditions), foreign);
    recipe->SetForeign(std::move(foreign));
    return recipe;
}

Conditions Reader::ReadConditions(pugi::xml_node node) const {
    Conditions conditions;
    pugi::xml_node const list = OnlyElement(node, Xml::Conditions);
    for (pugi::xml_node const child : list.children()) {
        if (child.type() == pugi::node_comment || child.type() == pugi::node_pi) continue;
        if (!Is(child, Xml::Condition)) Fail(child, "a foreign part in <Conditions>; expected <Condition>");
        // Conditions are kept and written in the order of their keys, which are valid text when they are
        // written.
        std::string const key = ToValidUtf8(Text(child, Xml::Name));
        if (conditions.GetAll().contains(key)) Fail(child, "the condition " + key + " is given twice");
        std::string const value = Text(child, Xml::Value);
        CheckCondition(child, key, value);
        std::string const by = child.attribute(Xml::Assumed).value();
        if (by.empty())
            conditions.SetAttribute(key, value);
        else
            conditions.Assume(key, value, by);
    }
    if (conditions.GetAttribute(Key::Illumination, "").empty()) return conditions;
    try {
        static_cast<void>(Tristim::ViewingOf(conditions.GetMeasureConditions()));
    } catch (Tristim::TristimException const& failure) {
        Fail(list, failure.what());
    }
    return conditions;
}

void Reader::CheckCondition(pugi::xml_node node, std::string const& key, std::string const& value) const {
    // The thousands of colours of a file have the same conditions.
    if (checked_.contains({key, value})) return;
    try {
        RequireKnownValue(key, value);
    } catch (Tristim::TristimException const& failure) {
        Fail(node, failure.what());
    }
    checked_.emplace(key, value);
}

void Reader::KeepRemarks(pugi::xml_node list, ForeignParts& parts) const {
    for (pugi::xml_node const child : list.children())
        if (child.type() == pugi::node_comment || child.type() == pugi::node_pi)
            parts.children += Markup(child);
}

std::vector<double> Reader::ReadValues(pugi::xml_node node) const {
    pugi::xml_node const list = OnlyElement(node, Xml::Values);
    if (!list) Fail(node, std::string("<") + node.name() + "> lacks <Values>");
    std::vector<double> values;
    // Remarks between the numbers cut the text into pieces; between two of them a blank may have been
    // dropped.
    std::string text;
    std::size_t remarks = 0;
    for (pugi::xml_node const child : list.children()) {
        if (child.type() == pugi::node_element)
            Fail(child, std::string("<") + child.name() + "> in <Values>; expected numbers");
        if (child.type() != pugi::node_pcdata && child.type() != pugi::node_cdata) {
            ++remarks;
            continue;
        }
        if (remarks > 1) text += ' ';
        remarks = 0;
        text += child.value();
    }
    std::string_view rest = text;
    constexpr std::string_view blanks = " \t\r\n";
    while (true) {
        auto const begin = rest.find_first_not_of(blanks);
        if (begin == std::string_view::npos) return values;
        rest.remove_prefix(begin);
        std::string_view const word = rest.substr(0, rest.find_first_of(blanks));
        double value = 0;
        if (!Tristim::Numbers::Parse(word, value))
            Fail(list, "\"" + std::string(word) + "\" in <Values>" +
                           (Tristim::Numbers::HasDecimalComma(word)
                                ? " has a decimal comma; expected a decimal point"
                                : "; expected a finite number"));
        if (values.size() == limits_.fields)
            Fail(list, Limits::Passed("fields", limits_.fields, "numbers of one spectrum or colour"));
        values.push_back(value);
        rest.remove_prefix(word.size());
    }
}

} // namespace

std::vector<SampleSetPointer> ReadXml(std::string_view text, std::string const& name,
                                      ReadOptions const& options) {
    return Reader(text, name, options).Run();
}

} // namespace Norvelian::ColorExchangeFormat
