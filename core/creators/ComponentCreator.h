#pragma once

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "core/component/ComponentCreatorBase.h"

namespace Utilities {

/// Enters itself into the directory of components for as long as it lives. A failure to do so leaves
/// the component simply unresolvable.
class RegisteringComponentCreator : public ComponentCreatorBase {
public:
    Descriptor GetDescriptor() override { return description_.GetDescriptor(); }

protected:
    explicit RegisteringComponentCreator(ComponentDescription const& description)
        : description_(description) {}

    /// Called by the concrete class, whose virtual operations the directory uses.
    void Register() noexcept {
        try {
            NamingService::Instance()->RegisterComponent(this);
        } catch (...) {
            Diagnostics::DropException("ComponentCreator: registration");
        }
    }
    void UnRegister() noexcept {
        try {
            NamingService::Instance()->UnRegisterComponent(this);
        } catch (...) {
            Diagnostics::DropException("ComponentCreator: unregistration");
        }
    }

private:
    ComponentDescription description_;
};

/// Makes a new `T` on each request.
template <class T> class ComponentCreatorNormal final : public RegisteringComponentCreator {
public:
    explicit ComponentCreatorNormal(ComponentDescription const& description)
        : RegisteringComponentCreator(description) {
        Register();
    }
    ~ComponentCreatorNormal() override { UnRegister(); }

    void Create(SmartPointer<Component>& result) override {
        result = SmartPointer<Component>(MakeSmart<T>());
    }
    bool PrepareForUnload() override { return true; }
};

/// Makes one `T` on the first request and hands out that one until the creator dies.
template <class T> class ComponentCreatorSingleton final : public RegisteringComponentCreator {
public:
    explicit ComponentCreatorSingleton(ComponentDescription const& description)
        : RegisteringComponentCreator(description) {
        Register();
    }
    ~ComponentCreatorSingleton() override { UnRegister(); }

    void Create(SmartPointer<Component>& result) override {
        if (instance_.IsNull()) instance_ = MakeSmart<T>();
        result = SmartPointer<Component>(instance_);
    }
    bool PrepareForUnload() override { return instance_.IsNull() || instance_->PrepareForUnload(); }

private:
    SmartPointer<T> instance_;
};

} // namespace Utilities
