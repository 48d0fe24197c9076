#include "core/plugin/ComponentFactory.h"

#include "Diagnostics/Sink.h"

#include <new>

namespace {

/// Made after the static creators and so dead before the first of them, when the module goes.
std::unique_ptr<ComponentFactory>& Factory() {
    static std::unique_ptr<ComponentFactory> factory;
    return factory;
}

} // namespace

ComponentFactory* ComponentFactory::Instance() {
    auto& factory = Factory();
    if (!factory) {
        try {
            factory = std::make_unique<ComponentFactory>();
        } catch (std::bad_alloc const&) {
            throw Utilities::ExceptionComponentFactory("Can't create a ComponentFactory instance");
        }
    }
    return factory.get();
}

void ComponentFactory::Destroy() { Factory().reset(); }

void ComponentFactory::Resolve(Utilities::String const& /*name*/,
                               Utilities::SmartPointer<Utilities::Component>& /*result*/) {}

void ComponentFactory::PrepareForUnload() {
    for (auto it = creators_.Begin(); it.IsValid(); ++it) {
        if (it.GetValue()->PrepareForUnload()) continue;
        Diagnostics::String refusal("Component ");
        refusal += it.GetKey().GetValueString();
        refusal += " didn't prepare for unload.";
        Diagnostics::Report("ComponentFactory::PrepareForUnload", refusal);
    }
}
