// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

/// Whether the program starts when the user logs in. Keeps nothing: the system's own registration
/// is looked at each time.
namespace pallistrom::LaunchAtLogin {

[[nodiscard]] bool isEnabled();

/// Registers or unregisters the program. What the system refuses is logged and otherwise left to
/// the next reader of isEnabled.
void set(bool enabled);

} // namespace pallistrom::LaunchAtLogin
