#pragma once

#include <string>

namespace GUI {

/// The ICC profile that the desktop names for its screen, as bytes; empty if it names none.
///
/// On X11 that is the property "_ICC_PROFILE" of the root window, where colour managers put the profile of
/// the primary screen (freedesktop.org, "ICC Profiles in X"). Other platforms name none through Qt 6.4.
/// GUI thread only.
std::string ReadDisplayProfile();

} // namespace GUI
