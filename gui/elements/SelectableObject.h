#pragma once

#include "Diagnostics/String.h"

namespace GUI {

/// What can hold a selection. It has no data; whoever receives one asks for the interfaces it knows.
class SelectableObject {
public:
    virtual ~SelectableObject() = default;
    virtual void Invariant() const {}
    virtual Diagnostics::String GetValueString() = 0;
};

} // namespace GUI
