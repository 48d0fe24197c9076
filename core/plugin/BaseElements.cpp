#include "core/creators/ComponentCreator.h"
#include "gui/controls/ImageButton.h"
#include "gui/elements/Pane.h"

/// Elements of the element library that descriptions can name, registered for the plug-in's life.
namespace GUI {

namespace {

/// The pane that a description can name: what the description has in it becomes elements inside.
class DescribedPane : public Pane {
protected:
    void CreateDescribedChildren(DescriptionTree const& description) override {
        CreateChildren(*GetWindowID(), description, GetDataSource());
    }
};

// Registered here and beside its class: the table of components has it twice.
Utilities::ComponentCreatorNormal<ImageButton> const imageButtonCreator(ImageButton::componentDescription);
Utilities::ComponentCreatorNormal<DescribedPane> const paneCreator(Pane::componentDescription);

} // namespace

} // namespace GUI
