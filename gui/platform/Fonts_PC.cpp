#include "gui/platform/Fonts_PC.h"

#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"
#include "gui/platform/TextConversion_PC.h"

#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <tuple>

namespace GUI {

namespace {

QFont MakeFont(short height, short width, Utilities::String const& face, int style) {
    constexpr int smallestPoints = 8;
    constexpr double pixelsPerPoint = 96.0 / 72.0;
    QFont font;
    if (face == "Arial")
        font.setFamilies(QStringList{"Arial", "Liberation Sans"});
    else if (face.Length() != 0 && !(face == "MS Sans Serif") && !(face == "SystemFont"))
        font.setFamilies(QStringList{ToPlatformText(face)});
    font.setStyleHint(QFont::SansSerif);
    int const points = std::max<int>(height, smallestPoints);
    font.setPixelSize(height < 0 ? -height : static_cast<int>(std::lround(points * pixelsPerPoint)));
    using Context = PlatformIndependentDeviceContext;
    font.setBold((style & Context::boldFont) != 0);
    font.setItalic((style & Context::italicFont) != 0);
    font.setUnderline((style & Context::underlinedFont) != 0);
    if (width > 0) {
        int const own = QFontMetrics(font).averageCharWidth();
        if (own > 0) font.setStretch(std::clamp(100 * width / own, 1, 4000));
    }
    return font;
}

} // namespace

QFont const& FindFont(short height, short width, Utilities::String const& face, int style) {
    using Key = std::tuple<short, short, std::string, int>;
    static std::map<Key, QFont> fonts;
    Key const key(height, width, face.GetStdString(), style);
    auto found = fonts.find(key);
    if (found == fonts.end()) found = fonts.emplace(key, MakeFont(height, width, face, style)).first;
    return found->second;
}

} // namespace GUI
