// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/Xcb.h"

#include <memory>
#include <string_view>

namespace pallistrom {

/// A connection to the X server of the session.
class X11Connection {
public:
    /// Connects to the server that $DISPLAY names. Returns null where there is none, and in a
    /// Wayland session, where the connection alone would start a server that sees few of the keys.
    static std::unique_ptr<X11Connection> open();

    /// Returns whether this is a Wayland session.
    static bool isForbidden();

    [[nodiscard]] xcb_connection_t* get() const { return m_connection.get(); }

    [[nodiscard]] xcb_window_t root() const { return m_root; }

    [[nodiscard]] bool hasExtension(std::string_view name) const;

    /// Waits until the server has done all that it was asked for.
    void sync() const;

    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(get()); }

    /// Returns whether the server is still there, as far as is known.
    [[nodiscard]] bool isAlive() const { return xcb_connection_has_error(get()) == 0; }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const noexcept { xcb_disconnect(connection); }
    };

    X11Connection(xcb_connection_t* connection, int screen);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace pallistrom
