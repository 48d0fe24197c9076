#include "gui/shell/Accelerators.h"

#include "Utilities/LanguageServiceInterface.h"
#include "core/base/Exceptions.h"

#include <algorithm>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

constexpr std::uint16_t deleteKey = 46;
constexpr std::uint16_t firstFunctionKey = 112;

constexpr std::pair<char const*, std::uint8_t> modifierTexts[] = {{"CTRL+", AcceleratorEntry::control},
                                                                  {"SHIFT+", AcceleratorEntry::shift},
                                                                  {"ALT+", AcceleratorEntry::alt}};

String KeyOf(String const& hotKey) {
    return hotKey.GetToken(std::max(hotKey.GetTokenCount('+') - 1, 0L), '+');
}

std::uint16_t KeyCode(String const& key) {
    if (key.Length() == 1) return static_cast<unsigned char>(key.GetStdString().front());
    if (key == "Del") return deleteKey;
    if (key.FindSubstring("F", 0) != 0) return 0;
    try {
        long const number = key.Mid(1, key.Length()).GetLong();
        return number >= 1 && number <= 24 ? static_cast<std::uint16_t>(firstFunctionKey + number - 1) : 0;
    } catch (Norvelian::Utilities::Exceptions::OutOfRangeException const&) {
        return 0;
    }
}

/// Key and modifiers.
std::pair<int, int> ChordOf(AcceleratorEntry const& entry) {
    return {entry.key, entry.flags & ~AcceleratorEntry::virtualKey};
}

} // namespace

AcceleratorEntry ParseHotKey(String const& hotKey, long command) {
    AcceleratorEntry entry;
    entry.command = static_cast<std::uint16_t>(command);
    entry.flags = AcceleratorEntry::virtualKey;
    for (auto const& [name, flag] : modifierTexts)
        if (hotKey.FindSubstring(name, 0) >= 0) entry.flags |= flag;
    entry.key = KeyCode(KeyOf(hotKey));
    return entry;
}

String GetHotKeyText(String const& hotKey) {
    auto const translate = [](String const& name) {
        return Utilities::LanguageServiceInterface::GetTranslation(name);
    };
    String text;
    for (auto const& modifier : modifierTexts)
        if (hotKey.FindSubstring(modifier.first, 0) >= 0) text += translate(modifier.first);
    String const key = KeyOf(hotKey);
    if (key.Length() == 1) return text + key;
    if (key == "Del") return text + translate("DelKey");
    return key.FindSubstring("F", 0) == 0 ? text + translate(key) : text;
}

void CollectMenuAccelerators(AcceleratorEntry* table, long& count, Menu::Items& items) {
    for (auto it = items.GetChildren(); it.IsValid(); ++it) {
        Menu::Items& item = *it.Current();
        if (item.GetHotKey().Length() != 0 && count < ApplicationImplementation::maximalAccelerators) {
            AcceleratorEntry const entry = ParseHotKey(item.GetHotKey(), item.GetCommand());
            if (entry.key != 0) table[count++] = entry;
        }
        CollectMenuAccelerators(table, count, item);
    }
}

void AcceleratorTable::Enable(bool on) {
    if (!on && !active_.empty()) {
        saved_ = std::move(active_);
        active_.clear();
    } else if (on && !saved_.empty()) {
        active_ = std::move(saved_);
        saved_.clear();
    }
}

void AcceleratorTable::Set(std::vector<AcceleratorEntry> entries) {
    active_ = std::move(entries);
    saved_.clear();
    std::stable_sort(active_.begin(), active_.end(),
                     [](auto const& a, auto const& b) { return ChordOf(a) < ChordOf(b); });
}

long AcceleratorTable::FindCommand(int key, int modifiers) const {
    std::pair const wanted(key, modifiers);
    auto const found =
        std::lower_bound(active_.begin(), active_.end(), wanted,
                         [](auto const& entry, auto const& chord) { return ChordOf(entry) < chord; });
    return found != active_.end() && ChordOf(*found) == wanted ? found->command : 0;
}

} // namespace GUI
