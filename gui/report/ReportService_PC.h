#pragma once

#include "gui/elements/application/ReportService.h"

namespace GUI {

/// Prints through `PrintPages`.
class ReportService_PC : public ReportService {
public:
    unsigned long SavePdf(DescriptionTree const& report, DialogDataSource* dataSource,
                          Utilities::String const& fileName) override;
    unsigned long Print(DescriptionTree const& report, DialogDataSource* dataSource,
                        Utilities::String const& printer) override;
    bool PrepareForUnload() override { return true; }
};

} // namespace GUI
