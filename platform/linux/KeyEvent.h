// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyEvent.h"

#include <cstdint>

namespace pallistrom {

/// A key event on Linux: just the three facts that the program deals in.
class CGEvent {
public:
    std::int64_t keyCode = 0;
    CGEventFlags flags = 0;
    bool isDown = false;
};

} // namespace pallistrom
