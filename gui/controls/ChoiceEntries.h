#pragma once

#include "core/values/Anything.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace GUI {

/// The texts of a list, in the order of the data source or sorted. What the data source gave is shared and
/// not copied, so that a list of 100000 texts is taken over at once.
class ChoiceEntries {
public:
    /// A vector of texts. One that isn't a text throws `BadCastException`, and nothing changes.
    void SetVector(Utilities::Anything const& texts);
    /// A map of texts with the keys "0", "1" and so on, in linear time. Where a key is missing, the entries
    /// before it are taken, and `OutOfRangeException` is thrown.
    void SetMap(Utilities::Anything const& texts);

    long GetSize() const { return size_; }
    Utilities::String const& operator[](long index) const;
    /// Index of the first entry with that text, -1 if there is none. Fast from the second search on.
    long Find(Utilities::String const& text) const;
    /// Shows the entries in another order: where each stood before.
    void SetOrder(std::vector<std::uint32_t> order);

private:
    void Take(Utilities::Anything const& texts);

    Utilities::Anything texts_;
    /// Null while there are none.
    Utilities::Anything::VectorOfAnythings const* vector_ = nullptr;
    long size_ = 0;
    /// Where sorted entries are in the vector; empty for the order of the vector.
    std::vector<std::uint32_t> order_;
    mutable bool searched_ = false;
    mutable std::unordered_map<std::string_view, long> index_;
};

} // namespace GUI
