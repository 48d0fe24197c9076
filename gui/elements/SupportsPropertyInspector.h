#pragma once

#include "Diagnostics/String.h"
#include "core/base/String.h"
#include "core/values/Anything.h"

namespace GUI {

class DataAccess;

/// What the property inspector asks of the element that it shows.
class SupportsPropertyInspector {
public:
    virtual ~SupportsPropertyInspector() = default;
    virtual void Invariant() const {}
    virtual Diagnostics::String GetValueString() = 0;
    /// The element's property content; invalid if it has none.
    virtual Utilities::Anything GetProperties() = 0;
    /// Name of the inspector component to show.
    virtual Utilities::String GetPropertyInspectorName() { return "PropertyInspectorDefault"; }
    /// Where the element's colour data come from, or null.
    virtual DataAccess* GetPropertyInspectorHandler() { return nullptr; }
    /// The sample key of the element.
    virtual Utilities::Anything GetPropertyInspectorData() { return {}; }
};

} // namespace GUI
