#pragma once

#include "gui/layout/FramePanel.h"

#include <cstdint>

namespace GUI {

/// An invisible margin around its first child; without a child it is a rigid spacer of its margins.
/// Further children are not laid out.
///
/// With "Title", "Condition" or "Surround" it is a panel, which shows them behind its child and within the
/// margins (see `FramePanel`); "ElementName" is the panel's then.
///
/// Attributes, in pixels: "Top", "Left", "Right", "Bottom" (each 0). The common attributes are not read:
/// a frame has no name and no size range of its own. A frame that gets less than its margins hands its
/// child a size near 4294967295.
class FrameBox : public GUIElement {
public:
    Diagnostics::String GetValueString() override { return "FrameBox"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    /// Unlike a box, a frame moves its child at once.
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;
    void OnLanguageChanged() override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;
    /// What is painted behind the child; null for a frame that isn't a panel.
    FramePanel* GetPanel() const { return panel_.Get(); }

protected:
    void OnDetach() override;

private:
    Utilities::SmartPointer<FramePanel> panel_;
    std::uint32_t top_ = 0;
    std::uint32_t left_ = 0;
    std::uint32_t right_ = 0;
    std::uint32_t bottom_ = 0;
};

} // namespace GUI
