#pragma once

#include "gui/tree/TreeWnd.h"

namespace GUI {

/// Paints what a box of a tree's window shows, and no other rows.
class TreePainter {
public:
    TreePainter(TreeWnd const& tree, PlatformIndependentDeviceContext& context, GridBox const& box);

    void Paint();

private:
    void PaintRow(long row);
    void PaintOpener(GridBox const& box, bool open);
    void PaintHeadings();
    void PaintDropMark();

    TreeWnd const& tree_;
    GridColors const& colors_;
    GridDrawing drawing_;
    GridBox box_;
    RGBVector ink_;
};

} // namespace GUI
