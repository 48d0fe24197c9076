#include "gui/controls/Button.h"

namespace GUI {

namespace {

constexpr Attribute attributes[] = {Button::caption,
                                    Button::bitmapButton,
                                    Button::isDefault,
                                    ControlAttributes::toolTipText,
                                    Button::flat,
                                    Button::drawBorder,
                                    Button::toggle,
                                    ControlAttributes::mnemonics,
                                    ControlAttributes::accessibleName};
AttributeTable const table("Button", "GUIElement", attributes);

} // namespace

} // namespace GUI
