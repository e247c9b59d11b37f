// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <cstdint>
#include <span>

namespace pallistrom {

/// The key combinations whose presses the X server gives to us instead of to the window in front.
///
/// All grabs are asynchronous: nobody's keyboard waits for our answer.
class X11KeyGrabs {
public:
    /// `connection` outlives the grabs.
    explicit X11KeyGrabs(const X11Connection& connection) : m_connection(connection) {}

    /// Grabs `keycode` with each of the modifier bits in `states`. Returns whether all were to be
    /// had: one that another program owns is not.
    bool add(xcb_keycode_t keycode, std::span<const std::uint16_t> states);

    /// Gives up every grab.
    void clear();

private:
    const X11Connection& m_connection;
};

} // namespace pallistrom
