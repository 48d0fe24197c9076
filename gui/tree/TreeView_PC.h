#pragma once

#include "gui/controls/NativeElement_PC.h"
#include "gui/tree/CNorvelianTreeCtrl.h"
#include "gui/tree/TreeView.h"

namespace GUI {

/// Shows the tree in a `CNorvelianTreeCtrl`.
class TreeView_PC : public NativeElement<TreeView, CNorvelianTreeCtrl> {
public:
    Diagnostics::String GetValueString() override { return "TreeView_PC"; }
    /// Throws `RuntimeException` "TreeView: Couldn't create it !!!".
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    long OnUpdate(Utilities::Anything const& command) override;

protected:
    TreeWnd* GetTree() const override { return GetControl(); }
    void OnDetach() override;
};

} // namespace GUI
