// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"

#include <cstdint>

namespace pallistrom {

/// One keystroke to emit.
struct KeyChord {
    std::int64_t keyCode = 0; ///< virtual key code; 0..65535 by the time it is posted
    CGEventFlags flags = 0;   ///< the complete mask that the emitted events carry
};

} // namespace pallistrom
