#include "cxf/files/ReadProgress.h"

#include "Utilities/Limits.h"

#include <algorithm>

namespace Norvelian::ColorExchangeFormat {

using ::Utilities::Limits;

ReadProgress::ReadProgress(std::string const& file, std::size_t size, ReadOptions const& options)
    : file_(file), size_(size), options_(options),
      deadline_(std::chrono::steady_clock::now() + std::chrono::milliseconds(Limits::Get().milliseconds)) {}

void ReadProgress::Tell(std::size_t built) {
    constexpr std::size_t often = 200;
    constexpr std::size_t least = 65536;
    next_ = cut_ + built + std::max(least, 2 * size_ / often);
    if (std::chrono::steady_clock::now() > deadline_)
        throw FileException(file_, 0, 0,
                            "reading takes " +
                                Limits::Passed("milliseconds", Limits::Get().milliseconds, "milliseconds"));
    double const done = size_ == 0 ? 1 : static_cast<double>(cut_ + built) / (2 * static_cast<double>(size_));
    if (options_.progress && !options_.progress(std::min(done, 1.0))) throw ReadCancelled(file_);
}

} // namespace Norvelian::ColorExchangeFormat
