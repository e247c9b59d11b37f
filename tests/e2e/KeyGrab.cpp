// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "KeyGrab.h"

#include "XConnection.h"

#include <stdexcept>

namespace pallistrom::e2e {

bool isGrabbed(const XConnection& connection, KeyCombination combination) {
    const xcb_keycode_t key = connection.keycodeOf(combination.keysym);
    const xcb_window_t root = connection.rootWindow();
    // The server says who has a key only to those who want it. Nobody else is served meanwhile, or
    // a program that grabs the key in this very moment would find it taken.
    xcb_grab_server(connection);
    const auto attempt = xcb_grab_key_checked(
        connection, 0, root, combination.modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(connection, key, root, combination.modifiers);
    xcb_ungrab_server(connection);
    const XReply<xcb_generic_error_t> error{xcb_request_check(connection, attempt)};
    if (error && error->error_code != XCB_ACCESS) {
        throw std::runtime_error{"the X server refuses a grab for no known reason"};
    }
    return error != nullptr;
}

} // namespace pallistrom::e2e
