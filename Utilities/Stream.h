#pragma once

#include "core/base/String.h"

namespace Utilities {

/// Text read and written line by line.
class Stream {
public:
    virtual ~Stream() = default;

    /// The next line without its end, which is LF or CR LF; empty behind the last one.
    virtual String ReadLine() = 0;
    /// Whether nothing is left to read. A line end at the end of the text begins no further line.
    virtual bool IsAtEnd() = 0;
    /// Writes the text as it is.
    virtual void Write(String const& text) = 0;
    virtual void Close() = 0;
};

} // namespace Utilities
