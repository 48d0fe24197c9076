#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace GUI {

/// The words of a command line: blanks part them, single or double quotes hold together what is between them,
/// and a backslash takes the next character as it is, but within single quotes. A quote that isn't closed
/// reaches to the end.
std::vector<std::string> SplitCommandLine(std::string_view line);

} // namespace GUI
