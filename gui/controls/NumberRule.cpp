#include "gui/controls/NumberRule.h"

#include <algorithm>
#include <charconv>

namespace GUI {

namespace {

constexpr char const* trueMinus = "\xE2\x88\x92";

void ReplaceFirst(std::string& text, std::string const& what, char const* with) {
    if (auto const at = text.find(what); !what.empty() && at != std::string::npos)
        text.replace(at, what.size(), with);
}

} // namespace

std::optional<std::string> NumberRule::Read(std::string const& typed, std::string const& decimalSign) const {
    auto const begin = typed.find_first_not_of(' ');
    if (begin == std::string::npos) return std::nullopt;
    std::string text = typed.substr(begin, typed.find_last_not_of(' ') - begin + 1);
    ReplaceFirst(text, trueMinus, "-");
    if (decimalSign != ".") ReplaceFirst(text, decimalSign, ".");
    if (text.front() == '+') text.erase(0, 1);
    std::size_t const sign = text.starts_with('-') ? 1 : 0;
    // "5." and ".5" are numbers, "." is none.
    auto const isDigit = [](char character) { return character >= '0' && character <= '9'; };
    auto const whole = std::find_if_not(text.begin() + static_cast<long>(sign), text.end(), isDigit);
    auto const point = whole;
    auto const fraction = point != text.end() && *point == '.' ? point + 1 : point;
    if (std::find_if_not(fraction, text.end(), isDigit) != text.end()) return std::nullopt;
    long const digits = text.end() - fraction;
    if (digits > decimals || (whole == text.begin() + static_cast<long>(sign) && digits == 0))
        return std::nullopt;
    if (text.back() == '.') text.pop_back();
    if (text.size() > sign && text[sign] == '.') text.insert(sign, "0");
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    if (value < minimum || value > maximum) return std::nullopt;
    return text;
}

} // namespace GUI
