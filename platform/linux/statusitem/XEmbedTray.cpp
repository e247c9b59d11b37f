// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/statusitem/XEmbedTray.h"

#include "platform/linux/x11/QtXcb.h"
#include "platform/linux/x11/Xcb.h"

#include <QCoreApplication>

#include <cstdint>
#include <utility>

namespace pallistrom {

namespace {

/// Of the events that programs send each other.
constexpr std::uint8_t sentByPrograms = 0x80;

} // namespace

XEmbedTray::XEmbedTray(std::function<void()> changed) : m_changed(std::move(changed)) {
    auto* const x11 = QtXcb::connection();
    if (x11 == nullptr) {
        return;
    }
    // Servers of today have one screen.
    m_selection = QtXcb::atom(x11, "_NET_SYSTEM_TRAY_S0");
    m_manager = QtXcb::atom(x11, "MANAGER");
    QCoreApplication::instance()->installNativeEventFilter(this);
}

// The base class takes the filter away.
XEmbedTray::~XEmbedTray() = default;

bool XEmbedTray::isThere() const {
    auto* const x11 = QtXcb::connection();
    if (x11 == nullptr || m_selection == XCB_ATOM_NONE) {
        return false;
    }
    const auto reply =
        xcbReply(x11, xcb_get_selection_owner(x11, m_selection), xcb_get_selection_owner_reply);
    return reply != nullptr && reply->owner != XCB_WINDOW_NONE;
}

bool XEmbedTray::nativeEventFilter(const QByteArray& /*eventType*/,
                                   void* message,
                                   qintptr* /*result*/) {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~sentByPrograms) == XCB_CLIENT_MESSAGE) {
        const auto* const fromClient = static_cast<const xcb_client_message_event_t*>(message);
        if (fromClient->type == m_manager && fromClient->data.data32[1] == m_selection) {
            m_changed();
        }
    }
    return false;
}

} // namespace pallistrom
