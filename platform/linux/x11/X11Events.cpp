// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Events.h"

namespace pallistrom {

bool takeX11Events(const X11Connection& connection,
                   const std::function<bool(const xcb_generic_event_t& event)>& matters) {
    bool isAny = false;
    while (const auto event = XcbOwned<xcb_generic_event_t>(xcb_poll_for_event(connection.get()))) {
        isAny = matters(*event) || isAny;
    }
    return isAny;
}

} // namespace pallistrom
