#pragma once

#include "gui/controls/CNorvelianListBox.h"
#include "gui/controls/EntryModel_PC.h"
#include "gui/controls/ListBox.h"
#include "gui/controls/NativeElement_PC.h"

namespace GUI {

/// Shows the list box as a native one.
class ListBox_PC : public NativeElement<ListBox, CNorvelianListBox> {
public:
    Diagnostics::String GetValueString() override { return "ListBox_PC"; }
    /// Throws `RuntimeException` "ListBox: Couldn't create it !!!".
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
    /// A selection by the data source, of which the platform tells as of one by the user.
    bool selecting_ = false;
};

} // namespace GUI
