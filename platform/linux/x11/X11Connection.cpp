// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Connection.h"

#include <cstdlib>

namespace pallistrom {

namespace {

xcb_window_t rootOf(xcb_connection_t* connection, int screen) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && screen > 0; --screen) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

X11Connection::X11Connection(xcb_connection_t* connection, int screen) : m_connection(connection) {
    if (isAlive()) {
        m_root = rootOf(connection, screen);
    }
}

bool X11Connection::isForbidden() {
    const char* const wayland = std::getenv("WAYLAND_DISPLAY"); // NOLINT(concurrency-mt-unsafe)
    return wayland != nullptr && *wayland != '\0';
}

std::unique_ptr<X11Connection> X11Connection::open() {
    if (isForbidden()) {
        return nullptr;
    }
    int screen = 0;
    // libxcb returns an object even when it could not connect.
    std::unique_ptr<X11Connection> connection(
        new X11Connection(xcb_connect(nullptr, &screen), screen));
    if (connection->m_root == XCB_WINDOW_NONE) {
        return nullptr;
    }
    return connection;
}

bool X11Connection::hasExtension(std::string_view name) const {
    const auto reply =
        xcbReply(get(),
                 xcb_query_extension(get(), static_cast<std::uint16_t>(name.size()), name.data()),
                 xcb_query_extension_reply);
    return reply && reply->present != 0;
}

void X11Connection::sync() const {
    // Any answer says that all before it has been done.
    xcbReply(get(), xcb_get_input_focus(get()), xcb_get_input_focus_reply);
}

} // namespace pallistrom
