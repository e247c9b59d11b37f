// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11KeyGrabs.h"

#include <vector>

namespace pallistrom {

bool X11KeyGrabs::add(xcb_keycode_t keycode, std::span<const std::uint16_t> states) {
    constexpr std::uint8_t toUsAlone = 0;
    std::vector<xcb_void_cookie_t> cookies;
    cookies.reserve(states.size());
    for (const std::uint16_t state : states) {
        cookies.push_back(xcb_grab_key_checked(m_connection.get(),
                                               toUsAlone,
                                               m_connection.root(),
                                               state,
                                               keycode,
                                               XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_ASYNC));
    }
    bool hasAll = true;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbOwned<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
        hasAll = hasAll && !error;
    }
    if (!hasAll) {
        for (const std::uint16_t state : states) {
            xcb_ungrab_key(m_connection.get(), keycode, m_connection.root(), state);
        }
    }
    return hasAll;
}

void X11KeyGrabs::clear() {
    xcb_ungrab_key(m_connection.get(), XCB_GRAB_ANY, m_connection.root(), XCB_MOD_MASK_ANY);
}

} // namespace pallistrom
