// Names a profile for the display's screen, as a colour manager does: set_display_profile wide|broken
// "wide" has the primaries of Adobe RGB (1998) and a gamma of 2.2; "broken" is no profile.
#include <cstring>
#include <lcms2.h>
#include <string>
#include <xcb/xcb.h>

namespace {

std::string WideProfile() {
    cmsCIExyY const white{0.3127, 0.3290, 1.0};
    cmsCIExyYTRIPLE const primaries{{0.64, 0.33, 1.0}, {0.21, 0.71, 1.0}, {0.15, 0.06, 1.0}};
    cmsToneCurve* const gamma = cmsBuildGamma(nullptr, 2.2);
    cmsToneCurve* const curves[] = {gamma, gamma, gamma};
    cmsHPROFILE const profile = cmsCreateRGBProfile(&white, &primaries, curves);
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    cmsFreeToneCurve(gamma);
    return bytes;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    std::string const bytes = std::strcmp(arguments[1], "wide") == 0 ? WideProfile() : "no profile";
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) return 1;
    constexpr char name[] = "_ICC_PROFILE";
    auto* const atom =
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, sizeof(name) - 1, name), nullptr);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE,
                        xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, atom->atom,
                        XCB_ATOM_CARDINAL, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    free(atom);
    // Waits until the display has taken it.
    free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    xcb_disconnect(connection);
    return 0;
}
