// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/bus/Handles.h"

#include <cstdint>
#include <string>

namespace pallistrom {

/// What the service tells the one who started it: that it is ready, how it is doing, and, while it
/// has keyboards in its hands, that its loop still turns. A loop that hangs then is a keyboard that
/// hangs, and the service is killed, which frees the keyboards. Without keyboards nothing is told,
/// and nothing wakes up to tell it.
///
/// Does nothing where nobody wants to hear of it.
class Watchdog {
public:
    /// `loop` outlives this.
    explicit Watchdog(sd_event* loop);

    ~Watchdog() = default;
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    void ready(const std::string& status);
    static void tell(const std::string& status);

    /// Whether there are keyboards in our hands.
    void setGrabbing(bool isGrabbing);

private:
    void startFeeding();
    static int feedAgain(sd_event_source* source, std::uint64_t time, void* watchdog);

    sd_event* m_loop;
    std::uint64_t m_timeout = 0; ///< in microseconds; 0 if nobody is waiting
    OwnedSource m_timer;
};

} // namespace pallistrom
