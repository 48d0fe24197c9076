#include "Utilities/ProgramDirectory.h"
#include "core/creators/ComponentCreator.h"
#include "services/information/InformationServices_PC.h"

#include <link.h>

namespace InformationServices {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<LoadedModulNamesImplementation_PC> const
    creator({"LoadedModulNamesImplementation", "$Revision: 1.2 $", "InformationServices"});

int EnterModule(dl_phdr_info* module, std::size_t /*size*/, void* target) {
    // The program itself comes without a name.
    std::string const path = module->dlpi_name && *module->dlpi_name ? std::string(module->dlpi_name)
                                                                     : Utilities::GetExecutablePath();
    auto& modules = *static_cast<Utilities::Map<String, String>*>(target);
    modules[String(path.substr(path.rfind('/') + 1))] = String(path);
    return 0;
}

} // namespace

Information LoadedModulNamesImplementation_PC::GetModules() {
    auto modules = Utilities::MakeSmart<Utilities::Map<String, String>>();
    ::dl_iterate_phdr(EnterModule, modules.Get());
    return modules;
}

} // namespace InformationServices
