// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/ModifierTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

struct xkb_keymap;

namespace pallistrom {

/// What a keymap makes of its keys, and of the bits that each key event carries. What applications
/// get to see when a key is pressed counts, not what is printed on it, nor how its symbol is
/// called.
///
/// A key that locks or latches a modifier is not that modifier, since letting go of it does not end
/// what pressing it began; one that locks capital letters or shift is caps lock. Where the layouts
/// of the keymap make different things of a key, it chooses symbols if it does so in any of them,
/// and is otherwise what the first layout says in which it is a modifier at all: nobody outside of
/// the focused window is told which layout is in use.
struct KeymapModifiers {
    static constexpr std::size_t bitCount = 8;

    std::map<std::uint32_t, Modifier> keys; ///< by the keymap's codes; all others are none
    std::array<Modifier, bitCount> bits{};

    [[nodiscard]] static KeymapModifiers of(xkb_keymap& keymap);
};

/// Returns the same of the keys, of a keymap whose codes are those of evdev but for an offset.
[[nodiscard]] ModifierTable modifiersOf(xkb_keymap& keymap);

/// Returns what a key with this symbol does, as far as a symbol alone can tell.
[[nodiscard]] Modifier modifierOfSymbol(std::uint32_t symbol);

} // namespace pallistrom
