// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <memory>

/// Real X11 sessions, told from the X servers that belong to a Wayland session.
namespace pallistrom::X11Session {

/// Returns whether the server is one of a Wayland session, which sees the keys of some windows
/// only.
[[nodiscard]] bool isOfWayland(const X11Connection& connection);

/// Connects to the server of an X11 session. Returns null in any other session.
[[nodiscard]] std::unique_ptr<X11Connection> open();

} // namespace pallistrom::X11Session
