#include "gui/platform/DisplayProfile_PC.h"

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace GUI {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); } // NOLINT(cppcoreguidelines-no-malloc): xcb's way
};
template <class Reply> using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

} // namespace

std::string ReadDisplayProfile() {
    constexpr std::string_view name = "_ICC_PROFILE";
    // Profiles with large tables have a few megabytes.
    constexpr std::uint32_t mostWords = 16U * 1024U * 1024U / 4U;

    auto const* const x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t* const connection = x11 ? x11->connection() : nullptr;
    if (!connection) return {};
    ReplyPointer<xcb_intern_atom_reply_t> const atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE) return {};
    xcb_window_t const root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    ReplyPointer<xcb_get_property_reply_t> const property(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_ANY, 0, mostWords), nullptr));
    if (!property || property->format != 8 || property->bytes_after != 0) return {};
    return {static_cast<char const*>(xcb_get_property_value(property.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(property.get()))};
}

} // namespace GUI
