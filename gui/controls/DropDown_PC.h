#pragma once

#include "gui/controls/CNorvelianComboBox.h"
#include "gui/controls/DropDown.h"
#include "gui/controls/EntryModel_PC.h"
#include "gui/controls/NativeElement_PC.h"

namespace GUI {

/// Shows the drop-down as a native one.
class DropDown_PC : public NativeElement<DropDown, CNorvelianComboBox> {
public:
    Diagnostics::String GetValueString() override { return "DropDown_PC"; }
    /// Throws `RuntimeException` "DropDown: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;

protected:
    void OnDetach() override;
    void ShowEntries() override;
    void Select(long index) override;
    std::vector<std::uint32_t> GetSortedOrder() const override { return SortByLanguage(GetEntries()); }

private:
    EntryModel model_;
};

} // namespace GUI
