#include "gui/press/PressText.h"

#include "Utilities/NamingService.h"
#include "gui/controls/TextAdaption.h"
#include "services/TextAdapter.h"

#include <cmath>

namespace Ostrinda {

using Utilities::String;

std::pair<long, long> ExtentOf(GUI::PlatformIndependentDeviceContext& context, String const& text) {
    long width = 0;
    long height = 0;
    context.GetTextExtent(text, width, height);
    return {width, height};
}

String Shortened(GUI::PlatformIndependentDeviceContext& context, String const& text, long width) {
    constexpr char const* adapterName = "TextAdapter";
    if (!Utilities::NamingService::Instance()->IsRegistered(adapterName)) return text;
    auto const adapter = Utilities::ResolveComponent<Utilities::TextAdapter>(adapterName);
    auto const measure = [&context](String const& measured) { return ExtentOf(context, measured).first; };
    String shown =
        GUI::AdaptText(text, width, measure, [&adapter](String const& whole, unsigned long length) {
            return adapter->Adapt(whole, length);
        });
    shown.Replace("...", "\x85");
    return shown;
}

GUI::RGBVector InkOn(GUI::RGBVector const& ground) {
    constexpr double brightest = 224;
    int const red = ground.GetRed();
    int const green = ground.GetGreen();
    int const blue = ground.GetBlue();
    bool const isDark = std::sqrt(red * red + green * green + blue * blue / 3) <= brightest;
    return isDark ? GUI::RGBVector(255, 255, 255) : GUI::RGBVector();
}

} // namespace Ostrinda
