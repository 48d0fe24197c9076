#pragma once

#include "Diagnostics/String.h"
#include "core/base/String.h"
#include "core/component/Component.h"

namespace Utilities {

/// The store of named text settings; the component "Preferences".
///
/// Resolved by name when it is needed and held only for the call. Values are text; a caller turns them
/// into flags (true if the lower-case form is "true") or numbers. Nothing is cached: what was written,
/// by this program or by someone with an editor, is seen by the next read.
///
/// Settings are read from a file named after the executable and written to a file named after the
/// application. A host whose application name is not its executable's stem thereby writes to one file
/// and reads from another.
class Preferences : public Component {
public:
    virtual Diagnostics::String GetDescription() const { return {}; }

    /// The stored value, cut to 1023 bytes; `defaultValue` if the section, the key or the file doesn't
    /// exist or can't be read. A key with an empty value gives the empty text. Section and key are
    /// matched without regard to the case of ASCII letters.
    virtual String GetValue(String const& section, String const& key, String const& defaultValue) = 0;
    /// Writes the value at once and creates file, section and key as needed. A failure goes to the
    /// diagnostics sink.
    virtual void SetValue(String const& section, String const& key, String const& value) = 0;
    /// The same for a caller that wants to know. Throws `ResourceException` with file and reason, or
    /// `InvalidArgumentException` for a section or key that can't be in a file of settings.
    virtual void StoreValue(String const& section, String const& key, String const& value) {
        SetValue(section, key, value);
    }

    /// The application name that names the file written to; a process-wide setting that a host makes
    /// once, at its start. Empty, as it is at first, means the executable's stem, so that both
    /// files are the same one. Used on the GUI thread.
    static void SetApplicationName(String const& name);
    static String GetApplicationName();
};

} // namespace Utilities
