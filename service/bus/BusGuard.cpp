// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/bus/BusGuard.h"

#include "platform/linux/bus/TheBus.h"

#include <utility>

namespace pallistrom {

namespace {

bool isCall(sd_bus_message* message) {
    std::uint8_t type = 0;
    return sd_bus_message_get_type(message, &type) >= 0 && type == SD_BUS_MESSAGE_METHOD_CALL;
}

} // namespace

BusGuard::BusGuard(sd_event* loop, sd_bus* bus, int priority, std::function<void()> lost)
    : m_loop{loop}, m_bus{bus}, m_priority{priority}, m_lost{std::move(lost)} {}

int BusGuard::start() {
    const int result = into(m_filter, [this](sd_bus_slot** slot) {
        return sd_bus_add_filter(m_bus, slot, filter, this);
    });
    return result < 0 ? result : sd_bus_attach_event(m_bus, m_loop, m_priority);
}

Moment BusGuard::now() const {
    std::uint64_t microseconds = 0;
    static_cast<void>(sd_event_now(m_loop, CLOCK_MONOTONIC, &microseconds));
    return Moment{microseconds};
}

int BusGuard::filter(sd_bus_message* message, void* guard, sd_bus_error* /*error*/) {
    auto& self = *static_cast<BusGuard*>(guard);
    // Nobody on the bus can have this name.
    if (isFrom(message, "org.freedesktop.DBus.Local") &&
        sd_bus_message_is_signal(message, nullptr, "Disconnected") > 0) {
        if (!std::exchange(self.m_isLost, true)) {
            self.m_lost();
        }
        return 1;
    }
    if (!self.m_all.take(self.now())) {
        self.startRest();
    }
    return isCall(message) && self.refuse(message) ? 1 : 0;
}

bool BusGuard::refuse(sd_bus_message* message) {
    const char* const caller = sd_bus_message_get_sender(message);
    if (caller != nullptr && m_callers.take(caller, now())) {
        return false;
    }
    static_cast<void>(sd_bus_reply_method_errorf(
        message, SD_BUS_ERROR_LIMITS_EXCEEDED, "Too many calls; try again later."));
    return true;
}

// Not here and now: the library is in the middle of serving the connection.
void BusGuard::startRest() {
    if (!m_restSoon && !m_restTimer) {
        const int result = into(m_restSoon, [this](sd_event_source** source) {
            return sd_event_add_defer(m_loop, source, goToRest, this);
        });
        if (result >= 0) {
            static_cast<void>(sd_event_source_set_priority(m_restSoon.get(), m_priority - 1));
        }
    }
}

int BusGuard::goToRest(sd_event_source* /*source*/, void* guard) {
    auto& self = *static_cast<BusGuard*>(guard);
    self.m_restSoon.reset();
    const int result = into(self.m_restTimer, [&self](sd_event_source** source) {
        return sd_event_add_time_relative(
            self.m_loop, source, CLOCK_MONOTONIC, rest.count(), 0, endRest, &self);
    });
    if (result >= 0) {
        static_cast<void>(sd_bus_detach_event(self.m_bus));
    }
    return 0;
}

int BusGuard::endRest(sd_event_source* /*source*/, std::uint64_t /*time*/, void* guard) {
    auto& self = *static_cast<BusGuard*>(guard);
    self.m_restTimer.reset();
    if (sd_bus_attach_event(self.m_bus, self.m_loop, self.m_priority) < 0 &&
        !std::exchange(self.m_isLost, true)) {
        self.m_lost();
    }
    return 0;
}

} // namespace pallistrom
