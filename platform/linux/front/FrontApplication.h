// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace pallistrom {

/// How the application in front takes editing keys. The values go over the bus.
enum class FrontApplication : std::uint8_t {
    TakesEditingKeys = 0, ///< as most do: Ctrl+BackSpace deletes a word
    KeepsItsKeys = 1,     ///< the keys of the shortcuts are its own, as in a terminal
    EditsBySelection = 2, ///< knows no key that deletes a word, but keys that select one
};

} // namespace pallistrom
