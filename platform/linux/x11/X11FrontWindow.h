// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/applications/WindowClass.h"
#include "platform/linux/front/FrontReport.h"
#include "platform/linux/x11/X11Connection.h"

#include <cstdint>

namespace pallistrom {

/// Which application is in front, as the window manager says. The window manager tells of each
/// change; nobody asks again and again.
class X11FrontWindow {
public:
    /// Asks to be told and reads who is in front now.
    explicit X11FrontWindow(const X11Connection& connection);

    /// Returns whether `event` says that another window has come to the front. refresh() then reads
    /// which.
    [[nodiscard]] bool isChange(const xcb_generic_event_t& event) const;

    void refresh();

    /// Returns which window is in front; nobody where the window manager does not say.
    [[nodiscard]] FrontReport report() const;

private:
    const X11Connection& m_connection;
    xcb_atom_t m_activeWindow = XCB_ATOM_NONE;
    WindowClass m_class;
};

} // namespace pallistrom
