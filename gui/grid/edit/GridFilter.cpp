#include "gui/grid/edit/GridFilter.h"

#include "gui/grid/model/GridNumber.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

using Matches = std::function<bool(String const& text)>;

Matches Compile(GridFilter const& filter) {
    std::pair<std::string_view, bool (*)(double, double)> const comparisons[] = {
        {"<=", [](double cell, double limit) { return cell <= limit; }},
        {">=", [](double cell, double limit) { return cell >= limit; }},
        {"<", [](double cell, double limit) { return cell < limit; }},
        {">", [](double cell, double limit) { return cell > limit; }},
        {"=", [](double cell, double limit) { return cell == limit; }}};
    std::string_view const text = filter.text.GetStdString();
    for (auto const& [sign, compare] : comparisons) {
        if (!text.starts_with(sign)) continue;
        auto const limit = ReadGridNumber(String(text.substr(sign.size())));
        if (!limit) break;
        return [compare = compare, limit = *limit](String const& cell) {
            auto const number = ReadGridNumber(cell);
            return number && compare(*number, limit);
        };
    }
    return [wanted = filter.text.GetAsLower()](String const& cell) {
        return cell.Length() >= wanted.Length() && cell.GetAsLower().FindSubstring(wanted, 0) >= 0;
    };
}

} // namespace

std::size_t FilterGridRows(CGXGridCore const& core, GridOrder::Lines& lines,
                           std::vector<GridFilter> const& filters) {
    std::vector<std::pair<GridOrder::Line, Matches>> compiled;
    for (GridFilter const& filter : filters)
        if (core.HasPlace({0, filter.column}) && filter.text.Length() != 0)
            compiled.emplace_back(core.GetColumnLine(filter.column), Compile(filter));
    auto const passes = [&](GridOrder::Line line) {
        return std::ranges::all_of(compiled, [&](auto const& filter) {
            return filter.second(core.GetCell(line, filter.first).text);
        });
    };
    auto const others = std::stable_partition(lines.begin(), lines.end(), passes);
    return static_cast<std::size_t>(others - lines.begin());
}

} // namespace GUI
