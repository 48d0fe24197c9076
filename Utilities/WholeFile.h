#pragma once

#include <cstdint>
#include <string>

namespace Utilities {

/// What became of reading a file as a whole.
enum class FileState : std::uint8_t { Read, Missing, Unreadable };

struct WholeFile {
    FileState state = FileState::Missing;
    std::string contents;
};

/// Reads a file in one piece. What isn't an ordinary file (a pipe would wait for whoever writes into it) or
/// is longer than `largest` is unreadable.
WholeFile ReadWholeFile(std::string const& path, std::uint64_t largest);

} // namespace Utilities
