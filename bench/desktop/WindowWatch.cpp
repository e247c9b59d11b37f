// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "WindowWatch.h"

#include <poll.h>

#include <stdexcept>

namespace pallistrom::bench {

namespace {

using e2e::XReply;

constexpr int large = 400;

/// In the first byte of an event: another program has made it up.
constexpr std::uint8_t madeUp = 0x80;

template<typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

} // namespace

WindowWatch::WindowWatch(const std::string& display) : m_connection(display) {
    const auto* const extension = xcb_get_extension_data(m_connection, &xcb_damage_id);
    if (extension == nullptr || extension->present == 0) {
        throw std::runtime_error("the X server does not tell what is drawn");
    }
    m_damageEvent = extension->first_event;
    const XReply<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
        m_connection,
        xcb_damage_query_version(m_connection, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION),
        nullptr));
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const XReply<xcb_generic_error_t> error(xcb_request_check(
        m_connection,
        xcb_change_window_attributes_checked(
            m_connection, m_connection.rootWindow(), XCB_CW_EVENT_MASK, &events)));
    if (version == nullptr || error != nullptr) {
        throw std::runtime_error("the X server does not tell of windows");
    }
}

void WindowWatch::waitUntilDrawn(Deadline deadline) {
    for (;;) {
        while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
            if (isDrawn(*event)) {
                return;
            }
        }
        pollfd readable{
            .fd = xcb_get_file_descriptor(m_connection), .events = POLLIN, .revents = 0};
        if (poll(&readable, 1, deadline.remainingMilliseconds()) <= 0) {
            throw std::runtime_error("a window is not drawn");
        }
    }
}

// The client's window is made on the root window, and moved into its frame before it is mapped: by
// then the server has long been told to tell what is drawn in it.
void WindowWatch::watch(const xcb_create_notify_event_t& window) {
    if (window.width < large || window.height < large) {
        return;
    }
    m_missingPixels[window.window] = window.width * window.height / 2;
    xcb_damage_create(m_connection,
                      xcb_generate_id(m_connection),
                      window.window,
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(m_connection);
}

bool WindowWatch::isDrawn(const xcb_generic_event_t& event) {
    if ((event.response_type & ~madeUp) == XCB_CREATE_NOTIFY) {
        watch(as<xcb_create_notify_event_t>(event));
    } else if ((event.response_type & ~madeUp) == XCB_REPARENT_NOTIFY) {
        m_ofPrograms.insert(as<xcb_reparent_notify_event_t>(event).window);
    } else if (event.response_type == m_damageEvent + XCB_DAMAGE_NOTIFY) {
        const auto& drawn = as<xcb_damage_notify_event_t>(event);
        const auto found = m_missingPixels.find(drawn.drawable);
        if (found == m_missingPixels.end() || !m_ofPrograms.contains(drawn.drawable)) {
            return false;
        }
        found->second -= drawn.area.width * drawn.area.height;
        return found->second <= 0;
    }
    return false;
}

} // namespace pallistrom::bench
