// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Session.h"

#include "platform/linux/x11/X11Devices.h"

namespace pallistrom::X11Session {

bool isOfWayland(const X11Connection& connection) {
    return connection.hasExtension("XWAYLAND") || X11Devices::areOfXWayland(connection);
}

std::unique_ptr<X11Connection> open() {
    auto connection = X11Connection::open();
    if (connection && isOfWayland(*connection)) {
        return nullptr;
    }
    return connection;
}

} // namespace pallistrom::X11Session
