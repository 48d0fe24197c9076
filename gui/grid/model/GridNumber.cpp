#include "gui/grid/model/GridNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

constexpr std::string_view minus = "\u2212";

} // namespace

std::optional<double> ReadGridNumber(Utilities::String const& text, char decimalSign) {
    constexpr std::size_t longest = 64;
    std::string_view rest = text.GetStdString();
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) rest.remove_prefix(1);
    while (!rest.empty() && (rest.back() == ' ' || rest.back() == '\t')) rest.remove_suffix(1);
    double sign = 1;
    if (rest.starts_with(minus)) {
        sign = -1;
        rest.remove_prefix(minus.size());
    } else if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
        sign = rest.front() == '-' ? -1 : 1;
        rest.remove_prefix(1);
    }
    // Neither "inf" nor a second sign.
    if (rest.empty() || rest.size() > longest ||
        !((rest.front() >= '0' && rest.front() <= '9') || rest.front() == '.' || rest.front() == decimalSign))
        return {};
    std::array<char, longest> digits{};
    if (decimalSign != '.' && rest.find(decimalSign) != std::string_view::npos) {
        // "1.234,5" could be two numbers.
        if (rest.find('.') != std::string_view::npos) return {};
        std::replace_copy(rest.begin(), rest.end(), digits.begin(), decimalSign, '.');
        rest = {digits.data(), rest.size()};
    }
    double number = 0;
    auto const [end, failure] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (failure != std::errc() || end != rest.data() + rest.size()) return {};
    return sign * number;
}

String ShowGridNumber(String const& text, char decimalSign, bool trueMinus) {
    if ((decimalSign == '.' && !trueMinus) || !ReadGridNumber(text)) return text;
    std::string shown;
    for (char const character : text.GetStdString())
        if (character == '-' && trueMinus)
            shown += minus;
        else
            shown += character == '.' ? decimalSign : character;
    return shown;
}

String KeepGridNumber(String const& typed, char decimalSign) {
    if (!ReadGridNumber(typed, decimalSign)) return typed;
    std::string kept;
    std::string_view const text = typed.GetStdString();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i).starts_with(minus)) {
            kept += '-';
            i += minus.size() - 1;
        } else if (text[i] == decimalSign) {
            kept += '.';
        } else if (text[i] != ' ' && text[i] != '\t') {
            kept += text[i];
        }
    }
    return kept;
}

} // namespace GUI
