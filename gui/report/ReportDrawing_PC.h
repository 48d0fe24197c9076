#pragma once

#include "gui/elements/GUIElement.h"
#include "gui/report/ReportBlock.h"

#include <QWidget>
#include <vector>

namespace GUI {

/// Elements beside each other, of equal widths, drawn as lines, figures and texts. They live in a window that
/// is never shown, for as long as the block does.
class ReportDrawing_PC : public ReportBlock {
public:
    ReportDrawing_PC(DescriptionTree const& node, DialogDataSource* dataSource);

    void LayOut(PlatformIndependentDeviceContext& context, long width) override;
    long GetHeight(std::size_t /*piece*/) const override { return height_; }
    void Paint(PlatformIndependentDeviceContext& context, std::size_t piece, long top) const override;

private:
    void BringData(DescriptionTree const& node, GUIElement& root, DialogDataSource& dataSource) const;

    QWidget window_;
    DescriptionTree description_;
    std::vector<Utilities::SmartPointer<GUIElement>> elements_;
    long height_;
    long elementWidth_ = 0;
};

} // namespace GUI
