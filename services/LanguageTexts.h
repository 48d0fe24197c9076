#pragma once

#include "core/base/String.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Utilities {

/// The texts of one language, found by their keys.
///
/// All keys and translations are in one block, a key beside its translation, behind a table of hashes: a
/// look-up among ten thousand then reads two places of memory that aren't in the cache. `GetTranslation`
/// takes 2.5 times the find of a bare `std::unordered_map` with it, and 3.5 times with such a map in here
/// (language.lookup-10000).
class LanguageTexts {
public:
    struct Text {
        std::string_view key;
        /// As the language file has it, with "<br>".
        std::string_view translation;
        /// Whether it has; nearly none do, and looking costs as much as finding the text.
        bool hasBreak;
    };

    /// A later translation of a key replaces the earlier one. Throws `LengthException` beyond 4 GiB.
    void Set(String const& key, String const& translation);
    std::optional<Text> Find(String const& key) const;

    /// In the order in which the keys came first.
    std::size_t GetCount() const { return records_.size(); }
    Text Get(std::size_t index) const { return TextAt(records_[index]); }

private:
    /// Stands in the block before the key's bytes, which the translation's follow.
    struct Header {
        std::uint32_t keyLength;
        std::uint32_t translationLength : 31;
        std::uint32_t hasBreak : 1;
    };
    struct Slot {
        std::uint32_t hash = 0;
        /// Number of the record plus one; 0 is an empty slot.
        std::uint32_t number = 0;
        std::uint32_t offset = 0;
    };

    static std::uint32_t HashOf(std::string_view key);
    Text TextAt(std::uint32_t offset) const {
        Header header;
        std::memcpy(&header, block_.data() + offset, sizeof header);
        char const* const key = block_.data() + offset + sizeof header;
        return {{key, header.keyLength},
                {key + header.keyLength, header.translationLength},
                header.hasBreak != 0};
    }
    std::uint32_t Append(String const& key, String const& translation);
    /// The slot of the key, or the empty one where it belongs.
    std::size_t SlotOf(std::string_view key, std::uint32_t hash) const;
    void Grow();

    std::string block_;
    std::vector<std::uint32_t> records_;
    /// A power of two of them, at most three quarters full.
    std::vector<Slot> slots_;
};

} // namespace Utilities
