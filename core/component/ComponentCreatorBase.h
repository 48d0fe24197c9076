#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/component/Component.h"
#include "core/values/Anything.h"

#include <map>
#include <string>

namespace Utilities {

/// Makes the components of one name. A plug-in has one static creator for each of its components.
class ComponentCreatorBase {
public:
    /// Exactly the keys "name", "version" and "category", each a string.
    using Descriptor = std::map<std::string, Anything>;

    ComponentCreatorBase() = default;
    ComponentCreatorBase(ComponentCreatorBase const&) = delete;
    ComponentCreatorBase& operator=(ComponentCreatorBase const&) = delete;
    virtual ~ComponentCreatorBase() = default;

    virtual Descriptor GetDescriptor() = 0;
    virtual void Create(SmartPointer<Component>& result) = 0;
    virtual bool PrepareForUnload() = 0;
    /// How many objects that it made still live and are held by someone else; the module that their code
    /// is in must not be unloaded before they have gone. 0 for a creator that doesn't count.
    virtual long GetLivingCount() const { return 0; }
};

/// The three texts that describe a component. `version` is the revision keyword, "$Revision: 1.21 $".
struct ComponentDescription {
    char const* name;
    char const* version;
    char const* category;

    ComponentCreatorBase::Descriptor GetDescriptor() const {
        ComponentCreatorBase::Descriptor descriptor;
        descriptor["name"] = name;
        descriptor["version"] = version;
        descriptor["category"] = category;
        return descriptor;
    }
};

} // namespace Utilities
