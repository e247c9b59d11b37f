// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Clock.h"

#include <cstdint>
#include <string_view>

namespace pallistrom {

namespace {

// The name is that of the X Synchronization Extension Protocol, "System Counters".
constexpr std::string_view timeCounter = "SERVERTIME";

// It follows its length in the reply. libxcb 1.15 looks for it two bytes further on, where a C
// structure of that size would end.
std::string_view nameOf(const xcb_sync_systemcounter_t& counter) {
    return {reinterpret_cast<const char*>(&counter.name_len) + sizeof(counter.name_len),
            counter.name_len};
}

xcb_sync_counter_t findTimeCounter(const X11Connection& connection) {
    // A client that asks for more before it has said which version it knows gets an error.
    const auto version = xcbReply(
        connection.get(),
        xcb_sync_initialize(connection.get(), XCB_SYNC_MAJOR_VERSION, XCB_SYNC_MINOR_VERSION),
        xcb_sync_initialize_reply);
    const auto list = version ? xcbReply(connection.get(),
                                         xcb_sync_list_system_counters(connection.get()),
                                         xcb_sync_list_system_counters_reply)
                              : nullptr;
    if (!list) {
        return XCB_NONE;
    }
    auto counters = xcb_sync_list_system_counters_counters_iterator(list.get());
    for (; counters.rem > 0; xcb_sync_systemcounter_next(&counters)) {
        if (nameOf(*counters.data) == timeCounter) {
            return counters.data->counter;
        }
    }
    return XCB_NONE;
}

} // namespace

X11Clock::X11Clock(const X11Connection& connection) : m_connection(connection) {
    if (connection.hasExtension("SYNC")) {
        m_counter = findTimeCounter(connection);
    }
}

std::chrono::milliseconds X11Clock::since(xcb_timestamp_t time) const {
    const auto reply = m_counter == XCB_NONE
                           ? nullptr
                           : xcbReply(m_connection.get(),
                                      xcb_sync_query_counter(m_connection.get(), m_counter),
                                      xcb_sync_query_counter_reply);
    if (!reply) {
        return {};
    }
    // Event times are the lowest 32 bits, and so begin anew every seven weeks.
    return std::chrono::milliseconds(
        static_cast<std::int32_t>(reply->counter_value.lo - std::uint32_t{time}));
}

} // namespace pallistrom
