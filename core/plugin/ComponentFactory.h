#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/List.h"
#include "Utilities/Tools/Map.h"
#include "core/component/ComponentCreatorBase.h"

#include <map>
#include <memory>
#include <string>

/// What is behind the plug-in's four exports; one a plug-in, made on the first call of an export.
///
/// Creators enter themselves into `Utilities::NamingService`, so both containers stay empty; they are
/// the declared shape of the factory. Unsynchronised: the host's GUI thread only.
class ComponentFactory {
public:
    using Descriptors = Utilities::List<std::map<std::string, Utilities::Anything>>;

    /// Throws `Utilities::ExceptionComponentFactory` if the factory can't be allocated.
    static ComponentFactory* Instance();
    static void Destroy();

    /// Leaves `result` as the caller gave it, for known and unknown names alike.
    void Resolve(Utilities::String const& name, Utilities::SmartPointer<Utilities::Component>& result);
    Descriptors const* GetComponentDescriptors() const { return &descriptors_; }
    bool IsInUse() const { return false; }
    /// Asks every creator of the factory's own map; refusals are dropped.
    void PrepareForUnload();

    Diagnostics::String GetValueString() const { return "ComponentFactory"; }
    void Invariant() const {}

private:
    Utilities::Map<Utilities::String, Utilities::ComponentCreatorBase*> creators_{53};
    Descriptors descriptors_;
};
