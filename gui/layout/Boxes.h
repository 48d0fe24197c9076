#pragma once

#include "gui/layout/GUILayoutElementBox.h"

namespace GUI {

/// Places its children from left to right.
class HBox : public GUILayoutElementBox {
public:
    Diagnostics::String GetValueString() override { return "HBox"; }
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;

    /// The width of the last `SetSize`.
    std::uint32_t GetMainAxisSize() const { return mainAxisSize_; }

private:
    std::uint32_t mainAxisSize_ = 0;
};

/// Places its children from top to bottom.
class VBox : public GUILayoutElementBox {
public:
    Diagnostics::String GetValueString() override { return "VBox"; }
    void SetSize(unsigned long width, unsigned long height) override;
    void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                            unsigned long& minimalHeight, unsigned long& maximalHeight) override;

    /// The height of the last `SetSize`.
    std::uint32_t GetMainAxisSize() const { return mainAxisSize_; }

private:
    std::uint32_t mainAxisSize_ = 0;
};

} // namespace GUI
