#include "gui/shell/ShellCommand.h"

#include <algorithm>
#include <string_view>

namespace GUI {

using Utilities::String;

namespace {

/// The position of the first such character outside quotes, or the end.
std::size_t FindUnquoted(std::string_view text, char wanted) {
    bool quoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        // Two quotes in a row end and begin, and so leave it as it was.
        if (text[at] == '"') quoted = !quoted;
        if (text[at] == wanted && !quoted) return at;
    }
    return text.size();
}

/// What the first pair of quotes holds; without a second one, all behind the first.
std::string Unquoted(std::string_view text) {
    std::string inner;
    for (std::size_t at = text.find('"') + 1; at < text.size(); ++at) {
        if (text[at] == '"' && (at + 1 == text.size() || text[at + 1] != '"')) break;
        if (text[at] == '"') ++at;
        inner += text[at];
    }
    return inner;
}

ShellCommand Parse(std::string_view body) {
    auto const open = FindUnquoted(body, '(');
    ShellCommand command{String(std::string(body.substr(0, open))).GetAsUpper(), {}};
    if (open == body.size()) return command;
    body.remove_prefix(open + 1);
    body = body.substr(0, FindUnquoted(body, ')'));
    command.argument =
        body.find('"') == std::string_view::npos ? String(std::string(body)) : String(Unquoted(body));
    return command;
}

} // namespace

String ShellCommand::GetText() const {
    std::string text = "[" + verb.GetStdString() + "(\"";
    for (char const c : argument.GetStdString()) text.append(c == '"' ? 2 : 1, c);
    return {text + "\")]"};
}

std::vector<ShellCommand> ParseShellCommands(String const& text) {
    std::vector<ShellCommand> commands;
    std::string const& whole = text.GetStdString();
    std::string_view rest = whole;
    for (;;) {
        auto const begin = FindUnquoted(rest, '[');
        if (begin == rest.size()) return commands;
        rest.remove_prefix(begin + 1);
        // A bracket that is opened again begins the next command. The end is looked for before it only: text
        // of nothing but begins is gone through once.
        std::string_view const body = rest.substr(0, FindUnquoted(rest, '['));
        auto const end = FindUnquoted(body, ']');
        commands.push_back(Parse(body.substr(0, end)));
        rest.remove_prefix(end);
    }
}

std::optional<String> FileToOpen(String const& text) {
    if (text.GetAsUpper().FindSubstring("[OPEN(\"", 0) != 0) return {};
    return String(Unquoted(text.GetStdString()));
}

} // namespace GUI
