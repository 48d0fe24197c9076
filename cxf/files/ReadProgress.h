#pragma once

#include "cxf/files/SampleFile.h"

#include <chrono>

namespace Norvelian::ColorExchangeFormat {

/// Tells whoever asked how far the reading of one file is, and ends it when told to or when it takes too
/// long.
///
/// A file's bytes count twice: once when they are cut into words, once when samples are made of them.
class ReadProgress {
public:
    /// Both must outlive it; `size` is that of the file.
    ReadProgress(std::string const& file, std::size_t size, ReadOptions const& options);

    /// How many bytes are done in each of the two ways. Throws `ReadCancelled` and `FileException`.
    void Advance(std::size_t cut, std::size_t built) {
        cut_ = cut;
        if (cut + built >= next_) Tell(built);
    }
    void Built(std::size_t built) { Advance(cut_, built); }

private:
    void Tell(std::size_t built);

    std::string const& file_;
    std::size_t size_;
    ReadOptions const& options_;
    std::chrono::steady_clock::time_point deadline_;
    std::size_t cut_ = 0;
    std::size_t next_ = 0;
};

} // namespace Norvelian::ColorExchangeFormat
