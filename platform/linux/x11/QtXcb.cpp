// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/QtXcb.h"

#include "platform/linux/x11/Xcb.h"

#include <QGuiApplication>

#include <cstdint>

namespace pallistrom::QtXcb {

xcb_connection_t* connection() {
    if (qGuiApp == nullptr) {
        return nullptr;
    }
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_window_t rootWindow(xcb_connection_t* connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = xcbReply(connection, cookie, xcb_intern_atom_reply);
    return reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace pallistrom::QtXcb
