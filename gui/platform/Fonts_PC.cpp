#include "gui/platform/Fonts_PC.h"

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

QFont MakeFont(short height, short width, Utilities::String const& face, bool bold) {
    constexpr int smallestPoints = 8;
    constexpr double pixelsPerPoint = 96.0 / 72.0;
    QFont font;
    if (face == "Arial")
        font.setFamilies(QStringList{"Arial", "Liberation Sans"});
    else if (face.Length() != 0 && !(face == "MS Sans Serif"))
        font.setFamilies(QStringList{ToPlatformText(face)});
    font.setStyleHint(QFont::SansSerif);
    int const points = std::max<int>(height, smallestPoints);
    font.setPixelSize(height < 0 ? -height : static_cast<int>(std::lround(points * pixelsPerPoint)));
    font.setBold(bold);
    if (width > 0) {
        int const own = QFontMetrics(font).averageCharWidth();
        if (own > 0) font.setStretch(std::clamp(100 * width / own, 1, 4000));
    }
    return font;
}

} // namespace

QFont const& FindFont(short height, short width, Utilities::String const& face, bool bold) {
    using Key = std::tuple<short, short, std::string, bool>;
    static std::map<Key, QFont> fonts;
    Key const key(height, width, face.GetStdString(), bold);
    auto found = fonts.find(key);
    if (found == fonts.end()) found = fonts.emplace(key, MakeFont(height, width, face, bold)).first;
    return found->second;
}

} // namespace GUI
