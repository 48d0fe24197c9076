#include "gui/layout/LoopBox.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/LoopBoxCalculator.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace GUI {

using Norvelian::Utilities::Exceptions::OutOfRangeException;
using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::Anything;
using Utilities::Limits;
using Utilities::String;

namespace {

constexpr Attribute repetitionsKey{"Repetitions", AttributeType::Number, "1", "Number of passes"};
constexpr Attribute counterVariableKey{"CounterVariable", AttributeType::Text, "",
                                       "Text that is replaced by the counter in the children's attributes"};
constexpr Attribute baseKey{"Base", AttributeType::Number, "0", "Counter of the first pass"};
constexpr Attribute ownAttributes[] = {repetitionsKey, counterVariableKey, baseKey};
constexpr auto attributeList =
    CommonAttributes::WithUnusedSizes(ownAttributes, "No effect: the loop itself takes no space");

ElementRegistration<LoopBox, GUIElement> const registration({"LoopBox", "$Revision: 1.7 $", "GUI"},
                                                            attributeList, AttributeTable::Kind::Pattern);

/// What the passes of one loop have in common.
struct Loop {
    std::uint32_t repetitions = 1;
    std::uint32_t base = 0;
    String counterVariable;

    void Read(DescriptionTree const& description, String const& name);
    void Negotiate(DialogDataSource* dataSource, String const& name);
};

void Loop::Read(DescriptionTree const& description, String const& name) {
    try {
        AttributeReader const attributes(description);
        repetitions = static_cast<std::uint32_t>(attributes.Long(repetitionsKey));
        counterVariable = attributes.Text(counterVariableKey);
        base = static_cast<std::uint32_t>(attributes.Long(baseKey));
    } catch (...) {
        Diagnostics::String text("Not all attributes for GUIElement are defined or false:");
        text += name.GetValueString();
        Diagnostics::Report("LoopBox::Initialize", text);
    }
}

void Loop::Negotiate(DialogDataSource* dataSource, String const& name) {
    auto const number = [](std::uint32_t value) {
        return Anything(static_cast<long>(static_cast<std::int32_t>(value)));
    };
    try {
        if (dataSource) {
            Anything const wanted = dataSource->GetValue(name, repetitionsKey.key);
            if (wanted.IsValid()) repetitions = static_cast<std::uint32_t>(wanted.GetLong());
        }
        if (repetitions < 1) repetitions = 1;
        if (dataSource) {
            dataSource->SetValue(name, repetitionsKey.key, number(repetitions));
            dataSource->SetValue(name, baseKey.key, number(base));
        }
    } catch (...) {
        Diagnostics::DropException("LoopBox::Initialize");
    }
}

[[noreturn]] void Refuse(DescriptionTree const& description, std::string const& reason) {
    String const name = AttributeReader(description).Text(CommonAttributes::elementName);
    std::string const place = description.GetName() == " " ? "" : description.GetName().GetStdString() + ": ";
    throw RuntimeException(place + "LoopBox \"" + name.GetStdString() + "\": " + reason);
}

/// What a part of a description makes. Products of counts soon pass every integer.
struct Cost {
    double elements = 0;
    double bytes = 0;
};

double BytesOf(Anything const& value) {
    if (value.IsOfTypeString()) return static_cast<double>(value.GetString().Length());
    double bytes = 0;
    if (value.IsOfTypeMap())
        for (auto it = value.GetMapOfAnythings().Begin(); it.IsValid(); ++it) bytes += BytesOf(it.GetValue());
    return bytes;
}

/// How often a loop inside another one says that it runs; once if its count is a formula.
double StatedRepetitions(DescriptionTree const& node) {
    AttributeReader const attributes(node);
    if (!(attributes.Text(CommonAttributes::elementType) == "LoopBox")) return 1;
    try {
        return std::max<double>(1, static_cast<std::uint32_t>(attributes.Long(repetitionsKey)));
    } catch (OutOfRangeException const&) {
        return 1;
    }
}

/// Of one pass over the node's children.
Cost CostOfPass(DescriptionTree const& node) {
    Cost cost;
    for (auto child = node.GetChildren(); child.IsValid(); ++child) {
        AttributeMap const& attributes = *child.Current();
        for (auto it = attributes.Begin(); it.IsValid(); ++it) cost.bytes += BytesOf(it.GetValue());
        Cost const below = CostOfPass(*child.Current());
        double const passes = StatedRepetitions(*child.Current());
        cost.elements += 1 + passes * below.elements;
        cost.bytes += passes * below.bytes;
    }
    return cost;
}

/// Bytes of the texts that all living loops wrote.
std::size_t allBytes = 0;

/// Copies the children of a loop, pass by pass.
class Unroller {
public:
    Unroller(DescriptionTree const& loop, String const& variable, std::size_t& bytes)
        : loop_(loop), variable_(variable), bytes_(bytes) {}

    void Run(std::uint32_t counter, DescriptionTree& target) {
        counter_ = String(static_cast<unsigned long>(counter));
        Copy(loop_, target);
    }

private:
    /// Puts the counter into the texts of an attribute's value, those of a nested map included.
    Anything Unroll(Anything const& value) {
        if (value.IsOfTypeMap()) {
            AttributeMap copy(value.GetMapOfAnythings());
            for (auto it = copy.Begin(); it.IsValid(); ++it) it.GetValue() = Unroll(it.GetValue());
            return {copy};
        }
        if (!value.IsOfTypeString()) return value;
        String text = value.GetString();
        if (variable_.Length() != 0) text.Replace(variable_, counter_);
        if (!EvaluateLoopBoxFormula(text))
            Refuse(loop_, Limits::Passed("formulaSteps", Limits::Get().formulaSteps, "steps of one formula"));
        Charge(static_cast<std::size_t>(text.Length()));
        return {text};
    }

    void Charge(std::size_t length) {
        Limits const& limits = Limits::Get();
        if (length > limits.textLength)
            Refuse(loop_,
                   "an attribute grows to " + Limits::Passed("textLength", limits.textLength, "bytes"));
        if (allBytes + length > limits.unrolledBytes)
            Refuse(loop_, Limits::Passed("unrolledBytes", limits.unrolledBytes, "bytes written by loops"));
        allBytes += length;
        bytes_ += length;
    }

    void Copy(DescriptionTree const& source, DescriptionTree& target) {
        for (auto child = source.GetChildren(); child.IsValid(); ++child) {
            DescriptionTree const& original = *child.Current();
            auto const copy = Utilities::MakeSmart<DescriptionTree>();
            copy->SetName(original.GetName());
            AttributeMap const& attributes = original;
            for (auto it = attributes.Begin(); it.IsValid(); ++it)
                (*copy)[it.GetKey()] = Unroll(it.GetValue());
            target.AddChild(copy);
            Copy(original, *copy);
        }
    }

    DescriptionTree const& loop_;
    String const& variable_;
    std::size_t& bytes_;
    String counter_;
};

/// Moves the expansion's children into the parent's list, behind the loop's own entry.
void InsertBehind(DescriptionTree const& description, DescriptionTree& expansion) {
    DescriptionTree* const parent = description.GetParent();
    if (!parent) return;
    auto position = parent->GetChildren();
    while (position.IsValid() && position.Current().Get() != &description) ++position;
    if (!position.IsValid()) return;
    for (auto it = expansion.GetChildren(); it.IsValid(); ++it)
        parent->InsertChildAfter(position, it.Current());
}

void ChargeBeforehand(DescriptionTree const& description, double passes) {
    Limits const& limits = Limits::Get();
    Cost const pass = CostOfPass(description);
    std::string const runs = "its " + std::to_string(static_cast<unsigned long>(passes)) +
                             " repetitions, with the loops inside, make ";
    // A pass without children costs time all the same.
    if (static_cast<double>(GUIElement::GetLivingCount()) + passes * std::max(pass.elements, 1.0) >
        static_cast<double>(limits.elements))
        Refuse(description, runs + Limits::Passed("elements", limits.elements, "elements in all windows"));
    if (static_cast<double>(allBytes) + passes * pass.bytes > static_cast<double>(limits.unrolledBytes))
        Refuse(description,
               runs + Limits::Passed("unrolledBytes", limits.unrolledBytes, "bytes written by loops"));
}

} // namespace

LoopBox::~LoopBox() { allBytes -= bytes_; }

void LoopBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    Loop loop;
    loop.Read(description, GetElementName());
    loop.Negotiate(dataSource, GetElementName());
    if (auto const most = Limits::Get().counterVariable;
        static_cast<std::size_t>(loop.counterVariable.Length()) > most)
        Refuse(description, "the counter variable has " + Limits::Passed("counterVariable", most, "bytes"));
    ChargeBeforehand(description, loop.repetitions);

    DescriptionTree expansion;
    Unroller unroller(description, loop.counterVariable, bytes_);
    std::uint32_t const end = loop.repetitions + loop.base;
    for (std::uint32_t counter = loop.base; counter < end; ++counter) unroller.Run(counter, expansion);
    InsertBehind(description, expansion);
}

void LoopBox::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                 unsigned long& minimalHeight, unsigned long& maximalHeight) {
    minimalWidth = maximalWidth = minimalHeight = maximalHeight = 0;
}

} // namespace GUI
