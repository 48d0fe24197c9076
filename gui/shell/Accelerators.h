#pragma once

#include "gui/elements/application/ApplicationImplementation.h"

#include <vector>

namespace GUI {

/// The entry of a hot key text such as "CTRL+SHIFT+S", "Del" or "F10". A key without a code gives an
/// entry whose key is 0.
AcceleratorEntry ParseHotKey(Utilities::String const& hotKey, long command);

/// The hot key as the user reads it, in the current language, such as "Strg+S"; empty for a key without a
/// name.
Utilities::String GetHotKeyText(Utilities::String const& hotKey);

/// Appends the entries of one level of items and of those below it to `table`, which has room for
/// `ApplicationImplementation::maximalAccelerators`; items without a hot key, or whose key has no code,
/// get none.
void CollectMenuAccelerators(AcceleratorEntry* table, long& count, Menu::Items& items);

/// From key chords to commands. Switched off, it keeps its entries aside, so that a text control can
/// have the keys for itself.
class AcceleratorTable {
public:
    void Set(std::vector<AcceleratorEntry> entries);
    /// On without a former off changes nothing.
    void Enable(bool on);
    /// The command of a chord, 0 if there is none. `modifiers` are the entry's flag bits.
    long FindCommand(int key, int modifiers) const;

private:
    /// By their chords; of several for one chord the first counts.
    std::vector<AcceleratorEntry> active_;
    std::vector<AcceleratorEntry> saved_;
};

} // namespace GUI
