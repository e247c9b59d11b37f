// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyMap.h"

#include <bitset>
#include <cstddef>

namespace pallistrom {

/// A set of keys of a Linux keyboard.
using KeySet = std::bitset<768>; // KEY_CNT of linux/input-event-codes.h.

/// Calls `use` with each key of `keys`, lowest code first. It may take that key out of the set.
template<typename Use>
void forEachKey(const KeySet& keys, const Use& use) {
    // The library's own way to the next one: sets are looked through with every key press.
    for (std::size_t key = keys._Find_first(); key < keys.size(); key = keys._Find_next(key)) {
        use(static_cast<EvdevCode>(key));
    }
}

} // namespace pallistrom
