#include "gui/shell/ShellCommand.h"

namespace GUI {

using Utilities::String;

std::vector<ShellCommand> ParseShellCommands(String const& text) {
    std::vector<ShellCommand> commands;
    for (long i = 1; i < text.GetTokenCount('['); ++i) {
        String const body = text.GetToken(i, '[').GetToken(0, ']');
        ShellCommand command{body.GetToken(0, '(').GetAsUpper(), {}};
        if (body.FindSubstring("(", 0) >= 0) {
            command.argument = body.GetToken(1, '(').GetToken(0, ')');
            // A quoted argument may hold parentheses of its own.
            if (body.FindSubstring("\"", 0) >= 0) command.argument = body.GetToken(1, '"');
        }
        commands.push_back(command);
    }
    return commands;
}

std::optional<String> FileToOpen(String const& text) {
    if (text.GetAsUpper().FindSubstring("[OPEN(\"", 0) != 0) return {};
    return text.GetToken(1, '"');
}

} // namespace GUI
