#include "gui/elements/drawing/NumberFormat.h"

#include "Utilities/LanguageServiceInterface.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

constexpr char const* missing = "\u2013";
constexpr char const* minus = "\u2212";

constexpr std::pair<std::string_view, NumberFormat> quantities[] = {
    {"Lab", {2, false, ""}},       {"DeltaE", {2, false, ""}},    {"Density", {2, false, ""}},
    {"Difference", {2, true, ""}}, {"Hue", {1, false, "\u00b0"}}, {"Reflectance", {4, false, ""}},
    {"Wavelength", {0, false, ""}}};

std::string DecimalSign() {
    std::string const sample = Utilities::LanguageServiceInterface::GetTranslation("0.0").GetStdString();
    bool const isSample = sample.size() > 2 && sample.front() == '0' && sample.back() == '0';
    return isSample ? sample.substr(1, sample.size() - 2) : ".";
}

} // namespace

std::optional<NumberFormat> NumberFormat::Find(String const& quantity) {
    std::string_view const name = quantity.GetStdString();
    auto const* const found = std::find_if(std::begin(quantities), std::end(quantities),
                                           [name](auto const& known) { return known.first == name; });
    if (found == std::end(quantities)) return {};
    return found->second;
}

String NumberFormat::Write(double value) const {
    if (!std::isfinite(value)) return missing;
    std::string digits = String(std::abs(value), decimals, '.').GetStdString();
    bool const isZero = digits.find_first_not_of("0.") == std::string::npos;
    if (auto const point = digits.find('.'); point != std::string::npos)
        digits.replace(point, 1, DecimalSign());
    char const* const sign = isZero ? "" : value < 0 ? minus : isSigned ? "+" : "";
    return String(sign + digits + unit);
}

} // namespace GUI
