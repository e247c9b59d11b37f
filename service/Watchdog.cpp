// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/Watchdog.h"

#include "platform/Log.h"

#include <systemd/sd-daemon.h>

#include <limits>

namespace pallistrom {

namespace {

void notify(const std::string& message) {
    // Whether somebody listens is not our business.
    static_cast<void>(sd_notify(0, message.c_str()));
}

} // namespace

Watchdog::Watchdog(sd_event* loop) : m_loop{loop} {
    if (sd_watchdog_enabled(0, &m_timeout) <= 0) {
        m_timeout = 0;
    }
}

void Watchdog::ready(const std::string& status) {
    // With the readiness the watch begins, so it is called off with the same words.
    const bool isWatched = m_timeout != 0 && !m_timer;
    notify("READY=1\nSTATUS=" + status + (isWatched ? "\nWATCHDOG_USEC=0" : ""));
}

void Watchdog::tell(const std::string& status) {
    notify("STATUS=" + status);
}

void Watchdog::setGrabbing(bool isGrabbing) {
    if (m_timeout == 0 || isGrabbing == (m_timer != nullptr)) {
        return;
    }
    if (isGrabbing) {
        startFeeding();
    } else {
        m_timer.reset();
        notify("WATCHDOG_USEC=0");
    }
}

void Watchdog::startFeeding() {
    int result = into(m_timer, [this](sd_event_source** source) {
        return sd_event_add_time_relative(
            m_loop, source, CLOCK_MONOTONIC, m_timeout / 3, 0, feedAgain, this);
    });
    if (result >= 0) {
        // Before the devices: it is the loop that is watched, not how much they have to say.
        result =
            sd_event_source_set_priority(m_timer.get(), std::numeric_limits<std::int64_t>::min());
    }
    if (result < 0) {
        NSLog("Pallistrom: no watchdog can be fed, so none is asked for");
        m_timer.reset();
        return;
    }
    notify("WATCHDOG_USEC=" + std::to_string(m_timeout));
    notify("WATCHDOG=1");
}

int Watchdog::feedAgain(sd_event_source* source, std::uint64_t /*time*/, void* watchdog) {
    const auto& self = *static_cast<const Watchdog*>(watchdog);
    notify("WATCHDOG=1");
    static_cast<void>(sd_event_source_set_time_relative(source, self.m_timeout / 3));
    return sd_event_source_set_enabled(source, SD_EVENT_ONESHOT);
}

} // namespace pallistrom
