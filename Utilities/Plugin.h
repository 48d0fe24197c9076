#pragma once

#include "Utilities/Tools/List.h"
#include "core/base/Exceptions.h"
#include "core/base/String.h"
#include "core/component/ComponentCreatorBase.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Utilities {

/// A plug-in module in the process, from the load to the unload. While it is loaded its components
/// are found through `NamingService`. Everything that came from it must be gone before it is unloaded.
///
/// Nothing of a file is executed before it has turned out to be a whole module whose note says that it was
/// built for this interface (see Utilities/PluginInterface.h), and all symbols are bound while it is loaded.
/// A module whose static initialiser throws ends the process, after a line on standard error that names it.
///
/// ```
/// Utilities::Plugin plugin(Utilities::GetModulePath("NorvelianGui"));
/// ```
class Plugin {
public:
    using Descriptors = List<ComponentCreatorBase::Descriptor>;

    /// The path is absolute; links in it are followed. Throws `ResourceNotAvailableException` with path and
    /// reason: a relative path, no file, no whole module of this system, another interface, what the loader
    /// says, or an export that is missing or isn't a function.
    explicit Plugin(std::string const& path);
    Plugin(Plugin const&) = delete;
    Plugin& operator=(Plugin const&) = delete;
    /// Unloads. If objects that the module made still live, it stays loaded and the sink is told.
    ~Plugin();

    /// @name The module's exports
    /// @{
    void Resolve(String const& name, SmartPointer<Component>& result) const;
    Descriptors const* GetComponentDescriptors() const;
    bool CanUnload() const;
    void PrepareForUnload() const;
    /// @}

    /// Prepares, and takes the module out of the process if it may be. Returns whether it is gone. Throws
    /// `ResourceException` naming the components of the module that still live outside it, threads that it
    /// started included; it stays loaded, and another try is possible. What lives in a singleton that nobody
    /// else holds doesn't count.
    bool Unload();

private:
    void* Find(char const* name) const;
    std::vector<ComponentCreatorBase*> GetCreators() const;
    std::string GetLiving() const;

    std::string path_;
    void* module_ = nullptr;
};

} // namespace Utilities
