#include "gui/controls/ControlFont_PC.h"

#include "gui/platform/Fonts_PC.h"
#include "gui/platform/TextConversion_PC.h"

namespace GUI {

QFont ReadFont(AttributeReader const& reader, FontAttributes const& attributes, QFont const& window) {
    constexpr short smallest = 8;
    QFont font = window;
    long const size = reader.Long(attributes.size);
    if (reader.Has(attributes.name))
        font = FindFont(size != 0 ? static_cast<short>(size) : smallest, 0, reader.Text(attributes.name), 0);
    else if (size != 0)
        font.setPixelSize(FindFont(static_cast<short>(size), 0, {}, 0).pixelSize());
    font.setBold(reader.Flag(attributes.bold));
    font.setItalic(reader.Flag(attributes.italic));
    font.setUnderline(reader.Flag(attributes.underline));
    return font;
}

} // namespace GUI
