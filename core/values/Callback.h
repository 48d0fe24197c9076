#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/values/Anything.h"

namespace Utilities {

/// What a `Callback` runs.
class CallbackImplementation {
public:
    virtual ~CallbackImplementation() = default;
    virtual void Invariant() const {}
    virtual Diagnostics::String GetValueString() = 0;
    virtual long Execute(Anything const& argument) = 0;
    virtual bool IsValid() = 0;
};

/// Something to run later, as a value. A default-constructed callback is invalid.
class Callback {
public:
    Callback() = default;
    explicit Callback(SmartPointer<CallbackImplementation> const& implementation)
        : implementation_(implementation) {}

    bool IsValid() const { return !implementation_.IsNull(); }
    /// Whether both run the same implementation object.
    bool operator==(Callback const& other) const {
        return implementation_.Get() == other.implementation_.Get();
    }
    /// The implementation's result; an invalid callback does nothing and gives 0.
    long Execute(Anything const& argument) const {
        if (!IsValid()) return 0;
        // The callback may replace or remove itself in whatever table holds it.
        SmartPointer<CallbackImplementation> const running(implementation_);
        return running->Execute(argument);
    }

private:
    SmartPointer<CallbackImplementation> implementation_;
};

/// Calls a member function, as `long (T::*)(Anything const&)`. The object is not owned and must outlive
/// the callback.
template <class T, class F = long (T::*)(Anything const&)>
class MemberfunctionCallbackImplementation : public CallbackImplementation {
public:
    MemberfunctionCallbackImplementation(T* object, F member) : member_(member), object_(object) {}

    Diagnostics::String GetValueString() override { return "MemberfunctionCallbackImplementation"; }
    long Execute(Anything const& argument) override { return (object_->*member_)(argument); }
    bool IsValid() override { return true; }

private:
    F member_;
    T* object_;
};

/// A callback on a member function of `object`.
template <class T, class F> Callback MakeCallback(T* object, F member) {
    return Callback(MakeSmart<MemberfunctionCallbackImplementation<T, F>>(object, member));
}

} // namespace Utilities
