#include "gui/charts/ScaleNumbers.h"
#include "gui/elements/drawing/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace GUI::ScaleNumbers {

namespace {

constexpr int mostDecimals = 6;
/// Of a step: what repeated sums in binary differ by.
constexpr double tolerance = 1e-6;

bool IsMultiple(double value, double step) {
    double const parts = value / step;
    return std::abs(parts - std::round(parts)) < tolerance;
}

int DecimalsOf(double value) {
    double unit = 1;
    for (int decimals = 0; decimals < mostDecimals; ++decimals, unit /= 10)
        if (IsMultiple(value, unit)) return decimals;
    return mostDecimals;
}

Number Make(PlatformIndependentDeviceContext& context, double value, int decimals) {
    Number number;
    number.value = value;
    number.text = NumberFormat{static_cast<short>(decimals)}.Write(value);
    context.GetTextExtent(number.text, number.width, number.height);
    return number;
}

} // namespace

double NiceStep(double range, int mostParts) {
    if (!(range > 0) || !std::isfinite(range) || mostParts < 1) return 0;
    double const least = range / mostParts;
    double const power = std::pow(10.0, std::floor(std::log10(least)));
    for (double const factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1 - tolerance)) return factor * power;
    return 10 * power;
}

std::vector<Number> Multiples(PlatformIndependentDeviceContext& context, double begin, double end,
                              double step) {
    constexpr double most = 1000;
    double const first = std::ceil(std::min(begin, end) / step - tolerance);
    double const last = std::floor(std::max(begin, end) / step + tolerance);
    if (!(step > 0) || !(last - first < most)) return {};
    int const decimals = DecimalsOf(step);
    int const count = static_cast<int>(last - first) + 1;
    std::vector<Number> numbers;
    numbers.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int i = 0; i < count; ++i) numbers.push_back(Make(context, (first + i) * step, decimals));
    return numbers;
}

std::vector<Number> MultiplesAndEnds(PlatformIndependentDeviceContext& context, double begin, double end,
                                     double step) {
    auto numbers = Multiples(context, begin, end, step);
    if (!(step > 0) || numbers.empty()) return numbers;
    int const decimals = DecimalsOf(step);
    auto const make = [&](double value) {
        return Make(context, value, std::max(decimals, DecimalsOf(value)));
    };
    double const low = std::min(begin, end);
    double const high = std::max(begin, end);
    if (!IsMultiple(low, step)) numbers.insert(numbers.begin(), make(low));
    if (!IsMultiple(high, step)) numbers.push_back(make(high));
    return numbers;
}

} // namespace GUI::ScaleNumbers
