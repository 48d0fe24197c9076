#include "gui/charts/UpdateMessage.h"

#include <algorithm>
#include <limits>

namespace GUI::UpdateMessage {

using Utilities::String;

std::optional<Range> Range::Parse(String const& message) {
    if (message.FindSubstring(";", 0) < 0) return {};
    String const begin = message.GetToken(0, '-');
    String const end = message.GetTokenCount('-') > 1 ? message.GetToken(1, '-') : begin;
    return Range{begin.GetToken(0, ';').GetUnsignedShort(), end.GetToken(0, ';').GetUnsignedShort(),
                 begin.GetToken(1, ';').GetUnsignedShort(), end.GetToken(1, ';').GetUnsignedShort()};
}

std::uint16_t RowNumber(String const& key) {
    constexpr std::size_t mostDigits = 5;
    std::string const& text = key.GetStdString();
    bool const isNumber = !text.empty() && text.size() <= mostDigits &&
                          std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) return 0;
    unsigned long const number = key.GetUnsignedLong();
    return number <= std::numeric_limits<std::uint16_t>::max() ? static_cast<std::uint16_t>(number) : 0;
}

} // namespace GUI::UpdateMessage
