#pragma once

#include "core/plugin/ComponentFactory.h"

#include <cstdint>

/// The plug-in's whole visible boundary: four functions with unmangled names. Everything else a host
/// reaches goes through `Utilities::NamingService`. All four are called on the GUI thread.
extern "C" {

/// Leaves `result` as it is. Components are resolved through `Utilities::NamingService`.
void PluginResolve(Utilities::String const& name, Utilities::SmartPointer<Utilities::Component>& result);

/// The factory's list, always the same one and empty; the plug-in keeps it.
ComponentFactory::Descriptors const* PluginGetComponentDescriptors();

/// 1 if the plug-in may be unloaded, which is always so.
std::int32_t PluginCanUnloadDll();

/// To be called before the plug-in is unloaded.
void PluginPrepareForUnload();
}
