#pragma once

#include <string>
#include <string_view>

namespace Utilities {

/// Replaces a file's contents so that a reader, and the disk after a crash, has either the old contents
/// or the new ones. The contents go into a temporary file beside it, are flushed to the disk and take the
/// file's place by renaming; a symbolic link keeps its place, and an existing file its permissions.
/// Throws `ResourceException` with file and reason; the old contents stand then, and the temporary file
/// is gone.
void WriteFileAtomically(std::string const& path, std::string_view contents);

} // namespace Utilities
