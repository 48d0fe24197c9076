#include "gui/charts/PlotText.h"

namespace GUI::PlotText {

using Utilities::String;

String Fit(PlatformIndependentDeviceContext& context, String const& text, long room) {
    if (WidthOf(context, text) <= room) return text;
    std::string const& bytes = text.GetStdString();
    auto const isInside = [&bytes](std::size_t at) {
        return (static_cast<unsigned char>(bytes[at]) & 0xC0U) == 0x80U;
    };
    auto const cut = [&](std::size_t length) {
        while (length > 0 && length < bytes.size() && isInside(length)) --length;
        return String(bytes.substr(0, length) + "\u2026");
    };
    // As long a text as fits: longer ones are wider.
    std::size_t fits = 0;
    std::size_t tooLong = bytes.size();
    while (tooLong - fits > 1) {
        std::size_t const middle = fits + (tooLong - fits) / 2;
        (WidthOf(context, cut(middle)) <= room ? fits : tooLong) = middle;
    }
    String const found = cut(fits);
    bool const hasLetter = found.GetStdString().size() > std::string("\u2026").size();
    return hasLetter && WidthOf(context, found) <= room ? found : String();
}

} // namespace GUI::PlotText
