// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#pragma once

#include "service/devices/DeviceFacts.h"

#include <cstdint>

namespace pallistrom {

/// What an input device is to the service.
enum class DeviceClass : std::uint8_t {
    LeftAlone,
    Keyboard,
    KeyboardWithPointer, ///< one device with a mouse's axes or buttons, as of a combined receiver
};

/// Whether keyboards that other programs make count. They never do in the service: two remappers
/// that take each other's keys for typed would go round in circles.
enum class ProgramsKeyboards : std::uint8_t {
    LeftAlone,
    Taken, ///< for tests, which have no other
};

/// Returns what the device is that `facts` tell of.
[[nodiscard]] DeviceClass classOf(const DeviceFacts& facts, ProgramsKeyboards programs);

/// Returns whether `code` is a button, as of mice, and no key.
[[nodiscard]] constexpr bool isButton(EvdevCode code) {
    return (code >= BTN_MISC && code < KEY_OK) || (code >= BTN_DPAD_UP && code <= BTN_DPAD_RIGHT) ||
           (code >= BTN_TRIGGER_HAPPY && code <= BTN_TRIGGER_HAPPY40);
}

} // namespace pallistrom
