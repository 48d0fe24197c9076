#include "gui/grid/printing/GridPrinting_PC.h"

#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace GUI {

namespace {

constexpr int dotsAnInch = 96;
constexpr double marginMillimetres = 15;

} // namespace

bool PrintGrid(QPagedPaintDevice& device, GridPrintJob const& job) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    QRectF const page = device.pageLayout().paintRect(QPageLayout::Inch);
    GridPrintLayout const layout(job.core, job.frozenRows, job.frozenColumns,
                                 static_cast<long>(page.width() * dotsAnInch),
                                 static_cast<long>(page.height() * dotsAnInch), job.options);
    double const dots = static_cast<double>(device.logicalDpiX()) / dotsAnInch;
    // What the screen tints stands on white paper.
    GridColors colors;
    GridFonts fonts;
    for (std::size_t i = 0; i < layout.GetPages().size(); ++i) {
        GridRange const& cells = layout.GetPages()[i].cells;
        if (job.prepare && !job.prepare(cells.top, cells.bottom)) return false;
        if (i > 0 && !device.newPage()) return false;
        painter.save();
        painter.scale(dots * layout.GetScale(), dots * layout.GetScale());
        {
            constexpr int farthest = 32000;
            PlatformIndependentDeviceContext_PC context(painter,
                                                        {QPoint(), QRect(-10, -10, farthest, farthest)});
            GridDrawing drawing(context, colors, job.decimalSign, fonts);
            layout.Paint(drawing, i);
        }
        painter.restore();
    }
    return painter.end();
}

bool PrintGridToPdf(Utilities::String const& file, bool landscape, GridPrintJob const& job) {
    QSaveFile target(ToPlatformText(file));
    if (!target.open(QIODevice::WriteOnly)) return false;
    {
        QPdfWriter writer(&target);
        writer.setResolution(dotsAnInch);
        writer.setPageLayout(
            {QPageSize(QPageSize::A4), landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
             QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
             QPageLayout::Millimeter});
        if (!PrintGrid(writer, job)) return false;
    }
    return target.commit();
}

} // namespace GUI
