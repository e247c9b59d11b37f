// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventFlags.h"

#include <cstdint>

namespace pallistrom {

/// What an event is. Open: values without a name here exist and pass through untouched.
/// Values: Core Graphics, CGEventTypes.h.
using CGEventType = std::uint32_t;

inline constexpr CGEventType kCGEventKeyDown = 10;
inline constexpr CGEventType kCGEventKeyUp = 11;
inline constexpr CGEventType kCGEventFlagsChanged = 12;
/// Not events of the keyboard but news of the tap itself: the system has switched it off.
inline constexpr CGEventType kCGEventTapDisabledByTimeout = 0xFFFFFFFE;
inline constexpr CGEventType kCGEventTapDisabledByUserInput = 0xFFFFFFFF;

/// Names a number that an event carries.
enum CGEventField : std::uint32_t {
    kCGKeyboardEventKeycode = 9, ///< virtual key code: the position of the key, whatever the layout
};

/// One keyboard event. Each system has its own; nobody above the seam looks inside.
class CGEvent;

/// Borrowed: an event that reaches a callback belongs to the tap that calls.
using CGEventRef = CGEvent*;

/// Returns the number that `event` carries in `field`.
std::int64_t CGEventGetIntegerValueField(const CGEvent* event, CGEventField field);

/// Replaces the number that `event` carries in `field`.
void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, std::int64_t value);

/// Returns the complete modifier mask of `event`.
CGEventFlags CGEventGetFlags(const CGEvent* event);

/// Replaces the complete modifier mask of `event`.
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);

} // namespace pallistrom
