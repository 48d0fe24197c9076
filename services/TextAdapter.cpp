#include "services/TextAdapter.h"

#include "core/base/Utf8.h"
#include "core/creators/ComponentCreator.h"

#include <algorithm>
#include <string_view>

namespace Utilities {

namespace {

ComponentCreatorSingleton<TextAdapter> creator({"TextAdapter", "$Revision: 1.7 $", "Tools"});

constexpr char ellipsis = '\x85';

} // namespace

String TextAdapter::Adapt(String const& text, unsigned long maxLength) {
    std::string const& bytes = text.GetStdString();
    std::size_t const length = bytes.size();
    if (length <= maxLength || maxLength == 0) return text;

    auto const isBlank = [&](std::size_t position) { return position < length && bytes[position] == ' '; };
    std::size_t const headLength = isBlank(1) ? 1 : 2;
    std::size_t const tailStart = length - maxLength + 1 + headLength;

    std::size_t wholeHead = 0;
    while (wholeHead < headLength) {
        std::string_view const rest = std::string_view(bytes).substr(wholeHead);
        std::size_t const next = wholeHead + std::max<std::size_t>(Utf8SequenceLength(rest), 1);
        // A long character that leaves no room for the ellipsis is better left out.
        if (next > headLength && next + 1 > maxLength) break;
        wholeHead = next;
    }
    std::size_t const wholeTail =
        Utf8BoundaryAtOrBehind(bytes, tailStart + std::max(wholeHead, headLength) - headLength);
    std::size_t const behindBlank = isBlank(wholeTail) ? wholeTail + 1 : wholeTail;
    return {bytes.substr(0, wholeHead) + ellipsis + bytes.substr(std::min(behindBlank, length))};
}

} // namespace Utilities
