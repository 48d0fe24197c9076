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

    /// All examples in one window, page by page.
    GUI::GUIElement& Show();
    /// Of the window and of the pictures; empty for none.
    void SetTheme(Utilities::String const& theme) { theme_ = theme; }
    /// Writes one picture an example, "Component.State.png", into the directory, which is made if needed.
    /// Throws `ResourceException` for what can't be written.
    void WritePictures(std::string const& directory, GUI::ApplicationImplementation& platform);

    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    Utilities::Callback GetCallback(Utilities::String const& element,
                                    Utilities::String const& event) override;

private:
    GUI::GUIElement& Open(GUI::DescriptionTree const& description);
    /// Brings the examples below a node their states.
    void BringStates(GUI::DescriptionTree const& node);
    void WritePicture(Utilities::SmartPointer<GUI::DescriptionTree> const& example,
                      std::string const& directory, GUI::ApplicationImplementation& platform);
    long OnPageChosen(Utilities::Anything const& tab);

    GUI::DescriptionTree description_;
    Utilities::String page_ = "Controls";
    Utilities::String theme_;
    Utilities::SmartPointer<GUI::PlatformIndependentWindowID> noParent_;
    Utilities::SmartPointer<GUI::GUIElement> window_;
};

} // namespace ColourDesk
