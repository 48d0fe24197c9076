#include "core/plugin/Exports.h"

#include "Diagnostics/Sink.h"
#include "Utilities/PluginInterface.h"

NORVELIAN_PLUGIN_INTERFACE_NOTE;

void PluginResolve(Utilities::String const& name, Utilities::SmartPointer<Utilities::Component>& result) {
    Diagnostics::String text("Function \"PluginResolve\": ");
    text += name.GetValueString();
    Diagnostics::Report("PluginResolve", text);
    ComponentFactory::Instance()->Resolve(name, result);
}

ComponentFactory::Descriptors const* PluginGetComponentDescriptors() {
    return ComponentFactory::Instance()->GetComponentDescriptors();
}

std::int32_t PluginCanUnloadDll() { return ComponentFactory::Instance()->IsInUse() ? 0 : 1; }

void PluginPrepareForUnload() { ComponentFactory::Instance()->PrepareForUnload(); }
