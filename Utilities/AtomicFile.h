#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Utilities {

/// What a written file survives.
enum class Durability : std::uint8_t {
    /// The death of the process at any moment.
    ProcessDeath,
    /// A power failure too; the write waits for the disk.
    PowerFailure
};

/// Replaces a file's contents as a whole: the new bytes go to a temporary file in the same directory,
/// which then takes the file's place. Whoever reads the file, at whatever moment this process dies, finds
/// the old bytes or the new ones. The permissions of an existing file are kept, and a symbolic link
/// goes on pointing at the file.
/// Throws `ResourceException` naming file and reason, and leaves the old file and nothing else behind.
void WriteFileAtomically(std::string const& path, std::string_view contents,
                         Durability durability = Durability::PowerFailure);

} // namespace Utilities
