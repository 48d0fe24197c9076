#include "gui/grid/edit/GridSort.h"

#include "gui/grid/model/GridNumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

using Line = GridOrder::Line;

struct NumberKey {
    std::uint64_t key;
    Line line;
};
struct TextKey {
    String text;
    Line line;
};

/// The bits of a number in an order that unsigned numbers sort by.
std::uint64_t OrderedBits(double number, bool descending) {
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    // Both zeros are equal.
    auto const bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    std::uint64_t const ordered = (bits & sign) != 0 ? ~bits : bits | sign;
    return descending ? ~ordered : ordered;
}

/// Stable, by digits of 11 bits from the lowest on: for 100000 rows a fifth of the time of a sort by
/// comparisons.
void SortNumbers(std::vector<NumberKey>& keys) {
    constexpr unsigned digitBits = 11;
    constexpr std::size_t digits = std::size_t{1} << digitBits;
    std::vector<NumberKey> other(keys.size());
    for (unsigned shift = 0; shift < 64; shift += digitBits) {
        std::array<std::uint32_t, digits> counts{};
        auto const digitOf = [shift](NumberKey const& key) { return (key.key >> shift) & (digits - 1); };
        for (NumberKey const& key : keys) ++counts[digitOf(key)];
        if (std::ranges::find(counts, keys.size()) != counts.end()) continue;
        std::uint32_t place = 0;
        for (std::uint32_t& count : counts) {
            std::uint32_t const begin = place;
            place += count;
            count = begin;
        }
        for (NumberKey const& key : keys) other[counts[digitOf(key)]++] = key;
        keys.swap(other);
    }
}

void SortBy(CGXGridCore const& core, GridOrder::Lines& lines, GridSortKey const& by, char decimalSign) {
    Line const column = core.GetColumnLine(by.column);
    std::vector<NumberKey> numbers;
    std::vector<TextKey> texts;
    GridOrder::Lines empty;
    numbers.reserve(lines.size());
    for (Line const line : lines) {
        String const& text = core.GetCell(line, column).text;
        if (text.Length() == 0)
            empty.push_back(line);
        else if (auto const number = ReadGridNumber(text, decimalSign))
            numbers.push_back({OrderedBits(*number, by.descending), line});
        else
            texts.push_back({text.GetAsLower(), line});
    }
    SortNumbers(numbers);
    std::ranges::stable_sort(texts, [&by](TextKey const& left, TextKey const& right) {
        return by.descending ? right.text.GetStdString() < left.text.GetStdString()
                             : left.text.GetStdString() < right.text.GetStdString();
    });
    auto place = lines.begin();
    auto const putNumbers = [&] {
        for (NumberKey const& key : numbers) *place++ = key.line;
    };
    if (!by.descending) putNumbers();
    for (TextKey const& key : texts) *place++ = key.line;
    if (by.descending) putNumbers();
    std::copy(empty.begin(), empty.end(), place);
}

} // namespace

GridOrder::Lines SortGridRows(CGXGridCore const& core, long first, std::span<GridSortKey const> keys,
                              char decimalSign) {
    GridOrder::Lines lines;
    lines.reserve(static_cast<std::size_t>(std::max(core.GetRowCount() - first + 1, 0L)));
    for (long row = first; row <= core.GetRowCount(); ++row) lines.push_back(core.GetRowLine(row));
    // Each sort is stable, so the first key comes last.
    for (std::size_t i = keys.size(); i > 0; --i)
        if (core.HasPlace({0, keys[i - 1].column})) SortBy(core, lines, keys[i - 1], decimalSign);
    return lines;
}

GridRange FindGridText(CGXGridCore const& core, String const& what, GridPlace const& from, bool backward,
                       bool exactCase) {
    long const columns = core.GetColumnCount();
    long const cells = core.GetRowCount() * columns;
    if (what.Length() == 0 || cells == 0) return {};
    String const wanted = exactCase ? what : what.GetAsLower();
    long const start = (std::clamp(from.row, 1L, core.GetRowCount()) - 1) * columns +
                       std::clamp(from.column, 1L, columns) - 1;
    for (long i = 1; i <= cells; ++i) {
        long const cell = (start + (backward ? cells - i : i)) % cells;
        GridPlace const place{cell / columns + 1, cell % columns + 1};
        String const& text = core.GetText(place);
        if (text.Length() < wanted.Length()) continue;
        if ((exactCase ? text : text.GetAsLower()).FindSubstring(wanted, 0) >= 0) return GridRange::Of(place);
    }
    return {};
}

} // namespace GUI
