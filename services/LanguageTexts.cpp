#include "services/LanguageTexts.h"

#include <utility>

namespace Utilities {

void LanguageTexts::Set(String key, String translation) {
    auto const [position, isNew] = index_.try_emplace(key, static_cast<std::uint32_t>(entries_.size()));
    if (isNew) entries_.push_back({std::move(key), {}, false});
    Entry& entry = entries_[position->second];
    entry.hasBreak = translation.FindSubstring("<br>", 0) >= 0;
    entry.translation = std::move(translation);
}

LanguageTexts::Entry const* LanguageTexts::Find(String const& key) const {
    auto const position = index_.find(key);
    return position == index_.end() ? nullptr : &entries_[position->second];
}

} // namespace Utilities
