#include "core/creators/ComponentCreator.h"
#include "gui/elements/Pane.h"

namespace {

// The base library's own element; its class can't hold the creator, which belongs to this module.
Utilities::ComponentCreatorNormal<GUI::Pane> paneCreator({"Pane", "$Revision: 1.44 $", "GUI"});

} // namespace
