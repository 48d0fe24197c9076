#pragma once

#include "gui/elements/application/RunApplicationDataSource.h"

namespace GUI {

/// The component "RunApplicationDataSource", as its interface describes it.
class RunApplicationDataSource_PC : public RunApplicationDataSource {
public:
    Diagnostics::String GetValueString() override { return "RunApplicationDataSource_PC"; }
    bool Run(Utilities::String const& path, Utilities::String const& parameters) override;
    bool RunFile(Utilities::SmartPointer<Utilities::File> program,
                 Utilities::SmartPointer<Utilities::File> document) override;
    bool RunRegistered(Utilities::Anything const& spec) override;
};

} // namespace GUI
