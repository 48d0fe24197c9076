#pragma once

#include <string>
#include <vector>

namespace GUI::ChildProcesses {

/// Starts a program that outlives this one, in a session of its own, without input, and with all signals as
/// usual; no shell is between. What has ended leaves no zombie behind, while an event loop runs, or at the
/// next start. 0, or the system's number of what went wrong.
///
/// `words` is the program and its parameters. With `search` a program without a "/" is looked for in $PATH.
/// An empty `directory` is ours.
int Start(std::vector<std::string> const& words, std::string const& directory, bool search);

} // namespace GUI::ChildProcesses
