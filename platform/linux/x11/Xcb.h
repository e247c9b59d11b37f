// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <type_traits>

namespace pallistrom {

struct XcbFree {
    void operator()(void* memory) const noexcept {
        std::free(memory); // NOLINT(cppcoreguidelines-no-malloc): what libxcb hands out.
    }
};

/// A reply, event or error from the server.
template<typename T>
using XcbOwned = std::unique_ptr<T, XcbFree>;

/// Waits for the reply to `cookie`; null when the server answered with an error or is gone. `get`
/// is the reply function that belongs to the request.
template<typename Cookie, typename Get>
auto xcbReply(xcb_connection_t* connection, Cookie cookie, Get get) {
    using Reply = std::remove_pointer_t<decltype(get(connection, cookie, nullptr))>;
    xcb_generic_error_t* error = nullptr;
    XcbOwned<Reply> reply(get(connection, cookie, &error));
    const XcbOwned<xcb_generic_error_t> ownedError(error);
    return reply;
}

/// Returns whether a map of one bit for each keycode has that of `keycode` set.
inline bool hasKeycode(std::span<const std::uint8_t> map, std::size_t keycode) {
    return ((unsigned{map[keycode / 8]} >> (keycode % 8)) & 1U) != 0;
}

} // namespace pallistrom
