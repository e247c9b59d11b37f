// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "XConnection.h"

#include <stdexcept>

namespace pallistrom::e2e {

XConnection::XConnection(const std::string& display)
    : m_connection{xcb_connect(display.c_str(), nullptr)} {
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        throw std::runtime_error{"no X server at " + display};
    }
    m_rootWindow = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

xcb_keycode_t XConnection::keycodeOf(xcb_keysym_t keysym) const {
    const xcb_setup_t* setup = xcb_get_setup(m_connection.get());
    const auto first = setup->min_keycode;
    const std::size_t count = setup->max_keycode - first + 1U;
    const auto cookie =
        xcb_get_keyboard_mapping(m_connection.get(), first, static_cast<uint8_t>(count));
    const XReply<xcb_get_keyboard_mapping_reply_t> mapping{
        xcb_get_keyboard_mapping_reply(m_connection.get(), cookie, nullptr)};
    if (mapping) {
        const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(mapping.get());
        for (std::size_t i = 0; i < count; ++i) {
            if (keysyms[i * mapping->keysyms_per_keycode] == keysym) {
                return static_cast<xcb_keycode_t>(first + i);
            }
        }
    }
    throw std::runtime_error{"no key for keysym " + std::to_string(keysym)};
}

} // namespace pallistrom::e2e
