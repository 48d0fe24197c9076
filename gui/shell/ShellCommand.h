#pragma once

#include "core/base/String.h"

#include <optional>
#include <vector>

namespace GUI {

/// One command of a text in the form `[OPEN("path")]`: an upper-case verb and its argument.
///
/// Between double quotes every character is itself, brackets and parentheses too; a double quote in there
/// is written as two.
struct ShellCommand {
    Utilities::String verb;
    Utilities::String argument;

    /// The command as a text, with its argument in quotes.
    Utilities::String GetText() const;
};

/// The commands of a text in order. An argument that holds quotes is what is quoted first.
std::vector<ShellCommand> ParseShellCommands(Utilities::String const& text);

/// The file of a text that begins with `[OPEN("`, in any mix of cases.
std::optional<Utilities::String> FileToOpen(Utilities::String const& text);

} // namespace GUI
