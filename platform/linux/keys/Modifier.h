// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"

#include <cstddef>
#include <cstdint>

namespace pallistrom {

/// What a modifier key does in the session.
enum class Modifier : std::uint8_t {
    None, ///< the key is no modifier
    Shift,
    Control,
    Option,
    Command,
    CapsLock,
    /// Chooses another symbol of the key, as AltGr does; no modifier in the engine's eyes.
    Level3,
};

inline constexpr std::size_t modifierCount = static_cast<std::size_t>(Modifier::Level3) + 1;

/// Returns the flag that `modifier` puts into a mask; 0 if it puts none.
[[nodiscard]] constexpr CGEventFlags flagOf(Modifier modifier) {
    switch (modifier) {
    case Modifier::Shift:
        return kCGEventFlagMaskShift;
    case Modifier::Control:
        return kCGEventFlagMaskControl;
    case Modifier::Option:
        return kCGEventFlagMaskAlternate;
    case Modifier::Command:
        return kCGEventFlagMaskCommand;
    case Modifier::CapsLock:
        return kCGEventFlagMaskAlphaShift;
    case Modifier::None:
    case Modifier::Level3:
        break;
    }
    return 0;
}

} // namespace pallistrom
