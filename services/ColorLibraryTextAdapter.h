#pragma once

#include "services/TextAdapter.h"

namespace Utilities {

/// Shortens names of colours: the component "ColorLibraryTextAdapter". A name that is too long loses the
/// word "PANTONE" and superfluous blanks first, and is then shortened like any other if it still is.
class ColorLibraryTextAdapter : public TextAdapter {
public:
    String Adapt(String const& text, unsigned long maxLength) override;
    Diagnostics::String GetValueString() override { return "ColorLibraryTextAdapter"; }
};

} // namespace Utilities
