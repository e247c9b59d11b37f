// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Deadline.h"
#include "XConnection.h"

#include <xcb/damage.h>

#include <map>
#include <set>
#include <string>

namespace pallistrom::bench {

/// Waits for a large window to be seen, woken by the X server and not by looking again and again.
class WindowWatch {
public:
    /// Sees windows that are made from now on.
    explicit WindowWatch(const std::string& display);

    /// Returns once a window has been mapped and half of it has been drawn. Throws
    /// std::runtime_error at the deadline.
    void waitUntilDrawn(Deadline deadline = Deadline{std::chrono::seconds{10}});

private:
    void watch(const xcb_create_notify_event_t& window);
    bool isDrawn(const xcb_generic_event_t& event);

    e2e::XConnection m_connection;
    std::uint8_t m_damageEvent = 0;
    std::map<xcb_window_t, int> m_missingPixels; ///< of large windows, until half is drawn
    std::set<xcb_window_t> m_ofPrograms; ///< not frames, which the window manager draws around them
};

} // namespace pallistrom::bench
