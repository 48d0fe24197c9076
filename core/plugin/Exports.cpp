#include "core/plugin/Exports.h"

#include "Diagnostics/Sink.h"

namespace {

/// The factory dies with the module, ahead of the creators: this is the last unit that is linked.
struct FactoryOwner {
    FactoryOwner() = default;
    FactoryOwner(FactoryOwner const&) = delete;
    FactoryOwner& operator=(FactoryOwner const&) = delete;
    ~FactoryOwner() { ComponentFactory::Destroy(); }
} const factoryOwner;

} // namespace

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
