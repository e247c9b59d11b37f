// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "ActiveWindow.h"

#include <xcb/xcb.h>

#include <string_view>

namespace pallistrom {

namespace {

xcb_atom_t activeWindow(const e2e::XConnection& connection) {
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    const e2e::XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply->atom;
}

void setActive(const e2e::XConnection& connection, xcb_window_t window) {
    const xcb_atom_t atom = activeWindow(connection);
    xcb_change_property(connection,
                        XCB_PROP_MODE_REPLACE,
                        connection.rootWindow(),
                        atom,
                        XCB_ATOM_WINDOW,
                        32,
                        1,
                        &window);
    // An answer says that all before it has been done.
    static_cast<void>(activeWindow(connection));
}

} // namespace

void bringToFront(const e2e::XConnection& connection, const std::string& windowClass) {
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(
        connection, 0, window, connection.rootWindow(), 0, 0, 1, 1, 0, 0, 0, 0, nullptr);
    const std::string bytes = windowClass + '\0' + windowClass + '\0';
    xcb_change_property(connection,
                        XCB_PROP_MODE_REPLACE,
                        window,
                        XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING,
                        8,
                        static_cast<std::uint32_t>(bytes.size()),
                        bytes.data());
    setActive(connection, window);
}

void bringNobodyToFront(const e2e::XConnection& connection) {
    setActive(connection, XCB_WINDOW_NONE);
}

} // namespace pallistrom
