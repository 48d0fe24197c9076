#include "gui/controls/ChoiceEntries.h"

#include <algorithm>
#include <charconv>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

/// The number that a key means; `size` for any other text, "01" among them.
std::uint32_t IndexOf(String const& key, std::uint32_t size) {
    std::string const& text = key.GetStdString();
    std::uint32_t index = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    bool const isWhole = error == std::errc() && end == text.data() + text.size();
    bool const isPlain = text.size() == 1 || text.front() != '0';
    return isWhole && isPlain && index < size ? index : size;
}

} // namespace

void ChoiceEntries::Take(Anything const& texts) {
    texts_ = texts;
    vector_ = &texts_.GetVectorOfAnythings();
    size_ = static_cast<long>(vector_->GetSize());
    order_.clear();
    searched_ = false;
    index_.clear();
}

void ChoiceEntries::SetVector(Anything const& texts) {
    for (Anything const& text : texts.GetVectorOfAnythings()) text.GetString();
    Take(texts);
}

void ChoiceEntries::SetMap(Anything const& texts) {
    auto const& map = texts.GetMapOfAnythings();
    std::uint32_t const size = map.GetSize();
    Anything::VectorOfAnythings ordered(size);
    // A look-up in so large a map walks long chains.
    for (auto entry = map.Begin(); entry.IsValid(); ++entry) {
        std::uint32_t const index = IndexOf(entry.GetKey(), size);
        if (index == size) continue;
        entry.GetValue().GetString();
        ordered[index] = entry.GetValue();
    }
    auto const gap = std::find_if(ordered.begin(), ordered.end(), [](auto const& e) { return !e.IsValid(); });
    if (gap == ordered.end()) return Take(ordered);
    auto const before = static_cast<std::uint32_t>(gap - ordered.begin());
    ordered.Resize(before);
    Take(ordered);
    map[String(static_cast<unsigned long>(before))]; // throws
}

String const& ChoiceEntries::operator[](long index) const {
    auto const at = static_cast<std::uint32_t>(index);
    return (*vector_)[order_.empty() ? at : order_[at]].GetString();
}

long ChoiceEntries::Find(String const& text) const {
    // One search walks the entries; more than one are worth an index.
    if (!std::exchange(searched_, true)) {
        for (long i = 0; i < size_; ++i)
            if ((*this)[i] == text) return i;
        return -1;
    }
    if (index_.empty()) {
        index_.reserve(static_cast<std::size_t>(size_));
        for (long i = 0; i < size_; ++i) index_.emplace((*this)[i].GetStdString(), i);
    }
    auto const found = index_.find(text.GetStdString());
    return found == index_.end() ? -1 : found->second;
}

void ChoiceEntries::SetOrder(std::vector<std::uint32_t> order) {
    order_ = std::move(order);
    searched_ = false;
    index_.clear();
}

} // namespace GUI
