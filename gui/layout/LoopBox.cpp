#include "gui/layout/LoopBox.h"

#include "Diagnostics/Sink.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/layout/LoopBoxCalculator.h"

namespace GUI {

using Norvelian::Utilities::Exceptions::RuntimeException;
using Utilities::Anything;
using Utilities::String;

namespace {

constexpr Attribute repetitionsKey{"Repetitions", AttributeType::Number, "1", "Number of passes"};
constexpr Attribute counterVariableKey{"CounterVariable", AttributeType::Text, "",
                                       "Text that stands for the counter in the children's attributes"};
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

/// Puts the counter into the texts of an attribute's value, those of a nested map included.
Anything Unroll(Anything const& value, String const& counter, String const& counterVariable) {
    if (value.IsOfTypeMap()) {
        AttributeMap copy(value.GetMapOfAnythings());
        for (auto it = copy.Begin(); it.IsValid(); ++it)
            it.GetValue() = Unroll(it.GetValue(), counter, counterVariable);
        return {copy};
    }
    if (!value.IsOfTypeString()) return value;
    String text = value.GetString();
    if (counterVariable.Length() != 0) text.Replace(counterVariable, counter);
    EvaluateLoopBoxFormula(text);
    return {text};
}

void Unroll(String const& counter, String const& counterVariable, DescriptionTree& target,
            DescriptionTree const& source) {
    for (auto child = source.GetChildren(); child.IsValid(); ++child) {
        DescriptionTree const& original = *child.Current();
        auto const copy = Utilities::MakeSmart<DescriptionTree>();
        AttributeMap const& attributes = original;
        for (auto it = attributes.Begin(); it.IsValid(); ++it)
            (*copy)[it.GetKey()] = Unroll(it.GetValue(), counter, counterVariable);
        target.AddChild(copy);
        Unroll(counter, counterVariable, *copy, original);
    }
}

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

} // namespace

void LoopBox::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                         DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    Loop loop;
    loop.Read(description, GetElementName());
    loop.Negotiate(dataSource, GetElementName());
    if (loop.repetitions > maximalRepetitions)
        throw RuntimeException("LoopBox \"" + GetElementName().GetStdString() +
                               "\": " + std::to_string(loop.repetitions) + " repetitions are too many");

    DescriptionTree expansion;
    std::uint32_t const end = loop.repetitions + loop.base;
    for (std::uint32_t counter = loop.base; counter < end; ++counter)
        Unroll(String(static_cast<unsigned long>(counter)), loop.counterVariable, expansion, description);
    InsertBehind(description, expansion);
}

void LoopBox::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                 unsigned long& minimalHeight, unsigned long& maximalHeight) {
    minimalWidth = maximalWidth = minimalHeight = maximalHeight = 0;
}

} // namespace GUI
