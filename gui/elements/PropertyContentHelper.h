#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/component/Component.h"
#include "core/values/Anything.h"
#include "gui/elements/TreeViewNode.h"

namespace Norvelian::Tristim {
class NVSpectrum;
}

namespace GUI {

/// Writes and reads what a property inspector shows: the component "PropertyContentHelper", one for each
/// request.
///
/// A content is one `Anything`, a map of entries that are numbered from 0 on. Under the number, as decimal
/// text, is a letter for the type of the value, a slash, and a path of names with "/" between, root first;
/// under "v" and the number is the value. Types: "e" (no value, the node alone), "s" (text), "l" (long), "w"
/// (short), "b" (bool), "d" (double, shown with 5 decimals). All entries of a content have the same root.
/// Names are keys of the language service.
class PropertyContentHelper : public Utilities::Component {
public:
    virtual Diagnostics::String GetDescription() const { return {}; }
    virtual void Clear() = 0;
    /// Range and resolution, type and filter under which it was measured, and under "DataPoints" each value
    /// by its wavelength: "380 nm" to "730 nm".
    virtual void AddSpectrum(Utilities::String const& path,
                             Norvelian::Tristim::NVSpectrum const& spectrum) = 0;
    virtual void AddDouble(Utilities::String const& path, double value) = 0;
    virtual void AddBool(Utilities::String const& path, bool value) = 0;
    virtual void AddShort(Utilities::String const& path, short value) = 0;
    virtual void AddLong(Utilities::String const& path, long value) = 0;
    virtual void AddString(Utilities::String const& path, Utilities::String const& value) = 0;
    virtual void AddPath(Utilities::String const& path) = 0;
    virtual Utilities::Anything GetContent() const = 0;
    /// The tree that a content describes; null for one without entries. Never throws for what a content
    /// holds: faults are shown as text in the tree. Entries stop at the first number that is missing.
    virtual Utilities::SmartPointer<TreeViewNode> BuildTree(Utilities::Anything const& content) = 0;
    /// Appends another content. One of another root goes below the root of this one; both need two entries
    /// for that comparison, and `OutOfRangeException` says that one has fewer. An empty helper takes any.
    virtual void Merge(Utilities::Anything const& other) = 0;
};

} // namespace GUI
