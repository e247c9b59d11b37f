// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/sessionkeys/Keymap.h"
#include "platform/linux/x11/X11Connection.h"

namespace pallistrom::X11Keymap {

/// Returns the keymap of the server's keyboard. Null if the server has no XKB. The server's
/// modifier map alone, which says less, has neither keys that choose symbols nor those that share a
/// modifier.
[[nodiscard]] Keymap::Owned read(const X11Connection& connection);

} // namespace pallistrom::X11Keymap
