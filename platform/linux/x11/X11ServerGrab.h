// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

namespace pallistrom {

/// Requests that are made while this lives are carried out without any of another program's in
/// between; keys of real keyboards come through all the same.
///
/// Nobody is held up: it lives only while requests are written that wait for no answer, and they go
/// to the server together, since it begins with an empty buffer.
class X11ServerGrab {
public:
    /// `connection` outlives the grab.
    explicit X11ServerGrab(const X11Connection& connection) : m_connection(connection) {
        xcb_flush(m_connection.get());
        xcb_grab_server(m_connection.get());
    }

    X11ServerGrab(const X11ServerGrab&) = delete;
    X11ServerGrab& operator=(const X11ServerGrab&) = delete;

    ~X11ServerGrab() { xcb_ungrab_server(m_connection.get()); }

private:
    const X11Connection& m_connection;
};

} // namespace pallistrom
