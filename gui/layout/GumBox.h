#pragma once

#include "gui/elements/GUIElement.h"

namespace GUI {

/// An invisible elastic spacer: no minimal size, and a weight in the sharing of space that is its
/// maximal size. Its description's children are not created.
///
/// Attributes: "MaximalWidth" (0), "MaximalHeight" (0).
class GumBox : public GUIElement {
public:
    Diagnostics::String GetValueString() override { return "GumBox"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
};

} // namespace GUI
