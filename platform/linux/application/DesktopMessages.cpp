// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/application/DesktopMessages.h"

#include "platform/linux/x11/QtXcb.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace pallistrom::DesktopMessages {

namespace {

void sendToRoot(xcb_connection_t* x11,
                const xcb_client_message_event_t& message,
                std::uint32_t mask) {
    xcb_send_event(x11, 0, QtXcb::rootWindow(x11), mask, reinterpret_cast<const char*>(&message));
}

} // namespace

void activate(WId window) {
    auto* const x11 = QtXcb::connection();
    if (x11 == nullptr) {
        return;
    }
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window);
    message.type = QtXcb::atom(x11, "_NET_ACTIVE_WINDOW");
    // On behalf of the user, as pagers and panels do; an application for itself would be asked for
    // the time of a click.
    constexpr std::uint32_t fromPager = 2;
    message.data.data32[0] = fromPager;
    sendToRoot(
        x11, message, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
    xcb_flush(x11);
}

void endStartup(const QByteArray& startupId) {
    auto* const x11 = QtXcb::connection();
    if (x11 == nullptr || startupId.isEmpty()) {
        return;
    }
    // The pieces belong together by the window that they come from.
    const xcb_window_t sender = xcb_generate_id(x11);
    const auto* const screen = xcb_setup_roots_iterator(xcb_get_setup(x11)).data;
    xcb_create_window(x11,
                      XCB_COPY_FROM_PARENT,
                      sender,
                      screen->root,
                      -1,
                      -1,
                      1,
                      1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_ONLY,
                      screen->root_visual,
                      0,
                      nullptr);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    message.window = sender;
    message.type = QtXcb::atom(x11, "_NET_STARTUP_INFO_BEGIN");
    const auto more = QtXcb::atom(x11, "_NET_STARTUP_INFO");
    const QByteArray text = "remove: ID=\"" + startupId + '"';
    // Its NUL at the end is part of the message.
    std::string_view rest(text.constData(), static_cast<std::size_t>(text.size()) + 1);
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, sizeof message.data.data8);
        std::fill(std::begin(message.data.data8), std::end(message.data.data8), std::uint8_t{0});
        std::copy(piece.begin(), piece.end(), std::begin(message.data.data8));
        sendToRoot(x11, message, XCB_EVENT_MASK_PROPERTY_CHANGE);
        rest.remove_prefix(piece.size());
        message.type = more;
    }
    xcb_destroy_window(x11, sender);
    xcb_flush(x11);
}

} // namespace pallistrom::DesktopMessages
