// Names a profile for the display's screen, as a colour manager does: set_display_profile wide|broken
// "wide" is a screen of wide primaries; "broken" is no profile.
#include "tests/support/WideProfile.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <xcb/xcb.h>

int main(int count, char** arguments) {
    if (count != 2) return 2;
    std::string const bytes = std::strcmp(arguments[1], "wide") == 0 ? Tests::WideProfile() : "no profile";
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) return 1;
    constexpr char name[] = "_ICC_PROFILE";
    auto* const atom =
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof(name) - 1, name), nullptr);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE,
                        xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, atom->atom,
                        XCB_ATOM_CARDINAL, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    std::free(atom);
    // Waits until the display has taken it.
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    xcb_disconnect(connection);
    return 0;
}
