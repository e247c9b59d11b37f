// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <string_view>

/// Qt's own connection to the X server, for what Qt does not do there itself.
namespace pallistrom::QtXcb {

/// Returns null where Qt does not run on X11.
[[nodiscard]] xcb_connection_t* connection();

/// The window that fills the first screen.
[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t* connection);

/// Asks the server; none if it does not answer.
[[nodiscard]] xcb_atom_t atom(xcb_connection_t* connection, std::string_view name);

} // namespace pallistrom::QtXcb
