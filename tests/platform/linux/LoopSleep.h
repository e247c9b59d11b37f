// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

/// How Qt's loop of this thread goes to sleep. It has to be the loop that waits with ppoll(2),
/// which the environment variable QT_NO_GLIB chooses before the application object is made.
namespace pallistrom::LoopSleep {

/// Serves what has come in, until the loop would sleep, but does not sleep. Returns whether it
/// would until somebody speaks: no timer would wake it.
[[nodiscard]] bool isWithoutEnd();

} // namespace pallistrom::LoopSleep
