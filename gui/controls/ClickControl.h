#pragma once

#include "gui/elements/GUIElement.h"

#include <optional>

namespace GUI {

/// What buttons and check boxes do with a click: the data source is told the new "State", if there is one,
/// and then the callback "OnClick" runs with the element's name. What that lets escape is reported to the
/// user by the application.
class ClickControl : public GUIElement {
protected:
    /// To be called by the platform's class. The element may be released when this returns.
    void OnClicked(std::optional<long> state);
};

} // namespace GUI
