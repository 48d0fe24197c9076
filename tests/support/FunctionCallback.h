#pragma once

#include "core/values/Callback.h"

#include <functional>
#include <utility>

namespace Tests {

using CallbackFunction = std::function<long(Utilities::Anything const&)>;

class FunctionCallbackImplementation : public Utilities::CallbackImplementation {
public:
    explicit FunctionCallbackImplementation(CallbackFunction function) : function_(std::move(function)) {}
    Diagnostics::String GetValueString() override { return "FunctionCallbackImplementation"; }
    long Execute(Utilities::Anything const& argument) override { return function_(argument); }
    bool IsValid() override { return true; }

private:
    CallbackFunction function_;
};

/// A callback on any function, a lambda as a rule.
inline Utilities::Callback MakeCallback(CallbackFunction function) {
    return Utilities::Callback(Utilities::MakeSmart<FunctionCallbackImplementation>(std::move(function)));
}

} // namespace Tests
