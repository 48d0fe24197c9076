#include "hosts/colourdesk/SampleGrid.h"

#include "Utilities/LanguageServiceInterface.h"
#include "cxf/colorimetry/Batch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

namespace ColourDesk {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;
using Utilities::String;

namespace {

enum Column : long { name = 1, colour, lightness, a, b, chroma, hue, difference, spectrum };

struct Head {
    char const* text;
    char const* width;
    short decimals;
};
constexpr std::array<Head, 9> heads{{{"Name", "204", 0},
                                     {"Colour", "72", 0},
                                     {"L*", "88", 2},
                                     {"a*", "88", 2},
                                     {"b*", "88", 2},
                                     {"C*ab", "88", 2},
                                     {"hab", "88", 1},
                                     {"\u0394E00 to the selected", "176", 2},
                                     {"Spectrum", "120", 0}}};

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

std::string ColorText(GUI::RGBVector const& color) {
    return std::to_string(color.GetRed()) + "," + std::to_string(color.GetGreen()) + "," +
           std::to_string(color.GetBlue());
}

std::string SpectrumText(std::vector<float> const& spectrum) {
    std::string text;
    for (float const value : spectrum)
        text += (text.empty() ? "" : ";") + String(static_cast<double>(value), 4, '.').GetStdString();
    return text;
}

} // namespace

Anything SampleGrid::GetValue(String const& key) const {
    if (key == "RowCount") return static_cast<long>(samples_.size()) + 1;
    if (key == "ColumnStyles") return GetColumns();
    if (key.FindSubstring("Rows ", 0) != 0) return {};
    String const range = key.Mid(5, key.Length());
    long const first = range.GetToken(0, '-').GetLong();
    long const last = std::min(range.GetToken(1, '-').GetLong(), static_cast<long>(samples_.size()));
    Anything::VectorOfAnythings rows(static_cast<std::uint32_t>(std::max(last - first + 1, 0L)));
    for (std::uint32_t i = 0; i < rows.GetSize(); ++i) {
        long const row = first + static_cast<long>(i);
        rows[i] = GetRow(row + 1, row == 0);
    }
    return rows;
}

Anything SampleGrid::GetColumns() {
    Anything::VectorOfAnythings styles(heads.size());
    for (std::uint32_t i = 0; i < heads.size(); ++i) {
        Anything::MapOfAnythings style;
        style["Width"] = heads[i].width;
        if (i + 1 == colour)
            style["Control"] = "Patch";
        else if (i + 1 == spectrum)
            style["Control"] = "Curve";
        else if (i + 1 != name) {
            style["Number"] = "Yes";
            // Of the head too.
            style["Alignment"] = "Right";
        }
        styles[i] = style;
    }
    return styles;
}

Anything SampleGrid::GetRow(long row, bool isHead) const {
    Anything::VectorOfAnythings cells(heads.size());
    for (std::uint32_t i = 0; i < heads.size(); ++i) {
        if (isHead) {
            cells[i] = LanguageServiceInterface::GetTranslation(heads[i].text);
            continue;
        }
        long const sample = GetSample(row);
        ShownSample const& shown = samples_[static_cast<std::size_t>(sample)];
        long const column = static_cast<long>(i) + 1;
        if (column == name)
            cells[i] = shown.name.c_str();
        else if (column == colour)
            cells[i] = ColorText(shown.color).c_str();
        else if (column == spectrum)
            cells[i] = SpectrumText(shown.spectrum).c_str();
        else if (double const number = GetNumber(sample, column); std::isnan(number))
            cells[i] = "\u2013";
        else
            cells[i] = String(number, heads[i].decimals, '.');
    }
    return cells;
}

double SampleGrid::GetNumber(long sample, long column) const {
    auto const& lab = samples_[static_cast<std::size_t>(sample)].lab;
    double const c = std::hypot(lab[1], lab[2]);
    // What has no chroma to speak of has no hue.
    constexpr double neutral = 0.005;
    double const degrees = std::atan2(lab[2], lab[1]) * 180 / std::numbers::pi;
    double result = noNumber;
    switch (column) {
    case lightness:
    case a:
    case b:
        return lab[static_cast<std::size_t>(column - lightness)];
    case chroma:
        return c;
    case hue:
        return c < neutral ? noNumber : (degrees < 0 ? degrees + 360 : degrees);
    case difference:
        if (standard_ >= 0)
            Norvelian::Tristim::Batch::DeltaE2000(samples_[static_cast<std::size_t>(standard_)].lab, lab,
                                                  {&result, 1});
        return result;
    default:
        return noNumber;
    }
}

bool SampleGrid::IsBefore(long left, long right, long column) const {
    auto const& one = samples_[static_cast<std::size_t>(left)];
    auto const& other = samples_[static_cast<std::size_t>(right)];
    if (column == name) return one.name < other.name;
    // What is no number goes by its lightness.
    long const by = column == colour || column == spectrum ? static_cast<long>(lightness) : column;
    double const first = GetNumber(left, by);
    double const second = GetNumber(right, by);
    return std::isnan(second) ? !std::isnan(first) : first < second;
}

void SampleGrid::Sort(String const& order) {
    order_.clear();
    if (order.Length() == 0) return;
    order_.resize(samples_.size());
    std::iota(order_.begin(), order_.end(), 0L);
    // Each sort is stable, so the first key comes last.
    for (long i = order.GetTokenCount(';') - 1; i >= 0; --i) {
        long const key = order.GetToken(i, ';').GetLong();
        std::ranges::stable_sort(order_, [this, key](long left, long right) {
            return key < 0 ? IsBefore(right, left, -key) : IsBefore(left, right, key);
        });
    }
}

long SampleGrid::GetSample(long row) const {
    long const place = row - 2;
    if (place < 0 || place >= static_cast<long>(samples_.size())) return -1;
    return order_.empty() ? place : order_[static_cast<std::size_t>(place)];
}

long SampleGrid::GetRow(long sample) const {
    if (order_.empty()) return sample + 2;
    return static_cast<long>(std::ranges::find(order_, sample) - order_.begin()) + 2;
}

} // namespace ColourDesk
