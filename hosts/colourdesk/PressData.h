#pragma once

#include "core/base/String.h"
#include "core/values/Anything.h"

#include <string>

namespace ColourDesk {

/// A press run that never was: what the gallery's press page shows. All of it is simulated, from a fixed
/// seed, so that it is the same everywhere.
namespace PressData {

/// The value for an example of a component in a state, or for the graph in a chart; invalid for what isn't of
/// the press.
Utilities::Anything GetValue(std::string const& component, std::string const& state,
                             Utilities::String const& name);

/// The update that brings an example its data; empty for what isn't of the press.
std::string MessageOf(std::string const& component, std::string const& state);

} // namespace PressData

} // namespace ColourDesk
