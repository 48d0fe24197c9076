#pragma once

#include <string>

namespace Utilities {

/// Full path of the running program.
std::string GetExecutablePath();
/// The program's name: its file's name up to the first ".".
std::string GetExecutableStem();
/// Where the program's own files are: the directory of the executable if "images" or "Languages" are
/// in it, otherwise "../share/<program>".
std::string GetProgramDirectory();
/// Where the user's settings are: $XDG_CONFIG_HOME, or ~/.config where that isn't an absolute path. Empty for
/// a user without a home.
std::string GetConfigurationDirectory();
/// The plug-in module of that name: beside the libraries of this system, in their directory "norvelian".
/// Empty if it can't be told where they are.
std::string GetModulePath(std::string const& name);

} // namespace Utilities
