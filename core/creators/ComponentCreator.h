#pragma once

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "core/component/ComponentCreatorBase.h"

#include <atomic>
#include <memory>

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

namespace Detail {

/// What a singleton makes in its constructor is a part of it, and lives as long as it.
class SingletonBeingMade {
public:
    SingletonBeingMade() { ++depth_; }
    ~SingletonBeingMade() { --depth_; }
    SingletonBeingMade(SingletonBeingMade const&) = delete;
    SingletonBeingMade& operator=(SingletonBeingMade const&) = delete;

    static bool IsAny() { return depth_ > 0; }

private:
    static inline thread_local int depth_ = 0;
};

/// Makes objects of a class and counts those that live.
template <class T> class CountedObjects {
public:
    static SmartPointer<T> Make() {
        if (SingletonBeingMade::IsAny()) return MakeSmart<T>();
        return SmartPointer<T>(MakeSmart<Counted>());
    }
    static long GetCount() { return living_; }

private:
    /// Counts from its construction to its destruction, which may come after its last holder let go.
    class Counted final : public T {
    public:
        Counted() { ++living_; }
        Counted(Counted const&) = delete;
        Counted& operator=(Counted const&) = delete;
        ~Counted() override { --living_; }
    };

    /// Threads release components too, of mutexes for example.
    static inline std::atomic<long> living_ = 0;
};

} // namespace Detail

/// Makes a new `T` on each request. A class whose objects leave something behind that runs its code has a
/// static `GetLeftBehind()` that says how much.

template <class T> class ComponentCreatorNormal final : public RegisteringComponentCreator {
public:
    explicit ComponentCreatorNormal(ComponentDescription const& description)
        : RegisteringComponentCreator(description) {
        Register();
    }
    ~ComponentCreatorNormal() override { UnRegister(); }

    void Create(SmartPointer<Component>& result) override {
        result = SmartPointer<Component>(Detail::CountedObjects<T>::Make());
    }
    bool PrepareForUnload() override { return true; }
    long GetLivingCount() const override {
        long leftBehind = 0;
        if constexpr (requires { T::GetLeftBehind(); }) leftBehind = T::GetLeftBehind();
        return Detail::CountedObjects<T>::GetCount() + leftBehind;
    }
};

/// Makes one `T` on the first request, and so must not be a constant itself, and hands out that one until the
/// creator is destroyed.
template <class T> class ComponentCreatorSingleton final : public RegisteringComponentCreator {
public:
    explicit ComponentCreatorSingleton(ComponentDescription const& description)
        : RegisteringComponentCreator(description) {
        Register();
    }
    ~ComponentCreatorSingleton() override { UnRegister(); }

    void Create(SmartPointer<Component>& result) override {
        if (instance_.IsNull()) {
            Detail::SingletonBeingMade const making;
            instance_ = MakeSmart<T>();
        }
        result = SmartPointer<Component>(instance_);
    }
    bool PrepareForUnload() override { return instance_.IsNull() || instance_->PrepareForUnload(); }
    long GetLivingCount() const override { return instance_.GetHolderCount() > 1 ? 1 : 0; }

private:
    SmartPointer<T> instance_;
};

} // namespace Utilities
