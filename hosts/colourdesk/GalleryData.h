#pragma once

#include "core/base/String.h"
#include "core/values/Anything.h"

#include <string>

namespace ColourDesk {

/// What the charts and colour elements of the gallery show. Colours and curves are made up of simple
/// formulas.
namespace GalleryData {

/// The value for an example of a component in a state; also for the elements inside a chart, which ask by
/// names of their own. Invalid for what isn't known.
Utilities::Anything GetValue(std::string const& component, std::string const& state,
                             Utilities::String const& name);

/// The command by which a table selects a cell.
Utilities::Anything SelectCell(long row, long column);

/// The update that brings a component its data; empty for one that needs none.
std::string MessageOf(std::string const& component);

} // namespace GalleryData

} // namespace ColourDesk
