#pragma once

#include "gui/elements/GUIElement.h"

#include <cstddef>

namespace GUI {

/// Repeats a piece of description. While it is being initialised it copies its description children once
/// for each pass of a counter, writes the counter into all their attribute texts, works out the formulas
/// in them (see `EvaluateLoopBoxFormula`), and inserts the copies into its parent's description behind
/// its own entry, pass by pass. The parent then creates them as ordinary siblings. The loop box itself
/// takes no space. It can't be the root of a description; initialising it twice inserts twice.
///
/// Attributes: "Repetitions" (1), "CounterVariable" (empty; the text that is replaced by the counter,
/// wherever it occurs), "Base" (0; the first counter). The data source's "Repetitions", if valid, overrides
/// the description's; the loop box tells it the "Repetitions" and "Base" that it uses.
///
/// What all passes make is charged against `Utilities::Limits` before the first one: the elements, those of
/// loops inside this one too as far as the description says how often they run, and the bytes of all texts.
/// What passes a limit throws `RuntimeException`, as does a negative count of passes, which amounts to
/// thousands of millions.
class LoopBox : public GUIElement {
public:
    ~LoopBox() override;

    Diagnostics::String GetValueString() override { return "LoopBox"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// Nothing in all four.
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;

private:
    /// Of the texts that it wrote; charged as long as it lives.
    std::size_t bytes_ = 0;
};

} // namespace GUI
