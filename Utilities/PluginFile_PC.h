#pragma once

#include <string>

namespace Utilities {

/// Looks into the file of a plug-in module without running or mapping it: whether it is a module for this
/// processor, is there as a whole, and has the note of this interface. Throws
/// `ResourceNotAvailableException` naming the path and what is wrong.
void CheckPluginFile(std::string const& path);

} // namespace Utilities
