#include "services/LanguageTexts.h"

#include "core/base/Exceptions.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace Utilities {

namespace {

std::uint64_t LoadWord(char const* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

} // namespace

std::uint32_t LanguageTexts::HashOf(std::string_view key) {
    // The same multiplicative hash as the string's own, without its remainder and its loop for the last
    // bytes: what doesn't fill a word is read once more, together with bytes before it.
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = key.size() * multiplier;
    auto const mix = [&](std::uint64_t word) {
        hash = (hash ^ word) * multiplier;
        hash ^= hash >> 32U;
    };
    if (key.size() < 8) {
        for (char const c : key) hash = (hash ^ static_cast<unsigned char>(c)) * multiplier;
    } else {
        for (std::size_t at = 0; at + 8 < key.size(); at += 8) mix(LoadWord(key.data() + at));
        mix(LoadWord(key.data() + key.size() - 8));
    }
    // The last bytes of a key reach only the high half of a product.
    return static_cast<std::uint32_t>(hash >> 32U);
}

std::uint32_t LanguageTexts::Append(String const& key, String const& translation) {
    auto const offset = block_.size();
    auto const size = sizeof(Header) + static_cast<std::size_t>(key.Length() + translation.Length());
    // The length of a translation has 31 bits.
    if (size > std::numeric_limits<std::int32_t>::max() ||
        offset > std::numeric_limits<std::uint32_t>::max() - size)
        throw Norvelian::Utilities::Exceptions::LengthException("Too many texts");
    bool const hasBreak = translation.FindSubstring("<br>", 0) >= 0;
    Header const header{static_cast<std::uint32_t>(key.Length()),
                        static_cast<std::uint32_t>(translation.Length()) & 0x7FFFFFFFU, hasBreak ? 1U : 0U};
    block_.append(reinterpret_cast<char const*>(&header), sizeof header);
    block_.append(key.GetStdString()).append(translation.GetStdString());
    return static_cast<std::uint32_t>(offset);
}

std::size_t LanguageTexts::SlotOf(std::string_view key, std::uint32_t hash) const {
    std::size_t const mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].number != 0 && (slots_[at].hash != hash || TextAt(slots_[at].offset).key != key))
        at = (at + 1) & mask;
    return at;
}

void LanguageTexts::Grow() {
    constexpr std::size_t leastSize = 64;
    std::vector<Slot> const old =
        std::exchange(slots_, std::vector<Slot>(std::max(leastSize, slots_.size() * 2)));
    std::size_t const mask = slots_.size() - 1;
    for (Slot const& slot : old) {
        if (slot.number == 0) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].number != 0) at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

void LanguageTexts::Set(String const& key, String const& translation) {
    if (3 * slots_.size() < 4 * (records_.size() + 1)) Grow();
    std::uint32_t const offset = Append(key, translation);
    std::uint32_t const hash = HashOf(key.GetStdString());
    Slot& slot = slots_[SlotOf(key.GetStdString(), hash)];
    if (slot.number == 0) {
        records_.push_back(offset);
        slot = {hash, static_cast<std::uint32_t>(records_.size()), offset};
    } else {
        records_[slot.number - 1] = offset;
        slot.offset = offset;
    }
}

std::optional<LanguageTexts::Text> LanguageTexts::Find(String const& key) const {
    if (slots_.empty()) return std::nullopt;
    std::string_view const bytes = key.GetStdString();
    std::uint32_t const hash = HashOf(bytes);
    std::size_t const mask = slots_.size() - 1;
    for (std::size_t at = hash & mask; slots_[at].number != 0; at = (at + 1) & mask) {
        if (slots_[at].hash != hash) continue;
        if (Text const text = TextAt(slots_[at].offset); text.key == bytes) return text;
    }
    return std::nullopt;
}

} // namespace Utilities
