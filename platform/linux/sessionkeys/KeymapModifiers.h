// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/ModifierTable.h"

struct xkb_keymap;

namespace pallistrom {

/// Returns which keys are which modifiers by `keymap`: what applications get to see when one is
/// pressed counts, not what is printed on it, nor how its symbol is called.
///
/// A key that locks or latches a modifier is not that modifier, since letting go of it does not end
/// what pressing it began; one that locks capital letters or shift is caps lock. Where the layouts
/// of the keymap make different things of a key, it chooses symbols if it does so in any of them,
/// and is otherwise what the first layout says in which it is a modifier at all: nobody outside of
/// the focused window is told which layout is in use.
[[nodiscard]] ModifierTable modifiersOf(xkb_keymap& keymap);

} // namespace pallistrom
