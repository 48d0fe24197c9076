#pragma once

#include "gui/elements/DialogHandler.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"

#include <string>
#include <vector>

namespace ColourDesk {

/// The components of the library in their states, from the description "Gallery". An example is an element
/// named "Component.State"; this answers its questions by the state.
class Gallery : public GUI::DialogHandler {
public:
    Gallery();
    ~Gallery() override;

    /// All examples in one window.
    GUI::GUIElement& Show();
    /// Writes one picture an example, "Component.State.png", into the directory, which is made if needed.
    /// Throws `ResourceException` for what can't be written.
    void WritePictures(std::string const& directory, GUI::ApplicationImplementation& platform);

    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;

private:
    GUI::GUIElement& Open(GUI::DescriptionTree const& description);

    GUI::DescriptionTree description_;
    Utilities::SmartPointer<GUI::PlatformIndependentWindowID> noParent_;
    Utilities::SmartPointer<GUI::GUIElement> window_;
};

} // namespace ColourDesk
