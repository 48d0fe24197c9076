#pragma once

#include <string>
#include <string_view>

namespace Utilities {

/// Replaces the whole file: whoever opens `path` at any moment, also after this process was killed,
/// finds either the old or the new contents and nothing in between. The file keeps its permissions; a
/// symbolic link stays one and its target is replaced. Throws `RuntimeException` with the path and the
/// system's reason, and then the old file is untouched.
void WriteFileAtomically(std::string const& path, std::string_view contents);

} // namespace Utilities
