#include "gui/controls/ChoiceControl.h"

#include <utility>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

constexpr char const* selectedEntry = "SelectedEntry";

} // namespace

void ChoiceControl::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                               DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    sorted_ = AttributeReader(description).Flag(alphaSort);
    RegisterOnUpdate();
}

void ChoiceControl::TakeEntries() {
    Anything const map = GetValue("Entries");
    Anything const vector = GetValue("EntryTexts");
    if (!IsAttached() || (!map.IsValid() && !vector.IsValid())) return;
    auto const show = [this] {
        if (sorted_) entries_.SetOrder(GetSortedOrder());
        ShowEntries();
    };
    try {
        if (vector.IsValid())
            entries_.SetVector(vector);
        else
            entries_.SetMap(map);
    } catch (...) {
        // Entries before a gap are there all the same.
        show();
        throw;
    }
    show();
}

void ChoiceControl::UpdateEntries() {
    TakeEntries();
    Anything const value = GetValue(selectedEntry);
    if (!value.IsOfTypeString() || !IsAttached()) return;
    long const index = entries_.Find(value.GetString());
    Select(index);
    ReportSelection(value.GetString(), index);
}

void ChoiceControl::ReportSelection(String const& text, long index) {
    if (std::exchange(reporting_, true)) return;
    CallScope const call(*this);
    try {
        TellValue(selectedEntry, text);
        if (TellsIndex()) TellValue("SelectedEntryIndex", index);
        Fire("OnSelectionChanged", {});
    } catch (...) {
        reporting_ = false;
        throw;
    }
    reporting_ = false;
}

} // namespace GUI
