// Commands of other programs: any text is taken apart, and what is taken out of it comes back from its own
// text.
#include "gui/shell/ShellCommand.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    for (GUI::ShellCommand const& command : GUI::ParseShellCommands(text)) {
        // Quotes in a verb are nobody's; what they span may hold brackets.
        if (command.verb.FindSubstring("\"", 0) >= 0) continue;
        auto const again = GUI::ParseShellCommands(command.GetText());
        if (again.size() != 1 || !(again[0].verb == command.verb) || !(again[0].argument == command.argument))
            std::abort();
    }
    // A file's name is never more than one command.
    GUI::ShellCommand const open{"OPEN", text};
    auto const parsed = GUI::ParseShellCommands(open.GetText());
    auto const file = GUI::FileToOpen(open.GetText());
    if (parsed.size() != 1 || parsed[0].argument.GetStdString() != text) std::abort();
    if (!file || file->GetStdString() != text) std::abort();
    return 0;
}
