#pragma once

#include "core/base/Exceptions.h"
#include "core/base/String.h"
#include "core/component/ComponentCreatorBase.h"

#include <cstdint>
#include <string>

namespace Utilities {

/// A plug-in module in the process, from the load to the unload. While it is loaded its components
/// stand in `NamingService`. Everything that came from it must be gone before it is unloaded.
///
/// ```
/// Utilities::Plugin plugin(Utilities::GetModulePath("NorvelianGui"));
/// ```
class Plugin {
public:
    /// Throws `ResourceNotAvailableException` with the loader's reason if the module can't be loaded or
    /// lacks one of the four exports.
    explicit Plugin(std::string const& path);
    Plugin(Plugin const&) = delete;
    Plugin& operator=(Plugin const&) = delete;
    /// Unloads.
    ~Plugin();

    /// @name The module's exports
    /// @{
    void Resolve(String const& name, SmartPointer<Component>& result) const;
    void const* GetComponentDescriptors() const;
    bool CanUnload() const;
    void PrepareForUnload() const;
    /// @}

    /// Prepares, and takes the module out of the process if it may be. Returns whether it is gone.
    bool Unload();

private:
    void* Find(char const* name) const;

    std::string path_;
    void* module_ = nullptr;
};

} // namespace Utilities
