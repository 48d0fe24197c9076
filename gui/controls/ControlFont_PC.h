#pragma once

#include "gui/elements/description/Attributes.h"

#include <QFont>

namespace GUI {

/// The font attributes of a control.
struct FontAttributes {
    Attribute const& name;
    Attribute const& size;
    Attribute const& bold;
    Attribute const& italic;
    Attribute const& underline;
};

/// The font that a description asks for; `window` is that of the window, for what it leaves open.
QFont ReadFont(AttributeReader const& reader, FontAttributes const& attributes, QFont const& window);

} // namespace GUI
