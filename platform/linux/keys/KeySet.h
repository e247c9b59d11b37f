// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keys/KeyMap.h"

#include <bitset>
#include <cstddef>

namespace pallistrom {

/// A set of keys of a Linux keyboard.
using KeySet = std::bitset<768>; // KEY_CNT of linux/input-event-codes.h.

/// Calls `use` with each key of `keys`, lowest code first.
template<typename Use>
void forEachKey(const KeySet& keys, const Use& use) {
    for (std::size_t key = 0; key < keys.size(); ++key) {
        if (keys[key]) {
            use(static_cast<EvdevCode>(key));
        }
    }
}

} // namespace pallistrom
