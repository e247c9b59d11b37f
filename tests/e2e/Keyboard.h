// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

namespace pallistrom::e2e {

/// Where the key presses of a test come from, as the programs on the display see it.
enum class Keyboard {
    Faked,  ///< the server's XTEST device, which programs that make up key presses use as well
    Device, ///< a keyboard of its own, like those that people have
};

void PrintTo(Keyboard keyboard, std::ostream* out);

} // namespace pallistrom::e2e
