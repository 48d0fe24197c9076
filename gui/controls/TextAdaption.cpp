#include "gui/controls/TextAdaption.h"

namespace GUI {

using Utilities::String;

String AdaptText(String const& text, long clientWidth, std::function<long(String const&)> const& measure,
                 std::function<String(String const&, unsigned long)> const& adapt) {
    constexpr int maximalPasses = 3;
    long width = measure(text);
    if (text.Length() == 0 || width == 0) return text;
    auto allowed = static_cast<long>(static_cast<double>(clientWidth) *
                                     (static_cast<double>(text.Length()) / static_cast<double>(width)));
    String shown = text;
    for (int pass = 0; pass < maximalPasses && width > clientWidth && allowed != 1; ++pass) {
        shown = adapt(text, static_cast<unsigned long>(allowed));
        width = measure(shown);
        --allowed;
    }
    return shown;
}

} // namespace GUI
