#pragma once

#include "Diagnostics/String.h"
#include "core/base/String.h"
#include "core/component/Component.h"

namespace Utilities {

/// Shortens a name so that it keeps its start and its end: the component "TextAdapter".
class TextAdapter : public Component {
public:
    /// The text itself if it has at most `maxLength` bytes or `maxLength` is 0. Otherwise its first two
    /// bytes, the single byte 0x85 (an ellipsis) and as much of its end as fits; a blank on either side
    /// of the ellipsis is left out. Where UTF-8 sequences would be cut, the start is longer and the end
    /// shorter by what is missing, so that the whole stays within `maxLength`.
    virtual String Adapt(String const& text, unsigned long maxLength);
    virtual Diagnostics::String GetValueString() { return "TextAdapter"; }
};

} // namespace Utilities
