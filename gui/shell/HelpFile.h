#pragma once

#include "core/base/String.h"

namespace GUI {

/// Where the help of a name is: `<program's directory>/Help/<name>.hlp` if that file can be read,
/// otherwise the same with the word of the current language in the name replaced by "English".
Utilities::String FindHelpFile(Utilities::String const& name, Utilities::String const& language);

} // namespace GUI
