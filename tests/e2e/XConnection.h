// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace pallistrom::e2e {

/// What libxcb hands over is allocated with malloc.
struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template<typename T>
using XReply = std::unique_ptr<T, Free>;

/// The tests' own connection to an X server, to ask what other clients have done to it. Throws
/// std::runtime_error if there is no such server.
class XConnection {
public:
    explicit XConnection(const std::string& display);

    // NOLINTNEXTLINE(google-explicit-constructor): it is what every function of libxcb is handed.
    operator xcb_connection_t*() const { return m_connection.get(); }

    xcb_window_t rootWindow() const { return m_rootWindow; }

    /// The key that carries `keysym` on its first level. Throws std::runtime_error if none does.
    xcb_keycode_t keycodeOf(xcb_keysym_t keysym) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_rootWindow = XCB_NONE;
};

} // namespace pallistrom::e2e
