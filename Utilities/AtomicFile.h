#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Utilities {

/// What is certain when a write returns. After a power failure at any moment the file holds the old bytes
/// or the new ones, whole, with both.
enum class Durability : std::uint8_t {
    /// A power failure may bring the old bytes back.
    Whole,
    /// The new bytes are on the disk; the write waits for the directory too.
    Kept
};

/// Replaces a file's contents as a whole: the new bytes go to a temporary file in the same directory, are
/// flushed to the disk, and then take the file's place. Whoever reads the file, at whatever moment this
/// process dies, finds the old bytes or the new ones. Permissions and owner of an existing file are kept,
/// and a symbolic link goes on pointing at the file, also if that didn't exist yet. What killed processes
/// left in the directory is removed.
///
/// Throws `ResourceException` naming file and reason, and leaves the old file and nothing else behind. A
/// file that this user may not write, or whose owner can't be kept, is an error.
void WriteFileAtomically(std::string const& path, std::string_view contents,
                         Durability durability = Durability::Kept);

} // namespace Utilities
