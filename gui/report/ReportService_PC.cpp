#include "gui/report/ReportService_PC.h"

#include "core/creators/ComponentCreator.h"
#include "gui/platform/PagePrinter_PC.h"
#include "gui/report/ReportDrawing_PC.h"
#include "gui/report/ReportReader.h"

namespace GUI {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<ReportService_PC> const creator({"ReportService", "$Revision: 1.1 $",
                                                                   "GUI"});

Report Read(DescriptionTree const& description, DialogDataSource* dataSource) {
    return ReportReader(dataSource,
                        [dataSource](DescriptionTree const& node) {
                            return std::make_unique<ReportDrawing_PC>(node, dataSource);
                        })
        .Read(description);
}

} // namespace

unsigned long ReportService_PC::SavePdf(DescriptionTree const& report, DialogDataSource* dataSource,
                                        String const& fileName) {
    Report const read = Read(report, dataSource);
    ReportLayout layout(read);
    return PrintPagesToPdf(fileName, read.paper, layout);
}

unsigned long ReportService_PC::Print(DescriptionTree const& report, DialogDataSource* dataSource,
                                      String const& printer) {
    Report const read = Read(report, dataSource);
    ReportLayout layout(read);
    return PrintPagesToPrinter(printer, read.paper, layout);
}

} // namespace GUI
