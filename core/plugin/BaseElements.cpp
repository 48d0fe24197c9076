#include "core/creators/ComponentCreator.h"
#include "gui/elements/Pane.h"

/// Elements of the element library that descriptions can name, registered for the plug-in's life.
namespace GUI {

namespace {

Utilities::ComponentCreatorNormal<Pane> const paneCreator(Pane::componentDescription);

} // namespace

} // namespace GUI
