#pragma once

#include "core/base/String.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace Utilities {

/// The texts of one language: keys in the order of the key file, found by hashing.
class LanguageTexts {
public:
    struct Entry {
        String key;
        /// As the language file has it, with "<br>".
        String translation;
        /// Whether it has; nearly none do, and looking costs as much as finding the entry.
        bool hasBreak = false;
    };

    /// A later translation of a key replaces the earlier one.
    void Set(String key, String translation);
    /// Null if there is none.
    Entry const* Find(String const& key) const;
    std::vector<Entry> const& GetEntries() const { return entries_; }

private:
    struct Hash {
        std::size_t operator()(String const& key) const { return key.GetHash(0xFFFFFFFF); }
    };

    std::vector<Entry> entries_;
    std::unordered_map<String, std::uint32_t, Hash> index_;
};

} // namespace Utilities
