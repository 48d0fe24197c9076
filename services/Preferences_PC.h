#pragma once

#include "Utilities/Preferences.h"

namespace Utilities {

/// Settings in INI files of the user's configuration directory: $XDG_CONFIG_HOME, or ~/.config where
/// that isn't an absolute path. The format is told in services/IniText.h.
///
/// A value is replaced by writing a whole new file beside the old one, flushing and renaming it, so that a
/// process killed, or a power failure, at any moment leaves one of the two. A named mutex keeps the changes
/// of several programs apart; one that holds it for longer than three seconds is overtaken. Files above 16
/// MiB and what isn't an ordinary file are left alone and count as unreadable.
class Preferences_PC : public Preferences {
public:
    String GetValue(String const& section, String const& key, String const& defaultValue) override;
    void SetValue(String const& section, String const& key, String const& value) override;
    void StoreValue(String const& section, String const& key, String const& value) override;

    /// The two files, for messages and tests. Empty if there is no home directory.
    static String GetPathToRead();
    static String GetPathToWrite();
};

} // namespace Utilities
