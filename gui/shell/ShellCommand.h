#pragma once

#include "core/base/String.h"

#include <optional>
#include <vector>

namespace GUI {

/// One command of a text in the form `[OPEN("path")]`: an upper-case verb and its argument.
struct ShellCommand {
    Utilities::String verb;
    Utilities::String argument;
};

/// The commands of a text in order. An argument in double quotes is what stands between the first two.
std::vector<ShellCommand> ParseShellCommands(Utilities::String const& text);

/// The file of a text that begins with `[OPEN("`, in any mix of cases.
std::optional<Utilities::String> FileToOpen(Utilities::String const& text);

} // namespace GUI
