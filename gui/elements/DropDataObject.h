#pragma once

#include "core/values/Anything.h"

namespace GUI {

/// What is dragged, in one or several formats. A format is named as its MIME type: "text/plain" is a
/// string, "text/uri-list" a vector of paths of files, "application/x-color" a colour record.
class DropDataObject {
public:
    virtual ~DropDataObject() = default;
    virtual bool HasFormat(Utilities::String const& format) const = 0;
    /// Invalid for a format that isn't there.
    virtual Utilities::Anything GetData(Utilities::String const& format) const = 0;
};

} // namespace GUI
