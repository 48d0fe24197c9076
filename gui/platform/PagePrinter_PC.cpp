#include "gui/platform/PagePrinter_PC.h"

#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/TextConversion_PC.h"

#include <QBuffer>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QSaveFile>
#include <utility>

namespace GUI {

namespace {

constexpr int dotsAnInch = 96;
constexpr int farthest = 32000;

QPageLayout LayoutOf(Paper const& paper) {
    QPageSize::PageSizeId id = QPageSize::A4;
    for (auto const& [name, size] : {std::pair("A3", QPageSize::A3),
                                     {"A5", QPageSize::A5},
                                     {"Letter", QPageSize::Letter},
                                     {"Legal", QPageSize::Legal}})
        if (paper.size == name) id = size;
    return {QPageSize(id), paper.isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF(paper.margin, paper.margin, paper.margin, paper.margin), QPageLayout::Millimeter};
}

/// Runs a drawing's operation with the painter at a scale.
template <class Run> void InContext(QPainter& painter, double scale, Run run) {
    painter.save();
    painter.scale(scale, scale);
    {
        // Pens on the outermost edges are whole.
        PlatformIndependentDeviceContext_PC context(painter, {QPoint(), QRect(-10, -10, farthest, farthest)});
        run(context);
    }
    painter.restore();
}

std::size_t WritePdf(QIODevice& file, Paper const& paper, PagedDrawing& drawing) {
    QPdfWriter writer(&file);
    writer.setResolution(dotsAnInch);
    writer.setPageLayout(LayoutOf(paper));
    return PrintPages(writer, drawing);
}

} // namespace

std::size_t PrintPages(QPagedPaintDevice& device, PagedDrawing& drawing) {
    QPainter painter;
    if (!painter.begin(&device)) return 0;
    QRectF const page = device.pageLayout().paintRect(QPageLayout::Inch);
    double const dots = static_cast<double>(device.logicalDpiX()) / dotsAnInch;
    std::size_t count = 0;
    InContext(painter, dots, [&](PlatformIndependentDeviceContext& context) {
        count = drawing.LayOut(context, static_cast<long>(page.width() * dotsAnInch),
                               static_cast<long>(page.height() * dotsAnInch));
    });
    for (std::size_t i = 0; i < count; ++i) {
        if (!drawing.Prepare(i)) return 0;
        if (i > 0 && !device.newPage()) return 0;
        InContext(painter, dots * drawing.GetScale(),
                  [&](PlatformIndependentDeviceContext& context) { drawing.Paint(context, i); });
    }
    return painter.end() ? count : 0;
}

bool SendToPrinter(QByteArray const& pdf, std::string const& printer) {
    QProcess program;
    QStringList arguments;
    if (!printer.empty()) arguments << "-d" << QString::fromStdString(printer);
    program.start("lp", arguments, QIODevice::ReadWrite);
    if (!program.waitForStarted()) return false;
    program.write(pdf);
    program.closeWriteChannel();
    return program.waitForFinished() && program.exitStatus() == QProcess::NormalExit &&
           program.exitCode() == 0;
}

std::size_t PrintPagesToPdf(Utilities::String const& file, Paper const& paper, PagedDrawing& drawing) {
    QSaveFile target(ToPlatformText(file));
    if (!target.open(QIODevice::WriteOnly)) return 0;
    std::size_t const count = WritePdf(target, paper, drawing);
    return count != 0 && target.commit() ? count : 0;
}

std::size_t PrintPagesToPrinter(Utilities::String const& printer, Paper const& paper, PagedDrawing& drawing) {
    QByteArray pdf;
    QBuffer file(&pdf);
    file.open(QIODevice::WriteOnly);
    std::size_t const count = WritePdf(file, paper, drawing);
    return count != 0 && SendToPrinter(pdf, printer.GetStdString()) ? count : 0;
}

} // namespace GUI
