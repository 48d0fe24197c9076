#pragma once

#include "gui/controls/ChoiceEntries.h"
#include "gui/controls/ControlAttributes.h"
#include "gui/elements/GUIElement.h"

namespace GUI {

/// What drop-downs and list boxes have in common: entries, one of which may be selected.
///
/// Of the data source at each update: "Entries" (map of texts with the keys "0", "1" and so on) or
/// "EntryTexts" (vector of texts) replaces what there was, with nothing selected. "SelectedEntry" (string)
/// selects the first entry with that text, or none if there is no such entry.
///
/// A selection by the data source or the user is reported: the data source is told "SelectedEntry", a list
/// box tells "SelectedEntryIndex" too, and then "OnSelectionChanged" runs with an invalid argument. An update
/// that this brings about selects, but doesn't report once more.
class ChoiceControl : public GUIElement {
public:
    static constexpr Attribute alphaSort{"AlphaSort", AttributeType::Flag, "No", "Sorts the entries"};

    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;

protected:
    /// Asks for entries and selection and shows them.
    void UpdateEntries();
    void ReportSelection(Utilities::String const& text, long index);
    ChoiceEntries const& GetEntries() const { return entries_; }

    /// The entries have been replaced.
    virtual void ShowEntries() = 0;
    /// -1 selects none; nothing is reported.
    virtual void Select(long index) = 0;
    virtual bool TellsIndex() const { return false; }
    /// The order of the user's language.
    virtual std::vector<std::uint32_t> GetSortedOrder() const = 0;

private:
    void TakeEntries();

    ChoiceEntries entries_;
    bool sorted_ = false;
    bool reporting_ = false;
};

} // namespace GUI
