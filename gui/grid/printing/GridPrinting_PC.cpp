#include "gui/grid/printing/GridPrinting_PC.h"

#include "gui/platform/PagePrinter_PC.h"

#include <optional>

namespace GUI {

namespace {

class GridPrinting : public PagedDrawing {
public:
    explicit GridPrinting(GridPrintJob const& job) : job_(job) {}

    std::size_t LayOut(PlatformIndependentDeviceContext& /*context*/, long width, long height) override {
        layout_.emplace(job_.core, job_.frozenRows, job_.frozenColumns, width, height, job_.options);
        return layout_->GetPages().size();
    }
    double GetScale() const override { return layout_->GetScale(); }
    bool Prepare(std::size_t page) override {
        GridRange const& cells = layout_->GetPages()[page].cells;
        return !job_.prepare || job_.prepare(cells.top, cells.bottom);
    }
    void Paint(PlatformIndependentDeviceContext& context, std::size_t page) override {
        GridDrawing drawing(context, colors_, job_.decimalSign, fonts_);
        layout_->Paint(drawing, page);
    }

private:
    GridPrintJob const& job_;
    std::optional<GridPrintLayout> layout_;
    // What the screen tints stands on white paper.
    GridColors colors_;
    GridFonts fonts_;
};

} // namespace

bool PrintGrid(QPagedPaintDevice& device, GridPrintJob const& job) {
    GridPrinting printing(job);
    return PrintPages(device, printing) != 0;
}

bool PrintGridToPdf(Utilities::String const& file, bool landscape, GridPrintJob const& job) {
    GridPrinting printing(job);
    Paper paper;
    paper.isLandscape = landscape;
    return PrintPagesToPdf(file, paper, printing) != 0;
}

} // namespace GUI
