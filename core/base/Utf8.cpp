#include "core/base/Utf8.h"

namespace Utilities {

namespace {

bool IsContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80U; }

} // namespace

std::size_t Utf8SequenceLength(std::string_view bytes) {
    auto const at = [bytes](std::size_t index) {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index])
                                    : static_cast<unsigned char>(0);
    };
    if (bytes.empty()) return 0;
    unsigned char const lead = at(0);
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return IsContinuation(at(1)) ? 2 : 0;
    if ((lead & 0xF0U) == 0xE0U) {
        // No overlong form and no surrogate.
        bool const secondFits = !(lead == 0xE0 && at(1) < 0xA0) && !(lead == 0xED && at(1) > 0x9F);
        return secondFits && IsContinuation(at(1)) && IsContinuation(at(2)) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        bool const secondFits = !(lead == 0xF0 && at(1) < 0x90) && !(lead == 0xF4 && at(1) > 0x8F);
        return secondFits && IsContinuation(at(1)) && IsContinuation(at(2)) && IsContinuation(at(3)) ? 4 : 0;
    }
    return 0;
}

std::size_t Utf8BoundaryAtOrBehind(std::string_view text, std::size_t position) {
    constexpr std::size_t longestPartBefore = 3;
    if (position >= text.size()) return text.size();
    for (std::size_t back = 1; back <= longestPartBefore && back <= position; ++back) {
        if (!IsContinuation(static_cast<unsigned char>(text[position - back + 1]))) break;
        std::size_t const length = Utf8SequenceLength(text.substr(position - back));
        if (length > back) return position - back + length;
    }
    return position;
}

} // namespace Utilities
