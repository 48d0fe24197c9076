#pragma once

#include "gui/elements/colour/ScreenRGB.h"

namespace ColourDesk {

/// The program's shared services, which components ask for by the name "Model": the screen, under
/// "ScreenRGB".
class DeskModel : public Tintorium::Model {
public:
    Utilities::SmartPointer<Utilities::Component> GetComponent(Utilities::String const& name) override;
    /// The screen that everything is shown on from now on.
    static void SetScreen(Tintorium::ScreenRGB const& screen);
};

} // namespace ColourDesk
