#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/component/ComponentCreatorBase.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Utilities {

/// The process's one directory of components. Used on the GUI thread, and by the loader while it runs
/// static initialisers.
///
/// A name may be registered more than once: the earliest living registration is the one that resolves,
/// and each is taken out by its own creator.
class NamingService {
public:
    static NamingService* Instance();

    /// Enters a creator under the "name" of its descriptor.
    void RegisterComponent(ComponentCreatorBase* creator);
    /// A creator that isn't registered is passed over.
    void UnRegisterComponent(ComponentCreatorBase* creator);

    /// Lets the creator of that name store a component in `result`. An unknown name throws
    /// `ResourceNotAvailableException` and leaves `result` as it was.
    void Resolve(std::string const& name, SmartPointer<Component>& result);

    bool IsRegistered(std::string_view name) const;
    /// All living registrations in order of registration.
    std::vector<ComponentCreatorBase*> const& GetCreators() const { return inOrder_; }

private:
    std::vector<ComponentCreatorBase*> inOrder_;
    std::map<std::string, std::vector<ComponentCreatorBase*>, std::less<>> byName_;
};

/// The component of that name as a `T`; null if it is of another type.
template <class T> SmartPointer<T> ResolveComponent(std::string const& name) {
    SmartPointer<Component> component;
    NamingService::Instance()->Resolve(name, component);
    return SmartPointer<T>(component);
}

} // namespace Utilities
