// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeySet.h"

#include <linux/input-event-codes.h>

namespace pallistrom {

/// Returns whether the chord that lets go of all keyboards is down, other keys or not: Backspace,
/// Escape and Enter.
[[nodiscard]] inline bool isPanicChord(const KeySet& down) {
    return down[KEY_BACKSPACE] && down[KEY_ESC] && down[KEY_ENTER];
}

} // namespace pallistrom
