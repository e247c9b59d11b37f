// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <xcb/sync.h>

#include <chrono>

namespace pallistrom {

/// The server's own clock, by which it stamps its events. It need not be that of this machine.
class X11Clock {
public:
    explicit X11Clock(const X11Connection& connection);

    /// Returns how long ago the server stamped an event with `time`, right for events of the last
    /// three weeks; 0 on a server that does not tell its time.
    [[nodiscard]] std::chrono::milliseconds since(xcb_timestamp_t time) const;

private:
    const X11Connection& m_connection;
    xcb_sync_counter_t m_counter = XCB_NONE;
};

} // namespace pallistrom
