#pragma once

#include "Utilities/InformationServices.h"

namespace InformationServices {

class DllInformationImplementation_PC : public DllInformationImplementation {
public:
    Diagnostics::String GetValueString() override { return "DllInformationImplementation_PC"; }
    Utilities::String GetDescription(bool allKeys) override;
    Information GetInformation() override;
    void SetFileName(Utilities::String const& path) override { fileName_ = path; }

private:
    Utilities::String fileName_;
};

class LoadedModulNamesImplementation_PC : public LoadedModulNamesImplementation {
public:
    Diagnostics::String GetValueString() override { return "LoadedModulNamesImplementation_PC"; }
    Information GetModules() override;
};

class OperatingSystemInformationImplementation_PC : public OperatingSystemInformationImplementation {
public:
    Diagnostics::String GetValueString() override { return "OperatingSystemInformationImplementation_PC"; }
    Utilities::String GetDescription(bool allKeys) override;
    Information GetInformation() override;
};

class SystemFileNameImplementation_PC : public SystemFileNameImplementation {
public:
    Diagnostics::String GetValueString() override { return "SystemFileNameImplementation_PC"; }
    Utilities::String GetFileName(Utilities::String const& key) override;
};

/// A line for each pair, in the map's order: key and translated value.
Utilities::String DescribePairs(Information const& information);

} // namespace InformationServices
