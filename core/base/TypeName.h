#pragma once

#include <string>
#include <typeinfo>

namespace Norvelian::Utilities {

/// A type's name as it is written in the source, for messages.
std::string TypeName(std::type_info const& type);

} // namespace Norvelian::Utilities
